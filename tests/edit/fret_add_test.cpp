#include "edit/fret_add.h"

#include "core/score_check.h"
#include "edit/current_symbol.h"
#include "layout/adjust.h"
#include "midi/refresh_pitches.h"
#include "render/geometry.h"
#include "render/tab_band.h"
#include "support/score_text.h"
#include "support/scripted_process.h"
#include "tab/tablature.h"
#include "tab/tuning.h"

#include <gtest/gtest.h>

namespace zarn::test
{
namespace
{
struct FretAdd : ::testing::Test
{
    ScriptedProcess process;

    FretAdd()
    {
        SetWindowUnits({0, 0, 1200, 800});
        bTabShowing = true;
        CurrentSymbol_SetNote(48);
    }
    static POINT Place(int32_t lStrX, int32_t lString)
    {
        POINT place;
        TabFold(lStrX, lString, 1, &place.x, &place.y);
        return place;
    }
    static Element* Add(int32_t lStrX, int32_t lString, int32_t lFret)
    {
        POINT const place = Place(lStrX, lString);
        return AddFretNote(nullptr, nullptr, place.x, place.y, lFret);
    }
    /// The staff as it stands once it is laid out.
    static std::string Added(char const* sScore, int32_t lStrX, int32_t lString, int32_t lFret)
    {
        List_Clear(aStaffList[1]);
        Write(1, sScore);
        FullAdjust();
        Add(lStrX, lString, lFret);
        FullAdjust();
        EXPECT_EQ(Score_Check(), std::vector<std::string>());
        return Read(1);
    }
};
} // namespace

TEST_F(FretAdd, AFretBecomesTheNoteThatItSounds)
{
    struct
    {
        int32_t lString, lFret, lDiaPitch, lPitch;
    } const aCase[] = {{1, 0, 9, 76}, {1, 3, 11, 79}, {2, 1, 7, 72}, {6, 3, -3, 55}, {5, 12, 5, 69}};
    for (auto const& c : aCase)
    {
        List_Clear(aStaffList[1]);
        Write(1, "clef:1 time:4/4");
        FullAdjust();
        Element const* const pel = Add(60, c.lString, c.lFret);
        ASSERT_TRUE(pel);
        EXPECT_EQ(pel->sort, NOTE);
        EXPECT_EQ(pel->lDiaPitch, c.lDiaPitch) << c.lString << '/' << c.lFret;
        EXPECT_EQ(pel->lPitch, c.lPitch) << c.lString << '/' << c.lFret;
        EXPECT_EQ(pel->lString, c.lString);
        EXPECT_EQ(pel->lFret, c.lFret) << "the string and the fret that were chosen stay";
        EXPECT_EQ(pel->up, c.lDiaPitch < 7);
        EXPECT_TRUE(bScoreDirty);
    }
}

TEST_F(FretAdd, ASemitoneOffTheKeyBringsItsAccidental)
{
    EXPECT_EQ(Added("clef:1 time:4/4", 60, 1, 2), "clef:1 time:4/4 #10 n10/48");
    EXPECT_EQ(Added("clef:1 key:1 time:4/4", 60, 1, 2), "clef:1 key:1 time:4/4 n10/48") << "the key says it";
    EXPECT_EQ(Added("clef:1 key:1 time:4/4", 60, 1, 1), "clef:1 key:1 time:4/4 =10 n10/48");
    EXPECT_EQ(Added("clef:1 key:-1 time:4/4", 60, 1, 6), "clef:1 key:-1 time:4/4 n13/48");
    EXPECT_EQ(Added("clef:1 key:-1 time:4/4", 60, 2, 4), "clef:1 key:-1 time:4/4 b9 n9/48") << "E flat";
}

TEST_F(FretAdd, AtTheHeadOfAnEmptyStaffTheAccidentalComesFirstToo)
{
    EXPECT_EQ(Added("", 10, 1, 2), "clef:1 #10 n10/48");
}

TEST_F(FretAdd, WhatFollowsInTheBarKeepsItsOwnState)
{
    std::string const s = Added("clef:1 key:1 time:4/4 n4/48 n10/48 n4/48", 20, 1, 1);
    EXPECT_NE(s.find("=10 n10/48"), std::string::npos) << s;
    EXPECT_NE(s.find("#10"), std::string::npos) << "the sharp of the key comes back: " << s;
}

TEST_F(FretAdd, ATranspositionInForceIsTakenOff)
{
    Write(1, "clef:1 trans:2 n4/48");
    FullAdjust();
    Element const* const pel = Add(60, 1, 2);
    ASSERT_TRUE(pel);
    EXPECT_EQ(pel->lDiaPitch, 9) << "written E, which sounds the F sharp of fret 2";
}

TEST_F(FretAdd, ASecondStringAtTheSameColumnMakesAChord)
{
    Write(1, "clef:1 n4/48");
    FullAdjust();
    int32_t const lStrX = At(1, 1)->lStrX;
    ASSERT_TRUE(Add(lStrX, 1, 0));
    EXPECT_EQ(Read(1), "clef:1 [n4/48 n9/48]");
}

TEST_F(FretAdd, OnlyANoteHasAFret)
{
    Write(1, "clef:1");
    CurrentSymbol_SetRest(48);
    bScoreDirty = false;
    EXPECT_EQ(Add(60, 1, 0), nullptr);
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Current symbol is not a NOTE.\nHint: note shortcuts are 2..8"});
    EXPECT_EQ(Read(1), "clef:1");
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(FretAdd, WithoutStringsNothingChanges)
{
    Write(1, "clef:1");
    lStrings = 0;
    bScoreDirty = false;
    EXPECT_EQ(Add(60, 1, 0), nullptr);
    EXPECT_EQ(Read(1), "clef:1");
    EXPECT_FALSE(bScoreDirty);
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(FretAdd, TheSignOfTheFretEntryStaysWithThePointer)
{
    Write(1, "clef:1");
    elCurrent.lA |= fFretEntrySign;
    Element const* const pel = Add(60, 1, 0);
    ASSERT_TRUE(pel);
    EXPECT_EQ(pel->lA & fFretEntrySign, 0);
    EXPECT_NE(elCurrent.lA & fFretEntrySign, 0);
}

TEST_F(FretAdd, AnyPlaceAndAnyTuningLeaveTheScoreWhole)
{
    std::array<int32_t, 5> const aWild = {INT32_MIN, -1, 0, 300, INT32_MAX};
    for (int32_t const x : aWild)
        for (int32_t const lOpen : aWild)
        {
            List_Clear(aStaffList[1]);
            Write(1, "clef:3 key:-3 n-7/48 | n-9/24");
            FullAdjust();
            aOpenPitch.fill(lOpen);
            (void)Tab_NoteFromFret(nullptr, nullptr, x, 300, 24);
            FullAdjust();
            EXPECT_EQ(Score_Check(), std::vector<std::string>()) << x << ' ' << lOpen;
        }
}

TEST_F(FretAdd, EnteringLaysTheScoreOutAgain)
{
    bAutoLayout = false;
    Write(1, "clef:1 time:2/4 n4/48");
    FullAdjust();
    POINT const place = Place(100, 1);
    EXPECT_TRUE(Tab_NoteFromFret(nullptr, nullptr, place.x, place.y, 0));
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n4/48 n9/48 |");
}
} // namespace zarn::test

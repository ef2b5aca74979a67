// What stands on the page while tablature shows.
#include "layout/adjust.h"
#include "midi/refresh_pitches.h"
#include "platform/headless/headless_window.h"
#include "platform/headless/recording_surface.h"
#include "render/draw_score.h"
#include "render/geometry.h"
#include "render/nearest.h"
#include "render/page_foot.h"
#include "render/symbols.h"
#include "render/tab_band.h"
#include "support/drawing.h"
#include "support/score_text.h"
#include "tab/fingering.h"
#include "tab/tuning.h"

#include <gtest/gtest.h>

namespace zarn::test
{
namespace
{
struct TablatureDrawing : testing::Test
{
    DrawingProcess process;

    TablatureDrawing() { bTabShowing = true; }
    ~TablatureDrawing() override { bPrinting = false; }

    static void Lay(char const* sScore)
    {
        Write(1, sScore);
        RefreshPitches(lHighestStaff);
        FullAdjust();
    }
};
} // namespace

TEST_F(TablatureDrawing, IsTheListThatWasLookedAt)
{
    Lay("clef:1 time:4/4 n2/48 [n4/24 n6/24] n11/24 #8 n8/48 r48 | n16/96 n17/96 |");
    Tab_FingerStaffs();
    FullAdjust();
    ExpectGolden("tablature", DrawnPage());
}

TEST_F(TablatureDrawing, EachLineOfMusicHasItsStringsBelowTheStaff)
{
    EXPECT_EQ(Count(Drawn(), "box"), 2 * (5 + 6)) << "two systems on the screen";
    EXPECT_EQ(Count(DrawnPage(), "box"), 5 + 6);
    lStrings = 4;
    EXPECT_EQ(Count(DrawnPage(), "box"), 5 + 4);
    lStrings = 0;
    EXPECT_EQ(Count(DrawnPage(), "box"), 5);
    lStrings = 1'000'000'000;
    EXPECT_EQ(Count(DrawnPage(), "box"), 5 + 9) << "no more than have a place";
}

TEST_F(TablatureDrawing, ANoteWithoutAFingeringGetsOneWhenItIsDrawn)
{
    Lay("clef:1 n2/48 n3/48");
    EXPECT_EQ(At(1, 1)->lString, 0);
    EXPECT_EQ(Count(DrawnPage(), "text"), 2);
    EXPECT_EQ(At(1, 1)->lString, 4);
    EXPECT_EQ(At(1, 1)->lFret, 2);
    EXPECT_EQ(At(1, 2)->lString, 4);
    EXPECT_EQ(At(1, 2)->lFret, 3);
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(TablatureDrawing, ANoteThatKeepsItsFingeringIsNotFingeredAgain)
{
    Lay("clef:1 n2/48");
    At(1, 1)->lString = 6;
    At(1, 1)->lFret = 12;
    EXPECT_NE(DrawnPage().find("\"12\""), std::string::npos);
    EXPECT_EQ(At(1, 1)->lString, 6);
}

TEST_F(TablatureDrawing, AChordThatCannotBePlayedIsMarkedAndHasNoNumber)
{
    Lay("clef:1 n-20/48 n2/48");
    EXPECT_EQ(Count(DrawnPage(), "text"), 1);
    EXPECT_EQ(At(1, 1)->fOverBar, fUnplayable);
    EXPECT_EQ(At(1, 1)->lString, 0);
    EXPECT_EQ(At(1, 2)->fOverBar, 0);
    EXPECT_TRUE(process.user.shown.empty()) << "a paint says nothing";
}

TEST_F(TablatureDrawing, HiddenTablatureLeavesThePageAsItWas)
{
    bTabShowing = false;
    Lay("clef:1 time:4/4 n2/96 n4/96 | n6/96");
    std::string const sBefore = Drawn();
    bTabShowing = true;
    EXPECT_NE(Drawn(), sBefore);
    bTabShowing = false;
    EXPECT_EQ(Drawn(), sBefore);
}

TEST_F(TablatureDrawing, OnlyBarLinesGoThroughTheStrings)
{
    for (char const* const sSign : {"|", "||", "|:", ":|", "::"})
    {
        List_Clear(aStaffList[1]);
        Write(1, std::string("clef:1 r48 ") + sSign);
        MiniAdjust();
        bTabShowing = false;
        int32_t const cPlain = Count(DrawnPage(), "box");
        bTabShowing = true;
        EXPECT_EQ(Count(DrawnPage(), "box"), cPlain + 6 + (std::string_view(sSign) == "|")) << sSign;
    }
}

TEST_F(TablatureDrawing, ACursorHasNoTablature)
{
    Lay("clef:1 n2/48");
    EXPECT_EQ(Count(DrawnSymbol(At(1, 1), 1, true), "text"), 0);
    EXPECT_EQ(At(1, 1)->lString, 0) << "and looks for no fingering";
}

TEST_F(TablatureDrawing, AFretOfTwoFiguresWidensItsNote)
{
    Lay("clef:1 n12/12 n12/12");
    At(1, 1)->lString = 1;
    At(1, 1)->lFret = 100;
    At(1, 2)->lString = 1;
    At(1, 2)->lFret = 3;
    MiniAdjust();
    EXPECT_GT(At(1, 1)->lWidth, At(1, 2)->lWidth);
}

TEST_F(TablatureDrawing, AClickOnAStringMeansTheNearestFretNumber)
{
    Lay("clef:1 n2/48 n9/48 r48 n2/48");
    Tab_FingerStaffs();
    for (int32_t const n : {1, 2, 4})
    {
        Element const* const pel = At(1, n);
        POINT place;
        TabFold(pel->lStrX, pel->lString, 1, &place.x, &place.y);
        EXPECT_EQ(NearestElement(place.x + 3, place.y + 2), pel) << n;
    }
    Element const* const pelRest = At(1, 3);
    POINT below;
    TabFold(pelRest->lStrX, 3, 1, &below.x, &below.y);
    Element const* const pelFound = NearestElement(below.x, below.y);
    EXPECT_TRUE(!pelFound || pelFound->sort == NOTE) << "there is no rest on a string";
}

TEST_F(TablatureDrawing, APageEndsAheadOfALineWhoseTablatureWouldReachBelowIt)
{
    Lay("clef:1 n9/48");
    Element const* const pel = At(1, 1);
    POINT lastString;
    TabFold(pel->lStrX, 6, 1, &lastString.x, &lastString.y);
    EXPECT_TRUE(ReachesBelow(pel, lastString.y));
    EXPECT_FALSE(ReachesBelow(pel, lastString.y + 40));
    bTabShowing = false;
    EXPECT_FALSE(ReachesBelow(pel, lastString.y));
}

TEST_F(TablatureDrawing, TheVisibleRangeEndsAheadOfAnotherNoteOnceItsTablatureIsBelowTheFoot)
{
    Lay("clef:1 n9/48 nl n9/48");
    Element const* const pel = At(1, 3);
    POINT lastString;
    TabFold(pel->lStrX, 6, 1, &lastString.x, &lastString.y);
    int32_t lTo = 0;
    int32_t lFrom = 0;
    VisibleRange(lastString.y - 1, 0, &lTo, &lFrom);
    EXPECT_EQ(lTo, LineStart(pel->lStrX));
    VisibleRange(lastString.y, 0, &lTo, &lFrom);
    EXPECT_EQ(lTo, INT32_MAX);
}
} // namespace zarn::test

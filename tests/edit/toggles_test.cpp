// Toggles of dot, triplet, staccato and ornament.
#include "edit/toggles.h"

#include "core/messages.h"
#include "edit/current_symbol.h"
#include "layout/place.h"
#include "platform/headless/recording_surface.h"
#include "render/geometry.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;
using test::Write;

class Toggles : public testing::Test
{
protected:
    Toggles()
    {
        SetWindowUnits({0, 0, 1200, 720});
        bAutoLayout = false;
    }
    ~Toggles() override { bAutoLayout = true; }
    [[nodiscard]] std::vector<std::string> Messages() const { return process.user.Messages(); }
    test::ScriptedProcess process;
};

TEST_F(Toggles, ADotGoesOnAndOff)
{
    Write(1, "n4/48");
    EXPECT_EQ(ToggleDot(At(1, 0)), 0);
    EXPECT_EQ(At(1, 0)->lDuration, 72);
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
    ToggleDot(At(1, 0));
    EXPECT_EQ(At(1, 0)->lDuration, 48);
}

TEST_F(Toggles, TheShortestNoteDoesNotComeBack)
{
    Write(1, "n4/3");
    ToggleDot(At(1, 0));
    EXPECT_EQ(At(1, 0)->lDuration, 4);
    ToggleDot(At(1, 0));
    EXPECT_EQ(At(1, 0)->lDuration, 6);
}

TEST_F(Toggles, ADurationIsMultipliedAheadOfItsDivision)
{
    Write(1, "n4/5 n4/7");
    ToggleDot(At(1, 0));
    ToggleTriplet(At(1, 1));
    EXPECT_EQ(Column(1, &Element::lDuration), "7 4");
}

TEST_F(Toggles, AGraceNoteStaysOne)
{
    Write(1, "n4/0");
    ToggleDot(At(1, 0));
    ToggleTriplet(At(1, 0));
    EXPECT_EQ(At(1, 0)->lDuration, 0);
}

TEST_F(Toggles, EachNoteOfAChordGoesByItsOwnTest)
{
    Write(1, "[n2/48 n4/72 n6/48]");
    EXPECT_EQ(ToggleDot(At(1, 1)), 1);
    EXPECT_EQ(Column(1, &Element::lDuration), "72 48 72");
}

TEST_F(Toggles, ARestIsDottedByItself)
{
    Write(1, "r48 n4/48");
    EXPECT_EQ(ToggleDot(At(1, 0)), 0);
    EXPECT_EQ(Column(1, &Element::lDuration), "72 48");
}

TEST_F(Toggles, ATripletComesFromThePlainNoteAndADottedOneGoesPlain)
{
    Write(1, "n4/72");
    bScoreDirty = false;
    ToggleTriplet(At(1, 0));
    EXPECT_EQ(At(1, 0)->lDuration, 48);
    ToggleTriplet(At(1, 0));
    EXPECT_EQ(At(1, 0)->lDuration, 32);
    ToggleTriplet(At(1, 0));
    EXPECT_EQ(At(1, 0)->lDuration, 48);
    EXPECT_FALSE(bScoreDirty) << "the command at the pointer tells the score, not the toggle";
}

TEST_F(Toggles, StaccatoAndOrnamentFlipInEveryNoteOfAChordAndNowhereElse)
{
    Write(1, "[n2/48 n4/48/flag=64] r48");
    EXPECT_EQ(ToggleStaccato(At(1, 0)), 1);
    EXPECT_EQ(Column(1, &Element::lA), "68 8 0");
    EXPECT_EQ(ToggleOrnament(At(1, 1)), 1);
    EXPECT_EQ(Column(1, &Element::lA), "100 40 0");
    EXPECT_EQ(ToggleOrnament(At(1, 2)), 0);
    EXPECT_EQ(At(1, 2)->lA, 0);
}

TEST_F(Toggles, ADotIsForNotesAndRestsAlone)
{
    Write(1, "| n4/48");
    At(1, 0)->lDuration = 48;
    EXPECT_EQ(ToggleDot(At(1, 0)), 0);
    EXPECT_EQ(ToggleTriplet(At(1, 0)), 0);
    EXPECT_EQ(Column(1, &Element::lDuration), "48 48");
}

TEST_F(Toggles, AccidentalsBetweenTheNotesOfAChordArePassedOver)
{
    Write(1, "n2/48/flag=4 #4 n4/48/flag=8");
    EXPECT_EQ(ToggleDot(At(1, 2)), 1);
    EXPECT_EQ(Column(1, &Element::lDuration), "72 0 72");
    EXPECT_EQ(ToggleStaccato(At(1, 0)), 1);
    EXPECT_EQ(Column(1, &Element::lA), "68 0 72");
}

TEST_F(Toggles, ATripletTakesEachNoteOfAChordAndARest)
{
    Write(1, "[n2/48 n4/32] r24");
    EXPECT_EQ(ToggleTriplet(At(1, 1)), 1);
    EXPECT_EQ(ToggleTriplet(At(1, 2)), 0);
    EXPECT_EQ(Column(1, &Element::lDuration), "32 48 16");
    EXPECT_EQ(ToggleTriplet(nullptr), 0);
}

TEST_F(Toggles, ARestAtThePointerTakesNoStaccatoAndTheScoreHasNotChanged)
{
    hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
    for (auto* const pToggle : {ToggleStaccatoAtMouse, ToggleOrnamentAtMouse})
    {
        Score_EmptyStaffs();
        Write(1, "x:10 r48");
        ReGrid();
        bScoreDirty = false;
        process.user.pWindow->bRepaintOwed = false;
        pToggle(nullptr, hwndMain, At(1, 0)->lX, At(1, 0)->lY);
        EXPECT_EQ(At(1, 0)->lA, 0);
        EXPECT_FALSE(bScoreDirty);
        EXPECT_TRUE(process.user.pWindow->bRepaintOwed);
        EXPECT_TRUE(Messages().empty());
    }
}

TEST_F(Toggles, WhatComesOnToOneNoteIsDrawnOverItAndAllElseAsksForARepaint)
{
    struct
    {
        void (*pToggle)(HDC, HWND, int32_t, int32_t);
        char const *sOn, *sOff;
    } const aCase[] = {{ToggleDotAtMouse, "x:10 n4/48", "x:10 n4/72"},
                       {ToggleTripletAtMouse, "x:10 n4/48", "x:10 n4/32"},
                       {ToggleStaccatoAtMouse, "x:10 n4/48", "x:10 n4/48/flag=64"},
                       {ToggleOrnamentAtMouse, "x:10 n4/48", "x:10 n4/48/flag=32"}};
    hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
    for (auto const& c : aCase)
        for (char const* sScore : {c.sOn, c.sOff, "x:10 [n4/48 n6/48]"})
        {
            Score_EmptyStaffs();
            Write(1, sScore);
            ReGrid();
            RecordingSurface surface{{1200, 720}};
            DeviceContext dc{.pSurface = &surface};
            process.user.pWindow->bRepaintOwed = false;
            c.pToggle(&dc, hwndMain, At(1, 0)->lX, At(1, 0)->lY);
            EXPECT_EQ(process.user.pWindow->bRepaintOwed, sScore != c.sOn) << sScore;
            EXPECT_EQ(surface.aLines.empty(), sScore != c.sOn) << sScore;
        }
}

TEST_F(Toggles, ADotAtThePointerIsLaidOutAndATripletIsNot)
{
    bAutoLayout = true;
    for (bool const bDot : {true, false})
    {
        Score_EmptyStaffs();
        Write(1, "x:10 n4/48");
        ReGrid();
        (bDot ? ToggleDotAtMouse : ToggleTripletAtMouse)(nullptr, nullptr, At(1, 0)->lX, At(1, 0)->lY);
        EXPECT_EQ(bTimesValid, bDot);
    }
}

TEST_F(Toggles, NothingIsTold)
{
    EXPECT_EQ(ToggleDot(nullptr), 0);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Bug: ToggleDot called for null element"});
}

TEST_F(Toggles, TheCurrentSymbolIsToggledInNoList)
{
    CurrentSymbol_SetNote(48);
    ToggleCurrentDot();
    EXPECT_EQ(elCurrent.lDuration, 72);
    ToggleCurrentDot();
    ToggleCurrentTriplet();
    EXPECT_EQ(elCurrent.lDuration, 32);
    ToggleCurrentTriplet();
    EXPECT_EQ(elCurrent.lDuration, 48);
    ToggleCurrentStaccato();
    ToggleCurrentOrnament();
    EXPECT_EQ(elCurrent.lA, 96);
    CurrentSymbol_SetRest(96);
    ToggleCurrentDot();
    EXPECT_EQ(elCurrent.lDuration, 144);
    ToggleCurrentStaccato();
    EXPECT_EQ(elCurrent.lA, 0);
    CurrentSymbol_Set(BAR);
    elCurrent.lDuration = 48;
    ToggleCurrentDot();
    ToggleCurrentTriplet();
    EXPECT_EQ(elCurrent.lDuration, 48);
}

TEST_F(Toggles, AtThePointerTheNearestIsTakenOrTold)
{
    struct
    {
        void (*pToggle)(HDC, HWND, int32_t, int32_t);
        char const* sWrong;
    } const aCase[] = {{ToggleDotAtMouse, "Nothing dotted or dottable near cursor"},
                       {ToggleTripletAtMouse, "Nothing triplety or tripletable near cursor"},
                       {ToggleStaccatoAtMouse, "Nothing staccato or staccatoable near cursor"},
                       {ToggleOrnamentAtMouse, "Nothing ornamented or ornamentable near cursor"}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        process.user.shown.clear();
        Serious_Rearm();
        c.pToggle(nullptr, nullptr, 600, 400);
        EXPECT_EQ(Messages(), std::vector<std::string>{"Nothing near cursor"});
        process.user.shown.clear();
        Serious_Rearm();
        Write(1, "x:10 |");
        ReGrid();
        c.pToggle(nullptr, nullptr, At(1, 0)->lX, At(1, 0)->lY);
        EXPECT_EQ(Messages(), std::vector<std::string>{c.sWrong});
        process.user.shown.clear();
        Score_EmptyStaffs();
        Write(1, "x:10 n4/48");
        ReGrid();
        bScoreDirty = false;
        c.pToggle(nullptr, nullptr, At(1, 0)->lX, At(1, 0)->lY);
        EXPECT_TRUE(Messages().empty());
        EXPECT_TRUE(bScoreDirty);
        EXPECT_NE(Read(1), "n4/48");
    }
}

TEST_F(Toggles, ATripletInABeamedSetUndoesTheBeam)
{
    Write(1, "x:10 n4/24 x:20 n5/24");
    ReGrid();
    At(1, 0)->beam = BEAM_FIRST;
    At(1, 1)->beam = BEAM_LAST;
    hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
    RecordingSurface surface{{1200, 720}};
    DeviceContext dc{.pSurface = &surface};
    process.user.pWindow->bRepaintOwed = false;
    ToggleTripletAtMouse(&dc, hwndMain, At(1, 1)->lX, At(1, 1)->lY);
    EXPECT_EQ(Column(1, &Element::beam), "0 0");
    EXPECT_EQ(Column(1, &Element::lDuration), "24 16");
    EXPECT_TRUE(process.user.pWindow->bRepaintOwed) << "the beam has to go";
}
} // namespace
} // namespace zarn

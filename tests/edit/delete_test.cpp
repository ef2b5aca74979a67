// Deleting, with all that depends on an element.
#include "edit/delete.h"

#include "core/messages.h"
#include "core/score_check.h"
#include "edit/current_symbol.h"
#include "edit/neighbours.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "platform/headless/recording_surface.h"
#include "render/geometry.h"
#include "render/ruling.h"
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

class Delete : public testing::Test
{
protected:
    Delete()
    {
        SetWindowUnits({0, 0, 1200, 720});
        bAutoLayout = false;
        bEditMode = false;
    }
    ~Delete() override
    {
        EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
        bAutoLayout = true;
        bEditMode = false;
    }
    static int32_t Remove(Element* pel) { return DeleteElement(nullptr, nullptr, pel, true); }
    static std::string Stored()
    {
        std::string s;
        for (Element const* pel = List_FirstAs<Element>(listUndo); pel; pel = Next(pel))
            s += std::string(s.empty() ? "" : " ") + Sort_Name(pel->sort, pel->lA);
        return s;
    }
    [[nodiscard]] std::vector<std::string> Messages() const { return process.user.Messages(); }

    test::ScriptedProcess process;
};

TEST_F(Delete, TheElementGoesIntoTheUndoStoreAlone)
{
    Write(1, "n4/48 n5/48 n6/48");
    EXPECT_EQ(Remove(At(1, 1)), 0);
    EXPECT_EQ(Read(1), "n4/48 n6/48");
    EXPECT_EQ(Stored(), "NOTE");
    EXPECT_EQ(lUndoState, UNDO_DELETE);
    EXPECT_EQ(lUndoStaff, 1);
    EXPECT_EQ(pelUndoPlace, At(1, 0));
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
    Remove(At(1, 1));
    EXPECT_EQ(List_Card(listUndo), 1);
}

TEST_F(Delete, TheUndoPlaceStandsBehindAnyPunctuation)
{
    Write(1, "n4/48 | clef:3 n-6/48");
    Remove(At(1, 3));
    EXPECT_EQ(pelUndoPlace, At(1, 0));
}

TEST_F(Delete, TheInsertPointStepsBackAndMayBecomeNull)
{
    Write(1, "n4/48 n5/48");
    pelInsertPoint = At(1, 1);
    Remove(At(1, 1));
    EXPECT_EQ(pelInsertPoint, At(1, 0));
    Remove(At(1, 0));
    EXPECT_EQ(pelInsertPoint, nullptr);
}

TEST_F(Delete, TheMarkStepsOff)
{
    Write(1, "n4/48 n5/48 n6/48");
    pelMarkBegin = pelMarkEnd = At(1, 1);
    Remove(At(1, 1));
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    Remove(At(1, 1));
    EXPECT_EQ(pelMarkBegin, At(1, 0));
    Remove(At(1, 0));
    EXPECT_EQ(pelMarkBegin, nullptr);
    EXPECT_EQ(pelMarkEnd, nullptr);
}

TEST_F(Delete, ATiedNoteTakesItsTieAlong)
{
    Write(1, "n4/48/flag=1 tie n4/48/flag=2");
    EXPECT_EQ(Remove(At(1, 0)), 1);
    EXPECT_EQ(Read(1), "n4/48");
    Score_EmptyStaffs();
    Write(1, "n4/48/flag=1 tie n4/48/flag=2");
    EXPECT_EQ(Remove(At(1, 2)), 1);
    EXPECT_EQ(Read(1), "n4/48");
    EXPECT_EQ(Stored(), "NOTE") << "the tie isn't kept";
}

TEST_F(Delete, ATieFlagWithoutATieIsTold)
{
    Write(1, "n4/48/flag=1 n5/48");
    Remove(At(1, 0));
    EXPECT_EQ(Messages(), std::vector<std::string>{"Start tie delete bug"});
    process.user.shown.clear();
    Serious_Rearm();
    Score_EmptyStaffs();
    Write(1, "n5/48 n4/48/flag=2");
    Remove(At(1, 1));
    EXPECT_EQ(Messages(), std::vector<std::string>{"End tie delete bug"});
}

TEST_F(Delete, ATieUntiesItsNotes)
{
    Write(1, "n4/48/flag=1 tie n4/48/flag=2");
    EXPECT_EQ(Remove(At(1, 1)), 1);
    EXPECT_EQ(Read(1), "n4/48 n4/48");
}

TEST_F(Delete, TheChordIsClosedUp)
{
    Write(1, "[n2/48 n4/48 n6/48]");
    Remove(At(1, 1));
    EXPECT_EQ(Column(1, &Element::lA), "4 8");
    Remove(At(1, 0));
    EXPECT_EQ(Column(1, &Element::lA), "0");
    Score_EmptyStaffs();
    Write(1, "[n2/48 n4/48]");
    Remove(At(1, 1));
    EXPECT_EQ(Column(1, &Element::lA), "0");
}

TEST_F(Delete, BehindAnAccidentalTheChordNoteBeforeKeepsItsFlag)
{
    Write(1, "n2/48/flag=4 #4 n4/48/flag=8");
    Remove(At(1, 2));
    EXPECT_EQ(Column(1, &Element::lA), "4 0");
}

TEST_F(Delete, ABeamSetIsUndone)
{
    Write(1, "n2/24 n3/24 n4/24");
    At(1, 0)->beam = BEAM_FIRST;
    At(1, 1)->beam = BEAM_INSIDE;
    At(1, 2)->beam = BEAM_LAST;
    EXPECT_EQ(Remove(At(1, 1)), 1);
    EXPECT_EQ(Column(1, &Element::beam), "0 0");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Delete, ABeamWhereThereCanBeNoneIsTold)
{
    Write(1, "n2/48 | n3/24");
    At(1, 0)->beam = BEAM_FIRST;
    Remove(At(1, 0));
    EXPECT_EQ(Messages(), std::vector<std::string>{"BEAM set on something that's longer than quaver"});
    process.user.shown.clear();
    Serious_Rearm();
    At(1, 0)->beam = BEAM_FIRST;
    Remove(At(1, 0));
    EXPECT_EQ(Messages(), std::vector<std::string>{"BEAM set on something that's not a note"});
}

TEST_F(Delete, AKeySignatureHandsItsPlaceToTheNextOne)
{
    Write(1, "key:1 n4/48 key:2,1 n5/48 key:-1,2 n6/48");
    Remove(At(1, 2));
    EXPECT_EQ(Read(1), "key:1 n4/48 n5/48 key:-1,1 n6/48");
    Remove(At(1, 0));
    EXPECT_EQ(Read(1), "n4/48 n5/48 key:-1 n6/48");
}

TEST_F(Delete, ASlurTakesItsPartnerAndCannotBeUndone)
{
    for (int32_t const n : {0, 2})
    {
        Score_EmptyStaffs();
        Write(1, "slur( n4/48 slur) n5/48");
        Remove(At(1, n));
        EXPECT_EQ(Read(1), "n4/48 n5/48");
        EXPECT_EQ(lUndoState, UNDO_NOTHING);
    }
}

TEST_F(Delete, InEditModeItBecomesTheCurrentSymbol)
{
    bEditMode = true;
    Write(1, "n4/36/flag=96 chord\"F#dim7\" vol:94");
    At(1, 0)->beam = BEAM_FIRST;
    At(1, 0)->up = 0;
    Remove(At(1, 1));
    EXPECT_EQ(elCurrent.sort, CHORD);
    EXPECT_EQ(Element_Text(&elCurrent), "F#di");
    EXPECT_EQ(elCurrent.lA, 4);
    Remove(At(1, 1));
    EXPECT_EQ(elCurrent.sort, VOLUME);
    EXPECT_EQ(elCurrent.lA, 94);
    At(1, 0)->beam = BEAM_NONE;
    Remove(At(1, 0));
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 36);
    EXPECT_EQ(elCurrent.lA, 0);
    EXPECT_EQ(elCurrent.up, 1);
}

TEST_F(Delete, WithAdjustContinuouslyTheScoreIsLaidOutButNotForSigns)
{
    bAutoLayout = true;
    Write(1, "clef:1 time:2/4 n4/48 n5/48 n6/48 n7/48");
    FullAdjust();
    EXPECT_EQ(Remove(At(1, 4)), 0);
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n4/48 n5/48 n6/48 n7/48 |")
        << "a bar that was deleted stays away till the next edit";
    EXPECT_EQ(Remove(At(1, 2)), 1);
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n5/48 n6/48 | n7/48");
}

TEST_F(Delete, AChordIsClosedUpOverWhatStandsBetweenItsNotes)
{
    Write(1, "n2/48/flag=4 #4 n4/48/flag=12 n6/48/flag=8");
    Remove(At(1, 0));
    EXPECT_EQ(Read(1), "#4 [n4/48 n6/48]");
}

TEST_F(Delete, TheNearestTieOfATiedNoteGoesAndNoOther)
{
    Write(1, "n4/48/flag=1 tie n4/48/flag=3 tie n4/48/flag=3 tie n4/48/flag=2");
    Remove(At(1, 2));
    EXPECT_EQ(Read(1), "n4/48 n4/48/flag=1 tie n4/48/flag=2");
}

TEST_F(Delete, ATieBetweenChordsGoesWithAnyOfItsNotes)
{
    Write(1, "[n2/48/flag=1 n4/48/flag=1] tie [n2/48/flag=2 n4/48/flag=2]");
    Remove(At(1, 1));
    EXPECT_EQ(Read(1), "n2/48 [n2/48 n4/48]");
}

TEST_F(Delete, CursorsOnATieThatGoesAlongStepOff)
{
    Write(1, "n4/48 n4/48/flag=1 tie n4/48/flag=2");
    pelInsertPoint = pelMarkBegin = pelMarkEnd = pelHighlight = At(1, 2);
    Remove(At(1, 3));
    EXPECT_EQ(Read(1), "n4/48 n4/48");
    EXPECT_EQ(pelInsertPoint, At(1, 1));
    EXPECT_EQ(pelHighlight, nullptr);
}

TEST_F(Delete, AClefThatRepeatsTheOneInForceShiftsNothing)
{
    Write(1, "clef:3 n-8/48 clef:3 n-9/48");
    Remove(At(1, 2));
    EXPECT_EQ(Read(1), "clef:3 n-8/48 n-9/48");
}

TEST_F(Delete, AClefAtTheHeadGivesWayToTreble)
{
    Write(1, "clef:2 n0/48 #1 r48 clef:1 n4/48");
    Remove(At(1, 0));
    EXPECT_EQ(Read(1), "n6/48 #7 r48 clef:1 n4/48");
}

TEST_F(Delete, ABeamedNoteAsksForARepaintAndAPlainOneDoesNot)
{
    Write(1, "n4/24 n5/24 n6/24 r48");
    At(1, 0)->beam = BEAM_FIRST;
    At(1, 1)->beam = BEAM_LAST;
    EXPECT_EQ(Remove(At(1, 0)), 1);
    EXPECT_EQ(Remove(At(1, 1)), 0);
    EXPECT_EQ(Remove(At(1, 1)), 0);
}

TEST_F(Delete, WithoutLeaveTheScoreIsNotLaidOut)
{
    bAutoLayout = true;
    Write(1, "clef:1 time:2/4 n4/48 n5/48 n6/48");
    EXPECT_EQ(DeleteElement(nullptr, nullptr, At(1, 2), false), 0);
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n5/48 n6/48");
    EXPECT_EQ(DeleteElement(nullptr, nullptr, At(1, 2), true), 1);
    EXPECT_TRUE(bTimesValid) << "it has been laid out";
}

TEST_F(Delete, SignsAndTiesDontAskForALayoutAndOthersDo)
{
    bAutoLayout = true;
    struct
    {
        char const* sSign;
        bool bLayout;
    } const aCase[] = {{"|", false},       {"clef:3", false},   {"key:1", false}, {"tie", false},
                       {"sp", false},      {"||", true},        {"r48", true},    {"#4", true},
                       {"time:3/4", true}, {"lyr\"la\"", true}, {"nl", true},     {"vol:64", true}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, std::string("clef:1 n4/48 ") + c.sSign + " n4/48");
        Remove(At(1, 2));
        EXPECT_EQ(bTimesValid, c.bLayout) << c.sSign;
    }
}

TEST_F(Delete, ASlurLeavesTheCurrentSymbolAloneEvenInEditMode)
{
    bEditMode = true;
    CurrentSymbol_SetNote(24);
    Write(1, "slur( n4/48 slur)");
    Remove(At(1, 2));
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 24);
}

TEST_F(Delete, WithoutEditModeTheCurrentSymbolStays)
{
    CurrentSymbol_SetNote(24);
    Write(1, "r48");
    Remove(At(1, 0));
    EXPECT_EQ(elCurrent.sort, NOTE);
}

TEST_F(Delete, OfALongTextEditModeTakesAPlainRecord)
{
    bEditMode = true;
    Write(1, "text\"a long text\" chord\"Am\"");
    Remove(At(1, 0));
    EXPECT_EQ(elCurrent.sort, TEXT);
    EXPECT_EQ(elCurrent.storage, cbPlainElement);
    EXPECT_EQ(Element_Text(&elCurrent), "a long ");
    Remove(At(1, 0));
    EXPECT_EQ(Element_Text(&elCurrent), "Am");
    EXPECT_EQ(elCurrent.lA, 2);
}

TEST_F(Delete, TheFirstOfAStaffLeavesTheHeadAsItsPlace)
{
    Write(1, "n4/48 n5/48");
    Remove(At(1, 0));
    EXPECT_EQ(pelUndoPlace, nullptr);
    EXPECT_EQ(lUndoState, UNDO_DELETE);
}

TEST_F(Delete, WhatIsDeletedIsErasedInWhiteAndItsStaffRuledAgain)
{
    hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
    Write(1, "x:20 n4/48");
    ReGrid();
    RecordingSurface surface{{1200, 720}};
    DeviceContext dc{.pSurface = &surface};
    SelectObject(&dc, GetStockObject(BLACK_BRUSH));
    RuleLine(&dc, hwndMain, 20); // as a paint has left it
    surface.aLines.clear();
    DeleteElement(&dc, hwndMain, At(1, 0), true);
    constexpr size_t cStaffLines = 5;
    ASSERT_GT(surface.aLines.size(), cStaffLines);
    for (size_t n = 0; n < surface.aLines.size(); ++n)
        EXPECT_EQ(surface.aLines[n].find("#ffffff") != std::string::npos, n + cStaffLines < surface.aLines.size())
            << surface.All();
}

TEST_F(Delete, AtThePointerTheNearestGoesAndThePointerTakesItsPlaceAmongTheNeighbours)
{
    Write(1, "x:10 n4/48 x:20 n4/48 x:30 n4/48");
    ReGrid();
    POINT const place = DeleteAtMouse(nullptr, nullptr, {At(1, 1)->lX + 5, At(1, 1)->lY - 3});
    EXPECT_EQ(Column(1, &Element::lStrX), "10 30");
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(20, 4, 1, 1, &x, &y);
    EXPECT_EQ(place.x, x);
    EXPECT_EQ(place.y, y);
    // With one neighbour, the distance from it stays.
    POINT const last = DeleteAtMouse(nullptr, nullptr, {At(1, 1)->lX, At(1, 1)->lY});
    Draw_Fold(30, 4, 1, 1, &x, &y);
    EXPECT_EQ(last.x, x);
    POINT const nothing = DeleteAtMouse(nullptr, nullptr, {700, 600});
    EXPECT_EQ(nothing.x, 700);
    EXPECT_EQ(Column(1, &Element::lStrX), "10");
}
} // namespace
} // namespace zarn

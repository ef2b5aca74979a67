// Mark, cut, copy, paste and undo.
#include "edit/clipboard.h"

#include "core/messages.h"
#include "core/score_check.h"
#include "edit/add.h"
#include "edit/current_symbol.h"
#include "edit/delete.h"
#include "edit/mark.h"
#include "edit/undo.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "render/geometry.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>
#include <utility>

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;
using test::Write;

class Clipboard : public testing::Test
{
protected:
    Clipboard()
    {
        SetWindowUnits({0, 0, 1200, 720});
        bAutoLayout = false;
        elSavedCurrent = RoomyElement();
    }
    ~Clipboard() override
    {
        EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
        bAutoLayout = true;
    }
    static void Mark(int32_t nFirst, int32_t nLast)
    {
        pelMarkBegin = At(1, nFirst);
        pelMarkEnd = At(1, nLast);
    }
    /// What the clipboard holds, as a staff of its own.
    static std::string Held()
    {
        std::swap(aStaffList[8], listClipboard);
        std::string const s = Read(8);
        std::swap(aStaffList[8], listClipboard);
        return s;
    }
    static POINT PlaceAt(int32_t lStrX, int32_t lStaff = 1)
    {
        POINT place;
        Draw_Fold(lStrX, 4, lStaff, 1, &place.x, &place.y);
        return place;
    }
    static void Paste(int32_t lStrX, int32_t lStaff = 1)
    {
        POINT const place = PlaceAt(lStrX, lStaff);
        PasteAt(nullptr, place.x, place.y);
    }
    [[nodiscard]] std::vector<std::string> Messages() const { return process.user.Messages(); }
    test::ScriptedProcess process;
};

TEST_F(Clipboard, MarkingPullsTheOtherEndAlong)
{
    Write(1, "x:10 n4/48 x:20 n5/48 x:30 n6/48");
    POINT place = PlaceAt(15);
    EXPECT_TRUE(MarkBeginAt(nullptr, place.x, place.y));
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    EXPECT_EQ(pelMarkEnd, At(1, 1));
    place = PlaceAt(35);
    EXPECT_TRUE(MarkEndAt(nullptr, place.x, place.y));
    EXPECT_EQ(pelMarkEnd, At(1, 2));
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    place = PlaceAt(12);
    EXPECT_TRUE(MarkEndAt(nullptr, place.x, place.y));
    EXPECT_EQ(pelMarkEnd, At(1, 0));
    EXPECT_EQ(pelMarkBegin, At(1, 0));
    place = PlaceAt(5);
    EXPECT_TRUE(MarkBeginAt(nullptr, place.x, place.y)) << "ahead of all, it is the first";
    EXPECT_EQ(pelMarkBegin, At(1, 0));
    EXPECT_FALSE(MarkEndAt(nullptr, place.x, place.y)) << "nothing stands there or ahead";
    EXPECT_EQ(pelMarkBegin, nullptr);
    MarkClear(nullptr);
    EXPECT_EQ(pelMarkEnd, nullptr);
}

TEST_F(Clipboard, MarkingAHiddenStaffClearsThatEnd)
{
    Write(1, "x:10 n4/48");
    Mark(0, 0);
    abStaffVisible[1] = false;
    POINT const place = PlaceAt(5);
    EXPECT_FALSE(MarkBeginAt(nullptr, place.x, place.y));
    EXPECT_EQ(pelMarkBegin, nullptr);
    abStaffVisible[1] = true;
}

TEST_F(Clipboard, TheMarkSignKeepsTheSymbolThatWasTheCurrentOne)
{
    CurrentSymbol_SetNote(24);
    Mark_SetBeginSymbol();
    EXPECT_EQ(elCurrent.sort, MARKBEGIN);
    Mark_SetEndSymbol();
    EXPECT_EQ(elCurrent.sort, MARKEND);
    EXPECT_EQ(elSavedCurrent.lDuration, 24);
    MarkEndAt(nullptr, 10, 10);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elSavedCurrent.sort, NOSORT);
}

TEST_F(Clipboard, ACutTakesTheRangeAndTheUndoMarksIt)
{
    Write(1, "clef:1 n4/48 n5/48 n6/48");
    Mark(2, 3);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48");
    EXPECT_EQ(Held(), "n5/48 n6/48");
    EXPECT_EQ(pelMarkBegin, nullptr);
    EXPECT_EQ(lUndoState, UNDO_CUT);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 n6/48");
    EXPECT_EQ(pelMarkBegin, At(1, 2));
    EXPECT_EQ(pelMarkEnd, At(1, 3));
    EXPECT_EQ(lUndoState, UNDO_PASTE);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48");
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
    EXPECT_EQ(pelMarkBegin, nullptr) << "the mark went with its elements";
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48");
}

TEST_F(Clipboard, ACutFromTheHeadOfAStaffThatHoldsMoreStays)
{
    Write(1, "n4/48 n5/48");
    Mark(0, 0);
    Cut(nullptr, nullptr);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n5/48");
    Score_EmptyStaffs();
    Write(1, "n4/48 n5/48");
    Mark(0, 1);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "");
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48");
}

TEST_F(Clipboard, SignsThatRepeatWhatIsInForceAreNotCopied)
{
    Write(1, "clef:1 key:2 n0/48 clef:1 key:2 n1/48 clef:3 key:-1,2 n-11/48");
    Mark(3, 8);
    Copy();
    EXPECT_EQ(Held(), "n1/48 clef:3 key:-1,2 n-11/48");
    Mark(1, 2);
    Copy();
    EXPECT_EQ(Held(), "n0/48") << "a copy takes the key at its very start for one in force";
    Mark(1, 2);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Held(), "key:2 n0/48") << "a cut doesn't";
}

TEST_F(Clipboard, ATieOverTheEdgeIsPurged)
{
    Write(1, "n4/48/flag=1 tie n4/48/flag=3 tie n4/48/flag=2");
    Mark(2, 2);
    Copy();
    EXPECT_EQ(Held(), "n4/48");
    EXPECT_TRUE(Messages().empty());
    Mark(1, 3);
    Copy();
    EXPECT_EQ(Held(), "n4/48");
    EXPECT_EQ(Messages(), std::vector<std::string>{"Dangling tie is purged from cut/copy"});
    EXPECT_EQ(Read(1), "n4/48/flag=1 tie n4/48/flag=3 tie n4/48/flag=2");
    Mark(2, 2);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n4/48") << "a tie that goes asks for a layout";
    EXPECT_EQ(Held(), "n4/48");
}

TEST_F(Clipboard, ATieInsideIsCopiedButNotCut)
{
    Write(1, "n4/48/flag=1 tie n4/48/flag=2");
    Mark(0, 2);
    Copy();
    EXPECT_EQ(Held(), "n4/48/flag=1 tie n4/48/flag=2");
    Mark(0, 2);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(Held(), "n4/48/flag=1 n4/48") << "the first was copied ahead of its deletion";
}

TEST_F(Clipboard, ARangeThroughAChordHoldsAWholeOne)
{
    Write(1, "[n2/48 n4/48 n6/48] [n1/48 n3/48]");
    Mark(1, 3);
    Copy();
    EXPECT_EQ(Held(), "[n4/48 n6/48] n1/48");
}

TEST_F(Clipboard, PartOfATiedChordIsCopiedWithoutItsTies)
{
    Write(1, "n4/48/flag=1 tie [n2/48 n4/48/flag=3 n6/48] tie n4/48/flag=2");
    Mark(2, 3);
    Copy();
    EXPECT_EQ(Held(), "[n2/48 n4/48]");
    Mark(3, 4);
    Copy();
    EXPECT_EQ(Held(), "[n4/48 n6/48]");
    Mark(3, 3);
    Copy();
    EXPECT_EQ(Held(), "n4/48");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Clipboard, ATieBetweenTheChordsAtBothEndsStays)
{
    Write(1, "n2/48/flag=1 tie [n2/48/flag=3 n4/48/flag=1] tie [n2/48/flag=3 n4/48/flag=2] tie n2/48/flag=2");
    Mark(2, 6);
    Copy();
    EXPECT_EQ(Held(), "[n2/48/flag=1 n4/48/flag=1] tie [n2/48/flag=2 n4/48/flag=2]");
}

TEST_F(Clipboard, PastingNothingLeavesUndoAsItWas)
{
    Write(1, "x:10 n4/48 x:20 n5/48");
    List_Clear(listClipboard);
    lUndoState = UNDO_NOTHING;
    Paste(15);
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
}

TEST_F(Clipboard, AHiddenStaffTakesNoPaste)
{
    Write(1, "x:10 n4/48");
    Mark(0, 0);
    Copy();
    abStaffVisible[1] = false;
    Paste(15);
    abStaffVisible[1] = true;
    EXPECT_EQ(Read(1), "n4/48");
}

// The range that such a paste can be undone in ends ahead of what was the last element of the staff.
TEST_F(Clipboard, TheUndoOfAPasteAtTheHeadTakesAllButTheLast)
{
    Write(1, "x:10 n4/48 x:20 n5/48 x:30 n6/48");
    Mark(2, 2);
    Copy();
    Paste(5);
    EXPECT_EQ(Read(1), "n6/48 n4/48 n5/48 n6/48");
    EXPECT_EQ(pelUndoPlace, At(1, 0));
    EXPECT_EQ(pelUndoEnd, At(1, 2));
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n6/48");
}

TEST_F(Clipboard, APasteIntoAnEmptyStaffIsAllOfIt)
{
    SetStaffCount(2);
    Write(1, "x:10 n4/48 x:20 n5/48");
    Mark(0, 1);
    Copy();
    Paste(5, 2);
    EXPECT_EQ(Read(2), "n4/48 n5/48");
    EXPECT_EQ(pelUndoPlace, At(2, 0));
    EXPECT_EQ(pelUndoEnd, At(2, 1));
    SetStaffCount(1);
}

TEST_F(Clipboard, WhatIsPastedTakesTheVolumeAndTheKeyOfItsPlace)
{
    Write(1, "x:10 vol:30 x:12 n4/48 x:14 key:2 x:20 n5/48 x:30 n6/48");
    At(1, 3)->lB = 99;
    Mark(1, 3);
    Copy();
    Paste(35);
    EXPECT_EQ(Read(1), "vol:30 n4/48 key:2 n5/48 n6/48 n4/48 key:2,2 n5/48");
    EXPECT_EQ(At(1, 5)->lB, 30);
    EXPECT_EQ(At(1, 7)->lB, 30);
}

TEST_F(Clipboard, APastedTieIsNotAskedWhatItJoins)
{
    Write(1, "x:10 n4/48/flag=1 x:12 tie x:14 n4/48/flag=2 x:20 n6/48");
    At(1, 1)->lDiaPitch = 3;
    Mark(0, 2);
    Copy();
    Paste(25);
    EXPECT_EQ(Read(1), "n4/48/flag=1 tie n4/48/flag=2 n6/48 n4/48/flag=1 tie n4/48/flag=2");
    EXPECT_EQ(At(1, 5)->lDiaPitch, 3);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Clipboard, WithContinuousAdjustingAPasteIsLaidOut)
{
    bAutoLayout = true;
    Write(1, "clef:1 x:10 n4/48 x:20 n5/48");
    Mark(1, 1);
    Copy();
    Paste(25);
    EXPECT_TRUE(bTimesValid);
}

TEST_F(Clipboard, AnUndoneNoteOfAChordTakesTheStemOfTheNoteAhead)
{
    Write(1, "clef:1 [n2/48 n4/48]");
    DeleteElement(nullptr, nullptr, At(1, 2), true);
    At(1, 1)->up = 0;
    ReinsertElement(At(1, 1), List_LastAs<Element>(listUndo), 0);
    EXPECT_EQ(Read(1), "clef:1 [n2/48 n4/48]");
    EXPECT_EQ(At(1, 2)->up, 0);
}

TEST_F(Clipboard, ASingleNoteThatComesBackJoinsNobody)
{
    Write(1, "clef:1 n2/48 n4/48");
    DeleteElement(nullptr, nullptr, At(1, 2), true);
    ReinsertElement(At(1, 1), List_LastAs<Element>(listUndo), 0);
    EXPECT_EQ(Read(1), "clef:1 n2/48 n4/48");
}

TEST_F(Clipboard, ATieComesBackAndIsRefusedWhenItsNotesHaveGone)
{
    Write(1, "clef:1 time:4/4 n4/48/flag=1 tie n4/48/flag=2");
    At(1, 2)->lPitch = At(1, 4)->lPitch = 67;
    DeleteElement(nullptr, nullptr, At(1, 3), true);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n4/48/flag=1 tie n4/48/flag=2");
    EXPECT_EQ(At(1, 3)->lDiaPitch, 2);
    DeleteElement(nullptr, nullptr, At(1, 3), true);
    At(1, 3)->lPitch = 66;
    Undo(nullptr, nullptr);
    EXPECT_EQ(Messages(),
              std::vector<std::string>{"These chords have nothing in common.  Can only tie notes of same pitch."});
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n4/48 n4/48") << "the note ahead of the tie stays";
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
}

TEST_F(Clipboard, ADeletedClefAndKeyComeBackWithWhatTheyDoToTheRest)
{
    Write(1, "clef:1 n4/48 clef:3 n-8/48 key:2 n-8/48");
    DeleteElement(nullptr, nullptr, At(1, 2), true);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n4/48 key:2 n4/48");
    ReinsertElement(pelUndoPlace, List_LastAs<Element>(listUndo), 0);
    EXPECT_EQ(Read(1), "clef:1 n4/48 clef:3 n-8/48 key:2 n-8/48");
}

TEST_F(Clipboard, TheUndoOfACutBringsItBackWhereItStoodAndNothingElseIsMarked)
{
    Write(1, "clef:1 time:4/4 n1/48 n2/48 n3/48 n4/48");
    Mark(3, 4);
    Cut(nullptr, nullptr);
    DeleteElement(nullptr, nullptr, At(1, 3), false);
    EXPECT_EQ(lUndoState, UNDO_DELETE);
    Undo(nullptr, nullptr);
    Mark(3, 3);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Held(), "n4/48");
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n1/48 n4/48");
    EXPECT_EQ(pelMarkBegin, At(1, 3));
    EXPECT_EQ(pelMarkEnd, At(1, 3));
    EXPECT_TRUE(List_IsEmpty(listUndo));
    EXPECT_TRUE(bTimesValid) << "it has been laid out";
}

TEST_F(Clipboard, AMarkElsewhereOutlivesTheUndoOfAPaste)
{
    Write(1, "x:10 n4/48 x:20 n5/48 x:30 n6/48");
    Mark(1, 1);
    Copy();
    Mark(0, 0);
    Paste(35);
    Undo(nullptr, nullptr);
    EXPECT_EQ(pelMarkBegin, At(1, 0));
    EXPECT_EQ(pelMarkEnd, At(1, 0));
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
    EXPECT_EQ(Held(), "n5/48");
}

TEST_F(Clipboard, ACutOfPlainNotesIsNotLaidOutUnlessAdjustingIsContinuous)
{
    for (bool const bAuto : {false, true})
    {
        Score_EmptyStaffs();
        bAutoLayout = bAuto;
        Write(1, "clef:1 n4/48 n5/48 n6/48");
        Mark(2, 2);
        Cut(nullptr, nullptr);
        EXPECT_EQ(bTimesValid, bAuto);
        EXPECT_EQ(bAutoLayout, bAuto);
    }
}

TEST_F(Clipboard, TheUndoPlaceOfACutStandsBehindAnyPunctuation)
{
    Write(1, "n4/48 | clef:1 n5/48 n6/48");
    Mark(3, 3);
    Cut(nullptr, nullptr);
    EXPECT_EQ(pelUndoPlace, At(1, 0));
    Score_EmptyStaffs();
    Write(1, "clef:1 n5/48 n6/48");
    Mark(1, 1);
    Cut(nullptr, nullptr);
    EXPECT_EQ(pelUndoPlace, At(1, 0)) << "with nothing but punctuation, the element ahead";
}

TEST_F(Clipboard, ASlurAroundNothingInsideTheCutTakesNothingElseAlong)
{
    Write(1, "n1/48 slur( slur) n5/48 n6/48");
    Mark(1, 3);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n1/48 n6/48");
    EXPECT_EQ(Held(), "n5/48");
}

TEST_F(Clipboard, EachSignInTheRangeIsInForceForTheNext)
{
    Write(1, "clef:1 key:1 n0/48 clef:3 key:2,1 n-12/48 clef:3 key:2,2 n-12/48 clef:1 key:1,2 n0/48");
    Mark(2, 11);
    Copy();
    EXPECT_EQ(Held(), "n0/48 clef:3 key:2,1 n-12/48 n-12/48 clef:1 key:1,2 n0/48");
}

TEST_F(Clipboard, AMarkOutOfOrderIsToldAndCutToTheEnd)
{
    Write(1, "n4/48 n5/48 n6/48");
    Mark(1, 0);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Duff mark bug"});
    EXPECT_EQ(Read(1), "n4/48");
}

TEST_F(Clipboard, ANewLineAsCurrentSymbolForgetsTheSavedOne)
{
    CurrentSymbol_SetNote(24);
    Mark_SetBeginSymbol();
    CurrentSymbol_Set(NEWLINE);
    MarkEndAt(nullptr, 10, 10);
    EXPECT_EQ(elCurrent.sort, NEWLINE);
    CurrentSymbol_SetNote(12);
    Mark_SetBeginSymbol();
    CurrentSymbol_Set(BAR);
    MarkEndAt(nullptr, 10, 10);
    EXPECT_EQ(elCurrent.lDuration, 12) << "any other symbol doesn't";
}

TEST_F(Clipboard, LoneSlursStayBehindAndPairsAreLinkedAnew)
{
    Write(1, "x:1 n1/48 x:10 slur( x:11 n4/48 x:20 slur) x:30 n5/48 x:40 slur( x:41 n6/48 x:50 slur)");
    Mark(2, 5);
    Copy();
    EXPECT_EQ(Held(), "n4/48 n5/48");
    Mark(1, 4);
    Copy();
    Paste(60);
    EXPECT_EQ(Read(1), "n1/48 slur( n4/48 slur) n5/48 slur( n6/48 slur) slur( n4/48 slur) n5/48");
    EXPECT_EQ(At(1, 8)->pelPartner, At(1, 10));
    EXPECT_EQ(At(1, 10)->pelPartner, At(1, 8));
}

TEST_F(Clipboard, SlursPastedIntoASlurAreDropped)
{
    Write(1, "x:10 slur( x:11 n4/48 x:20 slur) x:30 slur( x:31 n5/48 x:40 n6/48 x:50 slur)");
    Mark(0, 2);
    Copy();
    Paste(35);
    EXPECT_EQ(Read(1), "slur( n4/48 slur) slur( n5/48 n4/48 n6/48 slur)");
}

TEST_F(Clipboard, CuttingSlursWithPartnersInsideAndOutsideStopsWhereTheMarkEnds)
{
    Write(1, "n1/48 slur( n4/48 slur) n5/48 n6/48");
    Mark(1, 3);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n1/48 n5/48 n6/48");
    Score_EmptyStaffs();
    Write(1, "n1/48 slur( slur) n5/48 n6/48");
    Mark(1, 2);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n1/48 n5/48 n6/48");
    Score_EmptyStaffs();
    Write(1, "slur( slur) n5/48 n6/48");
    Mark(0, 1);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n5/48 n6/48");
    Score_EmptyStaffs();
    Write(1, "n1/48 slur( n4/48 n5/48 slur) n6/48");
    Mark(1, 2);
    Cut(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n1/48 n5/48 n6/48");
}

TEST_F(Clipboard, APasteGoesBehindThePlaceAndCanBeUndoneOnce)
{
    Write(1, "x:10 n4/48 x:20 n5/48 x:30 n6/48");
    Mark(1, 1);
    Copy();
    Paste(25);
    EXPECT_EQ(Read(1), "n4/48 n5/48 n5/48 n6/48");
    EXPECT_EQ(lUndoState, UNDO_PASTE);
    EXPECT_EQ(pelUndoPlace, At(1, 2));
    EXPECT_EQ(pelUndoEnd, At(1, 2));
    At(1, 2)->beam = BEAM_FIRST;
    Paste(25);
    EXPECT_EQ(Read(1), "n4/48 n5/48 n5/48 n5/48 n6/48");
    EXPECT_EQ(At(1, 3)->beam, BEAM_NONE);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "n4/48 n5/48 n5/48 n6/48");
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
}

TEST_F(Clipboard, APasteOnAnotherStaffBelongsToThatOne)
{
    SetStaffCount(2);
    Write(1, "x:10 n4/48");
    Write(2, "x:10 n9/48");
    Mark(0, 0);
    Copy();
    Paste(20, 2);
    EXPECT_EQ(Read(2), "n9/48 n4/48");
    EXPECT_EQ(At(2, 1)->lStaff, 2);
    SetStaffCount(1);
}

TEST_F(Clipboard, AClefThatIsPastedShiftsWhatStandsBehindIt)
{
    Write(1, "x:5 clef:1 x:10 n4/48 x:20 clef:3 x:25 n-8/48 x:30 clef:1 x:35 n4/48 x:40 n5/48");
    Mark(1, 2);
    Copy();
    Paste(37);
    EXPECT_EQ(Read(1), "clef:1 n4/48 clef:3 n-8/48 clef:1 n4/48 n4/48 clef:3 n-7/48");
}

TEST_F(Clipboard, UndoPutsADeletedElementBackAndTakesItAwayAgain)
{
    Write(1, "clef:1 n4/48 n5/48 n6/48");
    DeleteElement(nullptr, nullptr, At(1, 2), true);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 n6/48");
    EXPECT_EQ(lUndoState, UNDO_ADD);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n6/48");
    EXPECT_EQ(lUndoState, UNDO_DELETE);
}

TEST_F(Clipboard, UndoOfATiedNoteBringsTheNoteWithoutItsTie)
{
    Write(1, "n4/48/flag=1 tie n4/48/flag=2");
    DeleteElement(nullptr, nullptr, At(1, 2), true);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n4/48");
}

TEST_F(Clipboard, AnUndoneNoteComesBackAheadOfTheBarsBeforeIt)
{
    Write(1, "n4/48 | n5/48");
    bKeepBarsTogether = true;
    DeleteElement(nullptr, nullptr, At(1, 2), true);
    EXPECT_EQ(pelUndoPlace, At(1, 0));
    Element const* const pel = ReinsertElement(pelUndoPlace, List_LastAs<Element>(listUndo), 0);
    EXPECT_EQ(pel, At(1, 1));
}

TEST_F(Clipboard, ALongTextKeepsEightBytesOnTheWayBack)
{
    Write(1, "n4/48 text\"a long text\" n5/48");
    DeleteElement(nullptr, nullptr, At(1, 1), true);
    ReinsertElement(At(1, 0), List_LastAs<Element>(listUndo), 0);
    EXPECT_EQ(Element_Text(At(1, 1)), "a long t");
    EXPECT_EQ(At(1, 1)->lA, 11);
    ReinsertElement(At(1, 0), List_LastAs<Element>(listUndo), PASTED);
    EXPECT_EQ(Element_Text(At(1, 1)), "a long t\x02");
    Score_EmptyStaffs();
    Write(1, "text\"seven..\"");
    DeleteElement(nullptr, nullptr, At(1, 0), true);
    ReinsertElement(nullptr, List_LastAs<Element>(listUndo), PASTED);
    EXPECT_EQ(Element_Text(At(1, 0)), "seven..");
}

TEST_F(Clipboard, UndoBeforeAnyEditAndAfterANewScoreIsHarmless)
{
    Undo(nullptr, nullptr);
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
    Write(1, "x:10 n4/48");
    Mark(0, 0);
    Copy();
    Paste(20);
    Score_EmptyStaffs();
    Undo(nullptr, nullptr);
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(Read(1), "");
    for (int32_t const lState : {UNDO_ADD, UNDO_DELETE, UNDO_CUT, UNDO_PASTE})
    {
        lUndoState = lState;
        Undo(nullptr, nullptr);
    }
    EXPECT_FALSE(bAutoLayout);
}

TEST_F(Clipboard, ACopyAfterACutLeavesTheCutForGood)
{
    Write(1, "n4/48 n5/48 n6/48");
    Mark(1, 1);
    Cut(nullptr, nullptr);
    Mark(0, 0);
    Copy();
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
}

TEST_F(Clipboard, WithoutAMarkACutLeavesContinuousAdjustingOff)
{
    bAutoLayout = true;
    Cut(nullptr, nullptr);
    EXPECT_FALSE(bAutoLayout);
    Copy();
    EXPECT_EQ(Held(), "");
}
} // namespace
} // namespace zarn

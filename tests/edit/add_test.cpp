// Adding by position.
#include "edit/add.h"

#include "core/messages.h"
#include "edit/current_symbol.h"
#include "edit/delete.h"
#include "edit/mark.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "midi/refresh_pitches.h"
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

/// A column is 8 pixels wide and a row 6 high.
class Add : public testing::Test
{
protected:
    Add()
    {
        SetWindowUnits({0, 0, 1200, 720});
        bAutoLayout = false;
        bEditMode = false;
    }
    ~Add() override { bAutoLayout = true; }

    static void Refresh()
    {
        ReGrid();
        RefreshPitches(lHighestStaff);
    }
    /// A click at a column and a treble position of staff 1.
    static Element* Click(int32_t lStrX, int32_t lDiaPitch, int32_t lStaff = 1)
    {
        int32_t x = 0;
        int32_t y = 0;
        Draw_Fold(lStrX, lDiaPitch, lStaff, 1, &x, &y);
        return AddAtMouse(nullptr, nullptr, x, y);
    }
    [[nodiscard]] std::vector<std::string> Messages() const { return process.user.Messages(); }

    test::ScriptedProcess process;
};

TEST_F(Add, ANoteStandsWhereItWasClicked)
{
    CurrentSymbol_SetNote(48);
    lUndoState = UNDO_PASTE;
    Element const* const pel = Click(20, 4);
    ASSERT_TRUE(pel);
    EXPECT_EQ(Read(1), "n4/48");
    EXPECT_EQ(pel->lStrX, 20);
    EXPECT_EQ(pel->lPitch, 67);
    EXPECT_EQ(pel->lB, 64);
    EXPECT_EQ(pel->up, 1);
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
    EXPECT_EQ(lUndoState, UNDO_ADD);
    EXPECT_EQ(pelUndoPlace, pel);
    EXPECT_EQ(Click(30, 6)->up, 1);
    EXPECT_EQ(Click(40, 7)->up, 0);
}

TEST_F(Add, ASecondNoteAtTheSameColumnAndPitchMovesOneColumnOn)
{
    Write(1, "x:20 n4/48 x:21 n5/48");
    Refresh();
    CurrentSymbol_SetNote(48);
    Element const* const pel = Click(20, 4);
    EXPECT_EQ(pel->lStrX, 21);
    EXPECT_EQ(Read(1), "n4/48 n4/48 n5/48");
    EXPECT_EQ(pel->lA, 0);
}

TEST_F(Add, AnotherPitchInTheColumnMakesAChordInRisingOrder)
{
    Write(1, "x:20 n4/48");
    Refresh();
    CurrentSymbol_SetNote(48);
    Click(20, 8);
    Click(20, 2);
    Click(20, 6);
    EXPECT_EQ(Read(1), "[n2/48 n4/48 n6/48 n8/48]");
    EXPECT_EQ(Column(1, &Element::lA), "4 12 12 8");
    EXPECT_EQ(Column(1, &Element::up), "1 1 1 1");
}

TEST_F(Add, ACrotchetInTheColumnOfADottedOneBecomesDottedAndAMinimMovesOn)
{
    Write(1, "x:20 n4/72");
    Refresh();
    CurrentSymbol_SetNote(48);
    Click(20, 6);
    EXPECT_EQ(Read(1), "[n4/72 n6/72]");
    CurrentSymbol_SetNote(96);
    Element const* const pel = Click(20, 2);
    EXPECT_EQ(pel->lStrX, 21);
    EXPECT_EQ(Read(1), "[n4/72 n6/72] n2/96");
}

TEST_F(Add, EachSortHasItsHeightBelowTheClef)
{
    struct
    {
        int32_t sort;
        int32_t lA;
        int32_t lTreble;
    } const aCase[] = {
        {BAR, 0, 2},        {DOUBLEBAR, 0, 2},  {REPEATSTART, 0, 2},  {REPEATEND, 0, 2},   {REPEATENDSTART, 0, 2},
        {ARPEGSTART, 0, 2}, {ARPEGEND, 0, 2},   {REPEATFIRST, 0, 12}, {INSTRUMENT, 3, 16}, {TEMPO, 120, 18},
        {BOWING, 1, 18},    {TRANSPOSE, 2, -2}, {CHORD, 0, -4},       {TITLE, 0, 22},      {LYRICS, 0, -7},
        {TIMESIG, 4, 6},    {VOLUME, 64, 6},    {SPACE, 0, 6},        {NEWLINE, 0, 6},     {KEYSIG, 2, 6}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        CurrentSymbol_Set(c.sort, c.lA);
        Element const* const pel = Click(20, 0);
        ASSERT_TRUE(pel);
        EXPECT_EQ(pel->lDiaPitch, c.lTreble) << Sort_Name(c.sort, c.lA);
        Score_EmptyStaffs();
        Write(1, "clef:3 x:5 n-9/48");
        EXPECT_EQ(Click(20, 0)->lDiaPitch, c.lTreble - 12) << Sort_Name(c.sort, c.lA);
    }
    bChordsBelowStaff = false;
    Score_EmptyStaffs();
    CurrentSymbol_Set(CHORD);
    EXPECT_EQ(Click(20, 0)->lDiaPitch, 20);
    bChordsBelowStaff = true;
    for (int32_t const sort : {SHARP, FLAT, NATURAL, TEXT, ANNOT})
    {
        CurrentSymbol_Set(sort);
        EXPECT_EQ(Click(20, 9)->lDiaPitch, 9);
    }
}

TEST_F(Add, OnlyASemibreveRestHangsHigher)
{
    for (auto const& [lDuration, lHeight] : {std::pair{192, 8}, {96, 6}, {48, 6}, {288, 6}})
    {
        CurrentSymbol_Set(REST);
        elCurrent.lDuration = lDuration;
        EXPECT_EQ(Click(20, 0)->lDiaPitch, lHeight);
    }
}

TEST_F(Add, ClefsStandAtTheirHeightsInTheirOwnFrame)
{
    for (auto const& [lClef, lHeight] : {std::pair{1, 4}, {2, 2 - 6}, {3, 8 - 12}, {4, 4 - 8}})
    {
        Score_EmptyStaffs();
        CurrentSymbol_Set(CLEF, lClef);
        EXPECT_EQ(Click(20, 0)->lDiaPitch, lHeight);
    }
    CurrentSymbol_Set(CLEF, 7);
    Click(20, 5);
    EXPECT_EQ(Messages().front(), "Adding duff clef type");
}

TEST_F(Add, AClefShiftsWhatStandsUnderItAndItsDeletionShiftsItBack)
{
    Write(1, "clef:1 x:10 n4/48 x:20 n5/48 b5 x:30 n6/48 x:40 clef:1 n7/48");
    Refresh();
    CurrentSymbol_Set(CLEF, 3);
    Element* const pel = Click(15, 0);
    EXPECT_EQ(Read(1), "clef:1 n4/48 clef:3 n-7/48 b-7 n-6/48 clef:1 n7/48");
    DeleteElement(nullptr, nullptr, pel, true);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 b5 n6/48 clef:1 n7/48");
}

TEST_F(Add, AKeySignatureKnowsTheOneThatItReplaces)
{
    Write(1, "key:2 x:10 n4/48 x:20 n5/48");
    Refresh();
    CurrentSymbol_Set(KEYSIG, -1);
    Element const* const pel = Click(15, 0);
    EXPECT_EQ(pel->lA, -1);
    EXPECT_EQ(pel->lB, 2);
}

TEST_F(Add, AKeySignatureMayKeepTheSoundOfTheNotesBehindIt)
{
    Write(1, "key:0 x:10 n3/48 x:20 n3/48 x:30 n0/48");
    Refresh();
    CurrentSymbol_Set(KEYSIG, 2, 64);
    Click(15, 0);
    EXPECT_EQ(Read(1), "key:0 n3/48 key:2 =3 n3/48 =0 n0/48");
}

TEST_F(Add, AKeySignatureThatKeepsTheSoundRespellsWhatGoesAgainstIt)
{
    Write(1, "key:0 x:10 n3/48 x:28 b6 x:30 n6/48");
    Refresh();
    CurrentSymbol_Set(KEYSIG, 2, 64);
    Click(15, 0);
    EXPECT_EQ(Read(1), "key:0 n3/48 key:2 #5 n5/48") << "B flat is A sharp, and the flat has gone";
    Score_EmptyStaffs();
    Write(1, "key:0 x:10 n3/48 x:28 b6 x:30 n6/48");
    Refresh();
    CurrentSymbol_Set(KEYSIG, 2);
    Click(15, 0);
    EXPECT_EQ(Read(1), "key:0 n3/48 key:2 b6 n6/48") << "one that doesn't leaves all as it is written";
}

TEST_F(Add, ATieNeedsANoteOnEachSide)
{
    CurrentSymbol_Set(TIE);
    EXPECT_FALSE(Click(20, 4));
    EXPECT_EQ(Messages(), std::vector<std::string>{"Can't tie - no following note"});
    process.user.shown.clear();
    Write(1, "x:20 n4/48");
    Refresh();
    Serious_Rearm();
    EXPECT_FALSE(Click(10, 4));
    EXPECT_EQ(Messages(), std::vector<std::string>{"Can't tie - no previous note"});
    EXPECT_EQ(Read(1), "n4/48");
}

TEST_F(Add, ATieJoinsItsNotesAndGivesTheOneThatItLeadsTo)
{
    Write(1, "x:10 n4/48 x:20 n4/48 x:30 n4/48");
    Refresh();
    CurrentSymbol_Set(TIE);
    Element const* pel = Click(15, 0);
    EXPECT_EQ(pel, At(1, 2));
    EXPECT_EQ(Read(1), "n4/48/flag=1 tie n4/48/flag=2 n4/48");
    EXPECT_EQ(At(1, 1)->lDiaPitch, 2);
    pel = Click(40, 0); // behind the last note, the tie takes the place ahead of it
    EXPECT_EQ(pel, At(1, 4));
    EXPECT_EQ(Read(1), "n4/48/flag=1 tie n4/48/flag=3 tie n4/48/flag=2");
}

TEST_F(Add, ANoteBetweenTiedNotesCutsTheTieAndOneInTheChordDoesNot)
{
    Write(1, "x:10 n4/48/flag=1 x:14 tie x:20 n4/48/flag=2");
    Refresh();
    CurrentSymbol_SetNote(48);
    Click(10, 8);
    EXPECT_EQ(Column(1, &Element::lA), "5 8 0 2");
    Click(12, 6);
    EXPECT_EQ(Read(1), "[n4/48 n8/48] n6/48 n4/48");
}

TEST_F(Add, ANoteTakesTheVolumeInForce)
{
    Write(1, "x:10 vol:94 x:12 n4/48 x:30 n5/48");
    Refresh();
    CurrentSymbol_SetNote(48);
    EXPECT_EQ(Click(20, 6)->lB, 94);
    EXPECT_EQ(Click(5, 6)->lB, 64);
}

TEST_F(Add, AMarkSignMarksInsteadOfStandingInTheScore)
{
    Write(1, "x:10 n4/48 x:20 n5/48 x:30 n6/48");
    Refresh();
    CurrentSymbol_SetNote(24);
    elSavedCurrent = elCurrent;
    CurrentSymbol_Set(MARKBEGIN);
    EXPECT_EQ(Click(15, 0), nullptr);
    EXPECT_EQ(Read(1), "n4/48 n5/48 n6/48");
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    EXPECT_EQ(pelMarkEnd, At(1, 1));
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 24);
}

TEST_F(Add, WithAdjustContinuouslyTheScoreIsLaidOutAndTheElementAheadOfPunctuationIsGiven)
{
    bAutoLayout = true;
    Write(1, "clef:1 time:2/4 n4/48 n5/48 n6/48");
    FullAdjust();
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n4/48 n5/48 | n6/48");
    CurrentSymbol_SetNote(48);
    Element const* const pel = Click(200, 7);
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n4/48 n5/48 | n6/48 n7/48 |");
    EXPECT_EQ(pel, At(1, 6));
    CurrentSymbol_Set(BAR);
    Element const* const pelAhead = Click(At(1, 5)->lStrX, 0);
    EXPECT_EQ(pelAhead->sort, NOTE);
    EXPECT_EQ(pelAhead->lDiaPitch, 5);
    CurrentSymbol_Set(CLEF, 3);
    Element const* const pelAheadOfClef = Click(At(1, 3)->lStrX, 0);
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n4/48 clef:3 n-7/48 | n-6/48 n-5/48 |");
    EXPECT_EQ(pelAheadOfClef, At(1, 2));
}

TEST_F(Add, AtTheEndOfTheStaffTheVolumeIsLookedForAheadOfTheLastElement)
{
    Write(1, "x:5 vol:40 x:10 n4/48 x:12 vol:94");
    Refresh();
    CurrentSymbol_SetNote(48);
    EXPECT_EQ(Click(20, 6)->lB, 40) << "the last element itself isn't looked at";
}

TEST_F(Add, TheClefOfAPlaceIsTheOneAheadOfIt)
{
    Write(1, "x:5 clef:3 x:20 clef:1 x:30 n4/48");
    Refresh();
    CurrentSymbol_SetNote(48);
    EXPECT_EQ(Click(20, 6)->lDiaPitch, -6) << "ahead of the treble clef";
    EXPECT_EQ(Click(25, 6)->lDiaPitch, 6);
    EXPECT_EQ(Click(60, 6)->lDiaPitch, 6) << "at the end";
    Score_EmptyStaffs();
    Write(1, "x:5 clef:3");
    EXPECT_EQ(Click(60, 6)->lDiaPitch, -6);
    Score_EmptyStaffs();
    Write(1, "x:30 clef:3");
    EXPECT_EQ(Click(10, 6)->lDiaPitch, 6) << "nothing ahead counts as treble";
}

TEST_F(Add, ANoteSoundsByTheKeyTheAccidentalAndTheTransposition)
{
    Write(1, "x:5 key:1 x:10 n3/48 x:40 =3 x:42 n3/48 x:50 | x:60 trans:12");
    Refresh();
    CurrentSymbol_SetNote(48);
    EXPECT_EQ(Click(20, 3)->lPitch, 66);
    EXPECT_EQ(Click(45, 3)->lPitch, 65);
    EXPECT_EQ(Click(55, 3)->lPitch, 66);
    EXPECT_EQ(Click(70, 3)->lPitch, 78);
}

TEST_F(Add, AKeySignatureAtTheHeadReplacesC)
{
    Write(1, "x:30 key:2 n4/48");
    Refresh();
    CurrentSymbol_Set(KEYSIG, -1);
    EXPECT_EQ(Click(10, 0)->lB, 0);
}

TEST_F(Add, ALongTextOfTheCurrentSymbolComesAlongWhole)
{
    CurrentSymbol_SetWriting(WRITE_TEXT);
    CurrentSymbol_SetText(std::string(1000, 'w'));
    Element const* const pel = Click(20, 5);
    EXPECT_EQ(Element_Text(pel), std::string(1000, 'w'));
    EXPECT_EQ(pel->storage, 1100);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Add, ASymbolAddedOnAnotherStaffBelongsToThatOne)
{
    SetStaffCount(2);
    CurrentSymbol_SetNote(48);
    Element const* const pel = Click(20, 4, 2);
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(Read(2), "n4/48");
    EXPECT_EQ(pel->lStaff, 2);
    SetStaffCount(1);
}

TEST_F(Add, WhatIsAddedStandsOnThePageAtOnce)
{
    Write(1, "x:5 clef:3");
    Refresh();
    CurrentSymbol_SetNote(48);
    Element const* const pel = Click(20, 4);
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(20, 4, 1, 1, &x, &y);
    EXPECT_EQ(pel->lX, x);
    EXPECT_EQ(pel->lY, y);
}

TEST_F(Add, ATiesPlaceInAChordIsTheWholeChord)
{
    Write(1, "x:10 [n0/48 n2/48] x:20 [n2/48 n4/48]");
    Refresh();
    CurrentSymbol_Set(TIE);
    Element const* const pel = Click(15, 0);
    EXPECT_EQ(pel, At(1, 3));
    EXPECT_EQ(Read(1), "[n0/48 n2/48/flag=1] tie [n2/48/flag=2 n4/48]");
    EXPECT_EQ(At(1, 2)->lDiaPitch, -2);
}

TEST_F(Add, LongTextOnASortWithoutTextIsToldAndAddedAllTheSame)
{
    CurrentSymbol_Set(VOLUME, 64);
    elCurrent.storage = 120;
    EXPECT_TRUE(Click(20, 0));
    EXPECT_EQ(Messages(), std::vector<std::string>{"Oops. Another sort with extended storage??  Tell Odrian!"});
}
} // namespace
} // namespace zarn

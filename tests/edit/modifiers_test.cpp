// Marks on notes, beam sets, the current symbol and slurs over a mark.
#include "edit/modifiers.h"

#include "edit/current_symbol.h"
#include "edit/slur_mark.h"
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
using test::ScriptedProcess;
using test::Write;

void Beam(std::initializer_list<int32_t> aBeams)
{
    Element* pel = StaffFirst(1);
    for (int32_t const lBeam : aBeams)
    {
        pel->beam = lBeam;
        pel = Next(pel);
    }
}

TEST(SetOrnament, FlagsTheNoteAtTheInsertPoint)
{
    ScriptedProcess process;
    pelInsertPoint = Write(1, "n0/24");
    SetOrnament();
    SetStaccato();
    EXPECT_EQ(Read(1), "n0/24/flag=96");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST(SetOrnament, WhatIsNoNoteIsToldAndFlaggedAllTheSame)
{
    ScriptedProcess process;
    pelInsertPoint = Write(1, "|");
    SetStaccato();
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Attempt to staccato something that's not a note"});
    EXPECT_EQ(At(1, 0)->lA, fStaccato);
}

TEST(SetOrnament, ANullInsertPointIsToldAlone)
{
    ScriptedProcess process;
    SetOrnament();
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Attempt to ornament something that's not a note"});
}

TEST(UnbeamSet, ClearsTheWholeSetFromAnyOfItsNotes)
{
    for (int32_t n = 1; n <= 3; ++n)
    {
        ScriptedProcess process;
        Write(1, "n0/24 n1/24 n2/24 n3/24 n4/24");
        Beam({BEAM_LAST, BEAM_FIRST, BEAM_INSIDE, BEAM_LAST, BEAM_FIRST});
        UnbeamSet(At(1, n));
        EXPECT_EQ(Column(1, &Element::beam), "2 0 0 0 1") << n;
    }
}

TEST(UnbeamSet, ClearsEveryNoteOfItsChords)
{
    ScriptedProcess process;
    Write(1, "[n0/24 n1/24] [n2/24 n3/24]");
    Beam({BEAM_FIRST, BEAM_FIRST, BEAM_LAST, BEAM_LAST});
    UnbeamSet(At(1, 1));
    EXPECT_EQ(Column(1, &Element::beam), "0 0 0 0");
}

TEST(UnbeamSet, ADamagedSetEndsWithTheStaff)
{
    ScriptedProcess process;
    Write(1, "n0/24 n1/24 n2/24");
    Beam({BEAM_INSIDE, BEAM_INSIDE, BEAM_INSIDE});
    UnbeamSet(At(1, 1));
    EXPECT_EQ(Column(1, &Element::beam), "0 0 0");
    UnbeamSet(nullptr);
}

TEST(CurrentSymbol, IsMadeAnewFromTheDefaults)
{
    elCurrent.lStrX = 99;
    elCurrent.lA = 96;
    CurrentSymbol_SetNote(24);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 24);
    EXPECT_EQ(elCurrent.lB, 64);
    EXPECT_EQ(elCurrent.lA, 0);
    EXPECT_EQ(elCurrent.lStrX, 0);
    CurrentSymbol_SetRest(12);
    EXPECT_EQ(elCurrent.sort, REST);
    EXPECT_EQ(elCurrent.lB, 0);
    CurrentSymbol_Set(TIMESIG, 6, 8);
    EXPECT_EQ(elCurrent.lB, 8);
}

TEST(CurrentSymbol, ABreveIsToldAndStands)
{
    ScriptedProcess process;
    CurrentSymbol_SetRest(384);
    EXPECT_EQ(elCurrent.lDuration, 384);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Too long.  Boredom coefficient > 1.0"});
}

TEST(SlurMark, AroundOneElementBracketsItAndTakesTheMarkAlong)
{
    ScriptedProcess process;
    Write(1, "x:7 n0/24");
    pelMarkBegin = pelMarkEnd = At(1, 0);
    SlurMark();
    EXPECT_EQ(Read(1), "slur( n0/24 slur)");
    EXPECT_EQ(pelMarkBegin, At(1, 0));
    EXPECT_EQ(pelMarkEnd, At(1, 2));
    EXPECT_EQ(At(1, 0)->pelPartner, At(1, 2));
    EXPECT_EQ(At(1, 2)->pelPartner, At(1, 0));
    EXPECT_EQ(Column(1, &Element::lStrX), "7 7 7");
    EXPECT_EQ(At(1, 0)->lDiaPitch, 12);
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
}

TEST(SlurMark, EachEndStandsWhereItsEndOfTheMarkDoes)
{
    ScriptedProcess process;
    Write(2, "x:7 n0/24 x:12 n1/24 x:20 n2/24");
    At(2, 0)->lTime = 5;
    At(2, 2)->lTime = 53;
    At(2, 2)->lX = 160;
    pelMarkBegin = At(2, 0);
    pelMarkEnd = At(2, 2);
    SlurMark();
    EXPECT_EQ(Read(2), "slur( n0/24 n1/24 n2/24 slur)");
    EXPECT_EQ(Column(2, &Element::lStrX), "7 7 12 20 20");
    EXPECT_EQ(At(2, 0)->lTime, 5);
    EXPECT_EQ(At(2, 4)->lTime, 53);
    EXPECT_EQ(At(2, 4)->lX, 160);
    EXPECT_EQ(At(2, 4)->lStaff, 2);
    EXPECT_EQ(pelMarkEnd, At(2, 4));
}

TEST(SlurMark, WithoutAMarkSaysSo)
{
    ScriptedProcess process;
    Write(1, "n0/24");
    SlurMark();
    EXPECT_EQ(Read(1), "n0/24");
    EXPECT_EQ(
        process.user.Messages(),
        std::vector<std::string>{"You must mark the section to be slurred (See Edit menu) before you can slur it"});
}
} // namespace
} // namespace zarn

// Elements, the walkers over a staff, and what leaves a staff in order.
#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace zarn;
using namespace zarn::test;

namespace
{
class ScoreModel : public testing::Test
{
protected:
    std::vector<std::string> Messages()
    {
        auto const a = process.user.Messages();
        process.user.shown.clear();
        Serious_Rearm();
        return a;
    }
    ScriptedProcess process;
};
using Texts = std::vector<std::string>;
} // namespace

TEST_F(ScoreModel, AnElementBeginsWithItsDefaults)
{
    Element el;
    el.lStrX = 5;
    el.text[0] = 'x';
    Element_Init(&el);
    EXPECT_EQ(el.storage, 100);
    EXPECT_EQ(el.lPitch, 64);
    EXPECT_EQ(el.lStaff, 1);
    EXPECT_EQ(el.lDiaPitch, 2);
    EXPECT_EQ(el.lFret, -1);
    EXPECT_EQ(el.up, 1);
    EXPECT_EQ(el.lStrX, 0);
    EXPECT_EQ(el.sort, NOSORT);
    EXPECT_EQ(Element_Text(&el), "");
}

TEST_F(ScoreModel, EverySortHasItsNameInTheDump)
{
    constexpr char const* aName[] = {
        "NOSORT",    "NOTE",        "BAR",         "DOUBLEBAR",      "CLEF",      "KEYSIG",     "REST",
        "NEWLINE",   "SHARP",       "FLAT ",       "NATURAL",        "TIMESIG",   "SPACE",      "CHORD",
        "LYRICS",    "REPEATSTART", "REPEATEND",   "REPEATENDSTART", "TIE",       "INSTRUMENT", "TEMPO",
        "TRANSPOSE", "UNKNOWNSORT", "UNKNOWNSORT", "REPEATFIRST",    "MARKBEGIN", "MARKEND",    "ABC",
        "TITLE",     "ARPEGSTART",  "ARPEGEND",    "TEXT",           "ANNOT",     "SLUR",       "UNKNOWNSUBTYPE"};
    for (int32_t sort = 0; sort <= lHighestSort; ++sort)
        EXPECT_STREQ(Sort_Name(sort, 0), aName[sort]);
    EXPECT_STREQ(Sort_Name(BOWING, 1), "UPBOW");
    EXPECT_STREQ(Sort_Name(BOWING, 2), "DOWNBOW");
    EXPECT_STREQ(Sort_Name(-1, 0), "UNKNOWNSORT");
    EXPECT_STREQ(Sort_Name(35, 0), "UNKNOWNSORT");
}

TEST_F(ScoreModel, TheOddPartOfADurationTellsItsForm)
{
    struct
    {
        int32_t lDuration;
        bool bDotted, bTriplet;
        int32_t lBase;
    } const aCase[] = {
        {0, false, false, 0},    {3, false, false, 3},     {9, true, false, 6},      {18, true, false, 12},
        {36, true, false, 24},   {72, true, false, 48},    {144, true, false, 96},   {288, true, false, 192},
        {48, false, false, 48},  {384, false, false, 384}, {2, false, true, 3},      {32, false, true, 48},
        {128, false, true, 192}, {1, false, false, 1},     {256, false, false, 384}, {-48, false, false, -48}};
    for (auto const& c : aCase)
    {
        EXPECT_EQ(IsDotted(c.lDuration), c.bDotted) << c.lDuration;
        EXPECT_EQ(IsTriplet(c.lDuration), c.bTriplet) << c.lDuration;
        if (c.lDuration >= 0)
        {
            EXPECT_EQ(BaseDuration(c.lDuration), c.lBase) << c.lDuration;
        }
    }
    EXPECT_EQ(Messages(), Texts{});
    EXPECT_EQ(BaseDuration(5), 1) << "what the message box gave";
    EXPECT_EQ(Messages(), Texts{"Invalid BaseDuration call. 5  Tell Odrian."});
}

TEST_F(ScoreModel, ANullCursorHasItsDefaultsAndSaysNothing)
{
    EXPECT_EQ(ClefAt(nullptr), 1);
    EXPECT_EQ(KeyAt(nullptr), 0);
    EXPECT_EQ(TransposeAt(nullptr), 0);
    EXPECT_EQ(VolumeAt(nullptr), 64);
    for (auto* const pWalker : {ChordFirst, ChordLast, NextNoteInBar, NextNote, LastInBar, NextRepeatEnd, LastOnLine,
                                SkipPunctuationForward, SkipPunctuationBack})
        EXPECT_EQ(pWalker(nullptr), nullptr);
    EXPECT_EQ(MinLY(nullptr, nullptr), 0x7fffffff);
    EXPECT_EQ(Next(nullptr), nullptr);
    EXPECT_EQ(Prev(nullptr), nullptr);
    EXPECT_EQ(FindAtOrBefore(5, 1), nullptr);
    EXPECT_EQ(FindPlace(5, 5, 1, NOTE), nullptr);
    EXPECT_EQ(StaffFirst(9), nullptr);
    EXPECT_EQ(StaffLast(-1), nullptr);
    EXPECT_EQ(Messages(), Texts{});
}

TEST_F(ScoreModel, WhatIsInForceIsFoundByWalkingBack)
{
    Write(1, "clef:3 key:2 trans:-12 vol:94 n1/48 vol:19 n2/48 clef:4 key:-1");
    EXPECT_EQ(ClefAt(At(1, 4)), 3);
    EXPECT_EQ(ClefAtEnd(1), 4);
    EXPECT_EQ(ClefAtEnd(2), 1);
    EXPECT_EQ(KeyAt(At(1, 1)), 2) << "from the element itself on";
    EXPECT_EQ(KeyAt(At(1, 0)), 0);
    EXPECT_EQ(KeyAt(StaffLast(1)), -1);
    EXPECT_EQ(TransposeAt(At(1, 2)), -12);
    EXPECT_EQ(VolumeAt(At(1, 3)), 64) << "from the element ahead on";
    EXPECT_EQ(VolumeAt(At(1, 4)), 94);
    EXPECT_EQ(VolumeAt(At(1, 6)), 19);
    At(1, 8)->lStaff = 2;
    EXPECT_EQ(KeyAt(At(1, 7)), 2);
}

TEST_F(ScoreModel, ABadClefIsToldOfAndLeavesThePitch)
{
    EXPECT_EQ(ClefOffset(1), 0);
    EXPECT_EQ(ClefOffset(2), 6);
    EXPECT_EQ(ClefOffset(3), 12);
    EXPECT_EQ(ClefOffset(4), 8);
    EXPECT_EQ(ClefOffset(5), 0);
    EXPECT_EQ(Messages(), Texts{"Bad clef offset - tell Odrian"});
}

TEST_F(ScoreModel, FindPlaceIsTheFirstElementAtOrBehindTheColumn)
{
    Write(1, "x:0 clef:1 x:10 #4 sp x:20 n0/48 x:20 n2/48 n4/48 x:30 r48");
    EXPECT_EQ(FindPlace(0, 0, 1, BAR), At(1, 0));
    EXPECT_EQ(FindPlace(5, 0, 1, BAR), At(1, 1));
    EXPECT_EQ(FindPlace(20, 9, 1, BAR), At(1, 3));
    EXPECT_EQ(FindPlace(31, 0, 1, BAR), nullptr);
}

TEST_F(ScoreModel, FindPlacePutsAHarmonyStraightAheadOfItsNote)
{
    Write(1, "x:10 #4 sp n0/48 n2/48 x:20 sp sp x:30 |");
    EXPECT_EQ(FindPlace(10, 0, 1, CHORD), At(1, 2));
    EXPECT_EQ(FindPlace(20, 0, 1, CHORD), At(1, 6)) << "the first of another column ends the way";
    EXPECT_EQ(FindPlace(30, 0, 1, CHORD), nullptr);
    EXPECT_EQ(FindPlace(5, 0, 1, CHORD), At(1, 0)) << "nothing stands at that column";
}

TEST_F(ScoreModel, FindPlacePutsANoteAheadOfTheFirstOneNotBelowIt)
{
    Write(1, "clef:3 x:20 [n-12/48 n-8/48 n-4/48] x:30 |");
    EXPECT_EQ(FindPlace(20, 3, 1, NOTE), At(1, 2)) << "3 on the page is -9 in the bass clef";
    EXPECT_EQ(FindPlace(20, 4, 1, NOTE), At(1, 2));
    EXPECT_EQ(FindPlace(20, 0, 1, NOTE), At(1, 1));
    EXPECT_EQ(FindPlace(20, 20, 1, NOTE), At(1, 4));
    EXPECT_EQ(FindPlace(19, 20, 1, NOTE), At(1, 1)) << "only a note of that very column is walked past";
}

TEST_F(ScoreModel, FindAtOrBeforeWalksBackFromTheEnd)
{
    Write(1, "x:0 clef:1 x:10 n0/48 n2/48 x:20 |");
    EXPECT_EQ(FindAtOrBefore(10, 1), At(1, 2));
    EXPECT_EQ(FindAtOrBefore(100, 1), At(1, 3));
    EXPECT_EQ(FindAtOrBefore(-1, 1), nullptr);
}

TEST_F(ScoreModel, ChordWalksPassOverAccidentalsAndStopAtARest)
{
    Write(1, "#0 n0/48 [n0/48 #4 n4/48 n7/48] r48 sp");
    EXPECT_EQ(ChordFirst(At(1, 0)), nullptr) << "a list that begins with accidentals";
    EXPECT_EQ(ChordFirst(At(1, 5)), At(1, 2));
    EXPECT_EQ(ChordFirst(At(1, 3)), At(1, 2));
    EXPECT_EQ(ChordLast(At(1, 2)), At(1, 5));
    EXPECT_EQ(ChordFirst(At(1, 1)), At(1, 1));
    EXPECT_EQ(ChordLast(At(1, 1)), At(1, 1));
    EXPECT_EQ(ChordFirst(At(1, 7)), nullptr);
    EXPECT_EQ(ChordLast(At(1, 6)), nullptr);
    EXPECT_EQ(ChordLast(At(1, 7)), nullptr);
}

TEST_F(ScoreModel, TheForwardWalksEndWhereTheySay)
{
    Write(1, "clef:1 sp | || n0/48 tie key:1 | :| n2/48 ::");
    EXPECT_EQ(NextNoteInBar(At(1, 0)), nullptr);
    EXPECT_EQ(NextNoteInBar(At(1, 3)), At(1, 4)) << "a double bar doesn't stop it";
    EXPECT_EQ(NextNote(At(1, 0)), At(1, 4));
    EXPECT_EQ(NextNote(At(1, 10)), nullptr);
    EXPECT_EQ(LastInBar(At(1, 0)), At(1, 1));
    EXPECT_EQ(LastInBar(At(1, 2)), nullptr);
    EXPECT_EQ(LastInBar(At(1, 8)), At(1, 10));
    EXPECT_EQ(NextRepeatEnd(At(1, 0)), At(1, 8));
    EXPECT_EQ(NextRepeatEnd(At(1, 9)), At(1, 10));
    EXPECT_EQ(SkipPunctuationForward(At(1, 0)), At(1, 3));
    EXPECT_EQ(SkipPunctuationForward(At(1, 5)), At(1, 8));
    EXPECT_EQ(SkipPunctuationBack(At(1, 7)), At(1, 4));
    EXPECT_EQ(SkipPunctuationBack(At(1, 2)), nullptr);
}

TEST_F(ScoreModel, LastOnLineAndMinLYLookAlongTheLine)
{
    Write(1, "x:0 clef:1 x:149 n0/48 x:150 n2/48 x:299 |");
    EXPECT_EQ(LastOnLine(At(1, 0)), At(1, 1));
    EXPECT_EQ(LastOnLine(At(1, 2)), At(1, 3));
    for (int32_t i = 0; i < 4; ++i)
        At(1, i)->lY = 40 - 10 * i;
    EXPECT_EQ(MinLY(At(1, 0), At(1, 2)), 30);
    EXPECT_EQ(MinLY(At(1, 0), nullptr), 10);
}

TEST_F(ScoreModel, TheMarkStepsOffAnElementThatGoes)
{
    Write(1, "n0/48 n1/48 n2/48");
    pelMarkBegin = At(1, 0);
    pelMarkEnd = At(1, 2);
    Mark_StepOff(At(1, 0));
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    Mark_StepOff(At(1, 2));
    EXPECT_EQ(pelMarkEnd, At(1, 1));
    Mark_StepOff(At(1, 1));
    EXPECT_EQ(pelMarkBegin, At(1, 2));
    EXPECT_EQ(pelMarkEnd, At(1, 2)) << "one element: both to the next";
    Mark_StepOff(At(1, 2));
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    EXPECT_EQ(pelMarkEnd, At(1, 1)) << "no next: both to the one ahead";
}

TEST_F(ScoreModel, TheUndoPlaceStepsOffByItsState)
{
    Write(1, "n0/48 n1/48 n2/48");
    struct
    {
        int32_t lState, lEnd, lPlaceThen,
            lEndThen; ///< places on the staff, -1 for null
    } const aCase[] = {{UNDO_ADD, -1, -1, -1},  {UNDO_DELETE, -1, 2, -1}, {UNDO_CUT, -1, 2, -1},
                       {UNDO_PASTE, 1, -1, -1}, {UNDO_PASTE, 2, 2, 2},    {UNDO_NOTHING, -1, 1, -1}};
    auto const Place = [](int32_t n) { return n < 0 ? nullptr : At(1, n); };
    for (auto const& c : aCase)
    {
        lUndoState = c.lState;
        pelUndoPlace = At(1, 1);
        pelUndoEnd = Place(c.lEnd);
        Undo_StepOff(At(1, 1));
        EXPECT_EQ(pelUndoPlace, Place(c.lPlaceThen)) << c.lState;
        EXPECT_EQ(pelUndoEnd, Place(c.lEndThen)) << c.lState;
    }
    lUndoState = UNDO_PASTE;
    pelUndoPlace = At(1, 0);
    pelUndoEnd = At(1, 1);
    Undo_StepOff(At(1, 1));
    EXPECT_EQ(pelUndoEnd, At(1, 0));
}

TEST_F(ScoreModel, NoCursorIsLeftOnAnElementThatWasRemoved)
{
    for (int32_t lState = UNDO_ADD; lState <= UNDO_NOTHING; ++lState)
        for (int32_t n = 0; n < 3; ++n)
        {
            Score_EmptyStaffs();
            Write(1, "slur( n1/48 slur)");
            Element* const pel = At(1, n);
            lUndoState = lState;
            pelInsertPoint = pelMarkBegin = pelMarkEnd = pelHighlight = pelUndoPlace = pelUndoEnd = pel;
            Element* const pelAhead = Prev(pel);
            EXPECT_EQ(Element_Remove(pel), pelAhead);
            EXPECT_EQ(pelInsertPoint, pelAhead);
            EXPECT_EQ(pelHighlight, nullptr);
            for (Element const* const pelCursor : {pelMarkBegin, pelMarkEnd, pelUndoPlace, pelUndoEnd})
                EXPECT_TRUE(!pelCursor || pelCursor == At(1, 0) || pelCursor == At(1, 1));
            for (Element const* pelLeft = StaffFirst(1); pelLeft; pelLeft = Next(pelLeft))
                if (pelLeft->sort == SLUR && n != 1)
                {
                    EXPECT_EQ(pelLeft->pelPartner, nullptr);
                }
        }
}

TEST_F(ScoreModel, TheOpeningIsTheFirstSignsUpToTheFirstNote)
{
    int32_t lClef = -999, lKey = -999, lNum = -999, lDen = -999;
    ScoreOpening(lClef, lKey, lNum, lDen);
    EXPECT_EQ(lKey, -999) << "an empty score tells nothing";
    Write(2, "clef:3 n0/48 key:4");
    Write(3, "time:6/8");
    ScoreOpening(lClef, lKey, lNum, lDen);
    EXPECT_EQ(lClef, 3);
    EXPECT_EQ(lKey, 0) << "a note ahead of a key says C";
    EXPECT_EQ(lNum, -999) << "the first note ends the search";
    lClef = lKey = lNum = lDen = -999;
    Write(1, "time:3/4 clef:2");
    ScoreOpening(lClef, lKey, lNum, lDen);
    EXPECT_EQ(lClef, 2);
    EXPECT_EQ(lNum, 3);
    EXPECT_EQ(lDen, 4);
}

TEST_F(ScoreModel, TheDumpNumbersEveryElementInOneRun)
{
    static std::string sTrace;
    sTrace.clear();
    Write(1, "clef:3 text\"Jig\"");
    Write(2, "b4");
    pDebugLogSink = [](std::string_view s) { sTrace += s; };
    Score_Dump("Score Dump (as requested)\r\n");
    pDebugLogSink = nullptr;
    EXPECT_EQ(Column(1, &Element::inx), "1 2");
    EXPECT_EQ(Column(2, &Element::inx), "3");
    EXPECT_TRUE(sTrace.starts_with("Score Dump (as requested)\r\nScore staff number 0, list is "));
    EXPECT_NE(sTrace.find("inx   1: stg100 StrX   0 pitch  2 lX   0 lY   0 time  "
                          "  0 durn  0 pitch 64 staff 1 sort CLEF "
                          "lA 3, lB 0, beam 0, up 1\npel=="),
              std::string::npos);
    EXPECT_NE(sTrace.find("sort TEXT lA 3, lB 0, Preamble 0 text<Jig>\n"), std::string::npos);
    EXPECT_NE(sTrace.find("sort FLAT  lA 0"), std::string::npos);
}

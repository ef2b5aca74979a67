// The sequential adders.
#include "edit/insert.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "edit/current_symbol.h"
#include "edit/insert_run.h"
#include "edit/text.h"
#include "edit/ties.h"
#include "render/geometry.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;
using test::ScriptedProcess;
using test::Write;

class Insert : public testing::Test
{
protected:
    Insert() { SelectInsertStaff(1); }

    static void AddNote(int32_t lDiaPitch, int32_t lDuration = 24)
    {
        CurrentSymbol_SetNote(lDuration);
        AddAtInsertPoint(lDiaPitch, false);
    }
    static void AddChordNote(int32_t lDiaPitch, bool bFirst, int32_t lDuration = 24)
    {
        CurrentSymbol_SetNote(lDuration);
        zarn::AddChordNote(lDiaPitch, bFirst, 60 + lDiaPitch);
    }
    static void Add(int32_t sort, int32_t lDiaPitch, bool bAheadOfChord, int32_t lA = 0)
    {
        CurrentSymbol_Set(sort, lA);
        AddAtInsertPoint(lDiaPitch, bAheadOfChord);
    }

    ScriptedProcess process;
};

TEST_F(Insert, EachSymbolGoesBehindTheInsertPointWhichMovesOn)
{
    Write(1, "n0/24 n1/24");
    pelInsertPoint = At(1, 0);
    AddNote(5);
    AddNote(6);
    EXPECT_EQ(Read(1), "n0/24 n5/24 n6/24 n1/24");
    EXPECT_EQ(pelInsertPoint, At(1, 2));
}

TEST_F(Insert, FromTheHeadOfAFilledStaffTheInsertPointGoesToTheEnd)
{
    Write(1, "n0/24 n1/24");
    pelInsertPoint = nullptr;
    AddNote(5);
    EXPECT_EQ(Read(1), "n5/24 n0/24 n1/24");
    EXPECT_EQ(pelInsertPoint, At(1, 2));
}

TEST_F(Insert, TheStoredPositionIsTakenAsItIsInAnyClef)
{
    Write(1, "clef:3");
    SelectInsertStaff(1);
    AddNote(-4);
    EXPECT_EQ(At(1, 1)->lDiaPitch, -4);
}

TEST_F(Insert, AStemIsUpBelowTheMiddleLineAndWhereThereIsNoStem)
{
    struct
    {
        char const* sNote;
        int32_t lDiaPitch, lDuration, lUp;
    } const aCase[] = {{"crotchet under the middle line", 6, 48, 1},
                       {"crotchet on the middle line", 7, 48, 0},
                       {"dotted minim above", 9, 144, 0},
                       {"semibreve above", 9, 192, 1},
                       {"minim triplet above", 9, 128, 1}};
    for (auto const& c : aCase)
    {
        AddNote(c.lDiaPitch, c.lDuration);
        EXPECT_EQ(pelInsertPoint->up, c.lUp) << c.sNote;
    }
}

TEST_F(Insert, AKeySignatureKnowsTheOneItReplaces)
{
    Add(KEYSIG, 6, false, 2);
    Add(KEYSIG, 6, false, -1);
    EXPECT_EQ(Read(1), "key:2 key:-1,2");
}

TEST_F(Insert, ANoteGetsThePitchThatKeyAccidentalsAndTranspositionGiveIt)
{
    Add(KEYSIG, 6, false, 1);
    AddNote(3);
    Add(NATURAL, 3, false);
    AddNote(3);
    Add(TRANSPOSE, -2, false, 12);
    AddNote(3);
    Add(BAR, 2, false);
    AddNote(3);
    EXPECT_EQ(Column(1, &Element::lPitch), "64 66 64 65 64 77 64 78");
}

TEST_F(Insert, AddingMarksTheScoreAsChanged)
{
    bScoreDirty = false;
    bTimesValid = true;
    AddNote(0);
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
}

TEST_F(Insert, ALongTextOfTheCurrentSymbolStaysBehind)
{
    CurrentSymbol_Set(TEXT);
    elCurrent.storage = 300;
    AddAtInsertPoint(0, false);
    EXPECT_EQ(At(1, 0)->storage, 100);
}

TEST_F(Insert, AheadOfChordMeansTheNearestChordHoweverFarBack)
{
    AddChordNote(0, true);
    AddChordNote(2, false);
    CloseChord();
    AddNote(4);
    Add(BAR, 2, false);
    Add(SHARP, 5, true);
    Add(FLAT, 6, true);
    EXPECT_EQ(Read(1), "#5 b6 [n0/24 n2/24] n4/24 |");
    EXPECT_EQ(pelInsertPoint, At(1, 5));
}

TEST_F(Insert, AheadOfChordWithoutAChordIsTheHeadOfTheStaff)
{
    AddNote(0);
    Add(SHARP, 5, true);
    Add(BOWING, 18, true, 1);
    EXPECT_EQ(Read(1), "up #5 n0/24");
}

TEST_F(Insert, AChordIsKeptInRisingOrderAndItsTopNoteIsOpenUntilItIsClosed)
{
    AddChordNote(4, true);
    AddChordNote(7, false);
    AddChordNote(2, false);
    AddChordNote(5, false);
    EXPECT_EQ(Column(1, &Element::lDiaPitch), "2 4 5 7");
    EXPECT_EQ(Column(1, &Element::lA), "4 12 12 12");
    CloseChord();
    EXPECT_EQ(Read(1), "[n2/24 n4/24 n5/24 n7/24]");
}

TEST_F(Insert, AChordTakesOnlyNotesOfItsDuration)
{
    AddChordNote(4, true);
    AddChordNote(7, false, 48);
    EXPECT_EQ(Column(1, &Element::lDiaPitch), "4");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"All notes in a chord must have same duration"});
}

TEST_F(Insert, AChordNoteTakesTheStemOfItsChord)
{
    AddChordNote(2, true);
    AddChordNote(9, false);
    EXPECT_EQ(At(1, 1)->up, 1);
}

TEST_F(Insert, AChordNoteTakesThePitchThatItIsGiven)
{
    AddChordNote(4, true);
    AddChordNote(7, false);
    AddChordNote(2, false);
    EXPECT_EQ(At(1, 0)->lPitch, 62);
    EXPECT_EQ(At(1, 2)->lPitch, 67);
}

TEST_F(Insert, AChordNoteAboveTakesTheStemOfTheNotesBelow)
{
    AddChordNote(2, true);
    pelInsertPoint->up = 0;
    AddChordNote(9, false);
    AddChordNote(0, false);
    EXPECT_EQ(Column(1, &Element::up), "0 0 0");
}

TEST_F(Insert, TheInsertPointGoesToWhatStandsAtOrAheadOfAPlace)
{
    SetWindowUnits({0, 0, 1200, 720});
    SetStaffCount(2);
    Write(1, "x:10 n0/24 x:20 n1/24");
    Write(2, "x:10 n2/24 x:20 n3/24 x:30 n4/24");
    lInsertStaff = 1;
    struct
    {
        int32_t lStrX;
        Element const* pel;
    } const aCase[] = {{9, nullptr}, {10, At(2, 0)}, {19, At(2, 0)}, {20, At(2, 1)}, {90, At(2, 2)}};
    for (auto const& c : aCase)
    {
        int32_t x = 0;
        int32_t y = 0;
        Draw_Fold(c.lStrX, 4, 2, 1, &x, &y);
        MoveInsertPoint(x, y);
        EXPECT_EQ(pelInsertPoint, c.pel) << c.lStrX;
        EXPECT_EQ(lInsertStaff, 1);
    }
}

TEST_F(Insert, ClosingASlurDisablesCutAndCopy)
{
    hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
    for (int32_t const lCommand : {51, 52})
        EnableMenuItem(hwndMain, lCommand, true);
    AddNote(0);
    SlurOpen();
    AddNote(1);
    SlurClose();
    for (int32_t const lCommand : {51, 52})
        EXPECT_TRUE(process.user.pWindow->IsGrey(lCommand));
}

TEST_F(Insert, AFurtherNoteWithNoOpenChordBeginsOne)
{
    AddNote(0);
    AddChordNote(2, false);
    CloseChord();
    EXPECT_EQ(Read(1), "n0/24 n2/24");
}

TEST_F(Insert, ClosingAChordLeavesWhatIsNoNoteAlone)
{
    Add(TIMESIG, 6, false, 4);
    CloseChord();
    EXPECT_EQ(At(1, 0)->lA, 4);
}

TEST_F(Insert, SelectingAHiddenStaffShowsIt)
{
    Write(3, "n0/24 n1/24");
    ASSERT_FALSE(IsVisible(3));
    SelectInsertStaff(3);
    EXPECT_TRUE(IsVisible(3));
    EXPECT_EQ(pelInsertPoint, At(3, 1));
    SelectInsertStaff(3);
    EXPECT_TRUE(IsVisible(3));
    SelectInsertStaff(0);
    EXPECT_EQ(lInsertStaff, 0);
    EXPECT_EQ(pelInsertPoint, nullptr);
}

TEST_F(Insert, SlursNestAndCloseInReverse)
{
    AddNote(0);
    SlurOpen();
    AddNote(1);
    SlurOpen();
    AddNote(2);
    SlurClose();
    AddNote(3);
    SlurClose();
    EXPECT_EQ(Read(1), "n0/24 slur( n1/24 slur( n2/24 slur) n3/24 slur)");
    EXPECT_EQ(At(1, 1)->pelPartner, At(1, 7));
    EXPECT_EQ(At(1, 3)->pelPartner, At(1, 5));
    EXPECT_EQ(pelInsertPoint, At(1, 7));
    EXPECT_EQ(pelMarkBegin, nullptr);
    EXPECT_EQ(lUndoState, UNDO_NOTHING);
}

TEST_F(Insert, ASlurAroundNothingLeavesTheInsertPointOnTheStaff)
{
    AddNote(0);
    SlurOpen();
    SlurClose();
    SlurClose();
    AddNote(1);
    EXPECT_EQ(Read(1), "n0/24 n1/24");
}

TEST_F(Insert, ASlurNeverLeavesItsStaff)
{
    AddNote(0);
    SlurOpen();
    SelectInsertStaff(2);
    AddNote(1);
    SlurClose();
    EXPECT_EQ(Read(1) + ", " + Read(2), "n0/24, n1/24");
}

TEST_F(Insert, ATextHasTheHeightOfItsSortAndTheLongerStorage)
{
    Write(1, "clef:2");
    SelectInsertStaff(1);
    CurrentSymbol_SetNote(48);
    Text_AddAtInsertPoint("Am7", 3, CHORD, false);
    Text_AddAtInsertPoint("la", 2, LYRICS, true);
    Text_AddAtInsertPoint("T", 1, TITLE, false);
    Text_AddAtInsertPoint("N", 2, ANNOT, false);
    Text_AddAtInsertPoint("A:me", 5, ABC, false);
    EXPECT_EQ(Read(1), "clef:2 chord\"Am7\" lyr\"la\" title\"T\" annot\"N\" abc\"A:me\"");
    EXPECT_EQ(Column(1, &Element::lDiaPitch), "2 -10 -13 16 8 -1");
    EXPECT_EQ(Column(1, &Element::lA), "2 3 2 1 2 5");
    EXPECT_EQ(Column(1, &Element::lB), "0 0 1 0 0 0");
    EXPECT_EQ(Column(1, &Element::storage), "100 104 103 102 103 106");
    EXPECT_EQ(Column(1, &Element::lDuration), "0 0 0 0 0 0");
    EXPECT_EQ(List_ItemBytes(At(1, 1)), 105);
}

TEST_F(Insert, ATextOfMoreThanAThousandIsCutAndTold)
{
    std::string const s(1001, 'x');
    Text_AddAtInsertPoint(s, 1001, TEXT, false);
    EXPECT_EQ(Element_Text(At(1, 0)).size(), 999u);
    EXPECT_EQ(At(1, 0)->lA, 999);
    ASSERT_EQ(process.user.shown.size(), 1u);
}

// What is in force, as the walkers find it, against what the adders carry: any sequence gives the same score.
struct Step
{
    int32_t lKind, lPitch, lSign;
};

void Play(std::vector<Step> const& steps)
{
    static constexpr int32_t aSigns[] = {BAR, CLEF, KEYSIG, TRANSPOSE, DOUBLEBAR, REPEATSTART, NEWLINE, TIMESIG};
    bool bChord = false;
    for (Step const& step : steps)
    {
        switch (step.lKind)
        {
        case 0:
            CurrentSymbol_Set(aSigns[step.lSign % 8], step.lSign % 4 + 1);
            AddAtInsertPoint(6, false);
            break;
        case 1:
        case 2:
            CurrentSymbol_Set(SHARP + step.lSign % 3);
            AddAtInsertPoint(step.lPitch, step.lKind == 2);
            break;
        case 3:
        case 4:
            CurrentSymbol_SetNote(24);
            AddAtInsertPoint(step.lPitch, false);
            break;
        case 5:
        case 6:
        case 7:
            CurrentSymbol_SetNote(24);
            AddChordNote(step.lPitch, !bChord, InsertTail().MidiPitch(step.lPitch));
            bChord = true;
            break;
        case 8:
            CloseChord();
            bChord = false;
            break;
        case 9:
            step.lSign % 2 ? SlurOpen() : SlurClose();
            break;
        case 10:
            Text_AddAtInsertPoint("x", 1, CHORD, false);
            break;
        case 11:
            SelectInsertStaff(1 + step.lSign % 2);
            break;
        default:
            if (pelInsertPoint && pelInsertPoint->sort == NOTE)
                AddTieAtInsertPoint();
            break;
        }
        ASSERT_EQ(InsertTail().Key(), KeyAt(pelInsertPoint));
        ASSERT_EQ(InsertTail().Clef(), ClefAt(pelInsertPoint));
        for (int32_t lPitch = 0; lPitch < 6; ++lPitch)
            ASSERT_EQ(InsertTail().Accid(lPitch), AccidStateAt(pelInsertPoint, lPitch)) << lPitch;
        ASSERT_EQ(InsertTail().MidiPitch(3), MidiFromPitch(3, KeyAt(pelInsertPoint), AccidStateAt(pelInsertPoint, 3),
                                                           TransposeAt(pelInsertPoint)));
    }
}

std::string WholeScore()
{
    std::string s;
    for (int32_t lStaff = 1; lStaff <= 2; ++lStaff)
        s += Read(lStaff) + "\n" + Column(lStaff, &Element::lPitch) + "\n" + Column(lStaff, &Element::lA) + "\n";
    return s;
}

TEST_F(Insert, CarryingWhatIsInForceGivesTheSameScoreAsWalkingBackForIt)
{
    std::mt19937 random(20);
    for (int32_t n = 0; n < 200; ++n)
    {
        std::vector<Step> steps(120);
        for (Step& step : steps)
            step = {static_cast<int32_t>(random() % 13), static_cast<int32_t>(random() % 6),
                    static_cast<int32_t>(random() % 24)};
        std::string aScore[2];
        for (int32_t lWay = 0; lWay < 2; ++lWay)
        {
            Score_EmptyStaffs();
            SlurReset();
            Serious_Rearm();
            SelectInsertStaff(1);
            std::optional<InsertRun> run;
            if (lWay == 1)
                run.emplace();
            ASSERT_NO_FATAL_FAILURE(Play(steps)) << "sequence " << n << ", way " << lWay;
            aScore[lWay] = WholeScore();
        }
        ASSERT_EQ(aScore[0], aScore[1]) << "sequence " << n;
    }
}
} // namespace
} // namespace zarn

// Transposing notes, keys and harmonies, one by one, marked and all.
#include "edit/transpose.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "core/respell.h"
#include "core/score_check.h"
#include "layout/clean_up.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

#include <cstring>
#include <random>

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;
using test::Write;

struct Transpose : test::LayoutFixture
{
    /// Staff 1 after all of it has been moved.
    static std::string All(std::string_view sScore, int32_t lSemitones)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        TransposeAll(lSemitones);
        EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
        return Read(1);
    }

    /// The name of a harmony after a move.
    static std::string Name(std::string_view sName, int32_t lSemitones)
    {
        Score_EmptyStaffs();
        Element* const pel = Write(1, "chord\"" + std::string(sName) + '"');
        TransposeChordName(pel, lSemitones);
        EXPECT_EQ(pel->lA, std::ssize(Element_Text(pel)));
        return std::string(Element_Text(pel));
    }

    static int32_t Key(int32_t lKey, int32_t lSemitones)
    {
        Element el;
        el.sort = KEYSIG;
        el.lA = lKey;
        TransposeKeySig(&el, lSemitones);
        EXPECT_EQ(el.lB, lKey);
        return el.lA;
    }
};

TEST_F(Transpose, EachKeyMovesAsItsFifthsDo)
{
    struct
    {
        int32_t lKey, lSemitones, lNew;
    } const aCase[] = {{0, 1, -5},  {0, -1, 5}, {5, 2, -5},   {0, 2, 2},    {0, 7, 1}, {0, 5, -1},   {0, -3, 3},
                       {0, -2, -2}, {0, 0, 0},  {-5, -2, -7}, {-6, -2, -8}, {6, 1, 1}, {0, -12, -12}};
    for (auto const& c : aCase)
        EXPECT_EQ(Key(c.lKey, c.lSemitones), c.lNew) << c.lKey << " by " << c.lSemitones;
}

TEST_F(Transpose, AnOctaveLeavesEveryKeyFromFiveFlatsToSixSharps)
{
    for (int32_t lKey = -5; lKey <= 6; ++lKey)
        EXPECT_EQ(Key(lKey, 12), lKey);
}

TEST_F(Transpose, AKeyOutOfAllBoundsStaysANumber)
{
    EXPECT_LE(Key(INT32_MAX, INT32_MAX), 6);
    EXPECT_EQ(Key(INT32_MIN, INT32_MIN), INT32_MIN);
}

TEST_F(Transpose, EachHarmonyMovesItsRootAndKeepsItsRest)
{
    struct
    {
        char const* sName;
        int32_t lSemitones;
        char const* sNew;
    } const aCase[] = {{"Am7", 3, "Cm7"},
                       {"Bb7", 2, "C#b7"},
                       {"H7", 2, "H7"},
                       {"am", 2, "am"},
                       {"", 2, ""},
                       {"A", -1, "G#"},
                       {"G#m", 1, "Am"},
                       {"F#b", 0, "F"},
                       {"C", 13, "C#"},
                       {"Amb", 0, "G#b"},
                       {"A", -2147483647 - 1, "C#"},
                       {"G#dim", 2147483647, "D#dim"},
                       {"E", 12, "E"},
                       {"Dm7b5", 2, "Em7b5"},
                       {"/", 1, "/"}};
    for (auto const& c : aCase)
        EXPECT_EQ(Name(c.sName, c.lSemitones), c.sNew) << c.sName << " by " << c.lSemitones;
}

TEST_F(Transpose, EachSemitoneHasItsNameInSharps)
{
    char const* const aName[] = {"A", "A#", "B", "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#"};
    for (int32_t n = 0; n < 12; ++n)
        EXPECT_EQ(Name("A", n), aName[n]);
}

TEST_F(Transpose, ANameThatFillsItsRecordIsNeverWrittenBeyondIt)
{
    Element el;
    el.sort = CHORD;
    el.storage = cbPlainElement;
    std::memcpy(el.text, "Amaj7sus", sizeof el.text);
    el.lA = 8;
    List_AddLast(aStaffList[1], &el, cbPlainElement);
    Write(1, R"(chord"G")");
    TransposeChordName(At(1, 0), 1);
    EXPECT_EQ(Element_Text(At(1, 0)), "A#maj7su");
    EXPECT_EQ(At(1, 0)->lA, 8);
    EXPECT_EQ(Read(1), R"(chord"A#maj7su" chord"G")");
}

TEST_F(Transpose, ANoteGetsAnAccidentalNeededOrNot)
{
    struct
    {
        char const* sScore;
        int32_t lSemitones;
        char const* sNew;
    } const aCase[] = {
        {"key:0 n0/48", 2, "key:0 =1 n1/48"},
        {"key:0 n0/48", 1, "key:0 #0 n0/48"},
        {"key:-1 n0/48", 1, "key:-1 b1 n1/48"},
        {"key:1 n2/48", 1, "key:1 =3 n3/48"}, // F natural, where the key says F sharp
        {"key:0 n-1/48", 1, "key:0 =0 n0/48"},
    };
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, c.sScore);
        Element const* const pelAccid = TransposeNote(At(1, 1), c.lSemitones);
        EXPECT_EQ(pelAccid, At(1, 1));
        EXPECT_EQ(Read(1), c.sNew) << c.sScore;
        EXPECT_EQ(At(1, 2)->lPitch,
                  MidiFromPitch(At(1, 2)->lDiaPitch, At(1, 0)->lA, AccidStateAt(At(1, 2), At(1, 2)->lDiaPitch), 0));
    }
}

TEST_F(Transpose, ANoteSoundsByTheAccidentalAheadOfItInTheBar)
{
    Write(1, "#0 n0/48");
    TransposeNote(At(1, 1), 2);
    EXPECT_EQ(Read(1), "#0 #1 n1/48");
}

TEST_F(Transpose, AllByAnOctaveMovesTheNotesSevenStepsInTheirKeys)
{
    for (int32_t lKey = -5; lKey <= 6; ++lKey)
    {
        std::string const sKey = "key:" + std::to_string(lKey) + "," + std::to_string(lKey);
        std::string const sClef = "clef:1 " + sKey;
        EXPECT_EQ(All(sClef + " n0/48 n3/48 | n2/48", 12), All(sClef + " n7/48 n10/48 | n9/48", 0)) << lKey;
    }
    EXPECT_EQ(All("clef:1 key:1 n0/48 n3/48", 12), "clef:1 key:1,1 n7/48 n10/48");
}

TEST_F(Transpose, AllByOneFromCIsDFlat)
{
    EXPECT_EQ(All("clef:1 key:0 n0/48 n1/48 n2/48 n3/48 | n4/48 n5/48 n6/48 n7/48", 1),
              "clef:1 key:-5 n1/48 n2/48 n3/48 n4/48 | n5/48 n6/48 n7/48 n8/48");
}

TEST_F(Transpose, AllByMinusOneFromCIsB)
{
    EXPECT_EQ(All("clef:1 key:0 n7/48 n8/48 n9/48 n10/48", -1), "clef:1 key:5 n6/48 n7/48 n8/48 n9/48");
}

TEST_F(Transpose, AccidentalsAreMadeAnew)
{
    EXPECT_EQ(All("clef:1 key:0 #3 n3/48 n3/48 | n3/48", 2), "clef:1 key:2 #4 n4/48 n4/48 | n4/48");
    EXPECT_EQ(All("clef:1 key:1 =3 n3/48", 7), "clef:1 key:2,1 =7 n7/48");
}

TEST_F(Transpose, TheLastAccidentalAtTheVeryStartOfAStaffStays)
{
    Write(2, "#3 n3/48 #7 n7/48"); // a hidden staff isn't cleaned up behind the walk
    TransposeAll(12);
    EXPECT_EQ(Read(2), "#3 #10 n10/48 #14 n14/48");
}

TEST_F(Transpose, HiddenStaffsMoveToo)
{
    Write(1, "key:0 n0/48");
    Write(8, R"(key:0 chord"C" n0/48)");
    TransposeAll(2);
    EXPECT_EQ(Read(1), "key:2 n1/48");
    EXPECT_EQ(Read(8), R"(key:2 chord"D" =1 n1/48)");
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
}

TEST_F(Transpose, AHarmonyThatTheMarkBeginsWithEndsTheWalkOfItsStaffAlone)
{
    Write(1, R"(key:0 n0/48 chord"C" n0/48)");
    Write(2, R"(chord"C")");
    pelMarkBegin = At(1, 2);
    TransposeAll(12);
    EXPECT_EQ(Read(1), R"(key:0 n0/48 chord"C" n7/48)");
    pelMarkBegin = At(1, 2);
    TransposeAll(2);
    EXPECT_EQ(Read(2), R"(chord"D")");
}

TEST_F(Transpose, WithoutAMarkTheUserIsTold)
{
    Write(1, "n0/48");
    TransposeMark(2);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Mark the section to transpose first"});
    EXPECT_EQ(Read(1), "n0/48");
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(Transpose, AMarkMovesWhatStandsInItAndNothingElse)
{
    Write(1, R"(clef:1 key:0 n0/48 | chord"C" n0/48 n1/48 | n0/48)");
    pelMarkBegin = At(1, 4);
    pelMarkEnd = At(1, 6);
    TransposeMark(2);
    EXPECT_EQ(Read(1), R"(clef:1 key:0 n0/48 | chord"D" n1/48 n2/48 | n0/48)");
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
}

TEST_F(Transpose, AMarkWithoutAnEndGoesToTheEndOfTheStaff)
{
    Write(1, "clef:1 key:0 n0/48 | n0/48 n1/48");
    pelMarkBegin = At(1, 4);
    TransposeMark(12);
    EXPECT_EQ(Read(1), "clef:1 key:0 n0/48 | n7/48 n8/48");
}

TEST_F(Transpose, AMarkThatBeginsWithAnAccidentalEndsThere)
{
    Write(1, "clef:1 key:0 n0/48 | #3 n3/48 n1/48");
    pelMarkBegin = At(1, 4);
    pelMarkEnd = At(1, 6);
    TransposeMark(12);
    EXPECT_EQ(Read(1), "clef:1 key:0 n0/48 | #10 n10/48 n8/48");
    EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
}

TEST_F(Transpose, AMarkedAccidentalAloneGoesAndTakesNothingAlong)
{
    Write(1, "clef:1 key:0 n0/48 #3 n3/48");
    pelMarkBegin = pelMarkEnd = At(1, 3);
    TransposeMark(12);
    EXPECT_EQ(Read(1), "clef:1 key:0 n0/48 n3/48");
    EXPECT_EQ(pelMarkBegin, At(1, 3));
    EXPECT_EQ(pelMarkEnd, At(1, 3));
}

TEST_F(Transpose, AnEndAheadOfTheBeginningGoesBackToTheHeadOfTheStaff)
{
    Write(1, "clef:1 key:0 n0/48 n1/48 n2/48");
    pelMarkBegin = At(1, 4);
    pelMarkEnd = At(1, 2);
    TransposeMark(12);
    EXPECT_EQ(Read(1), "clef:1 key:0 n7/48 n1/48 n2/48");
}

TEST_F(Transpose, EveryCursorStepsOffAnAccidentalThatGoes)
{
    Write(1, "clef:1 key:0 r48 #3 n3/48");
    pelInsertPoint = pelHighlight = pelUndoPlace = At(1, 3);
    lUndoState = UNDO_DELETE;
    KeptCursor const kept(At(1, 3));
    TransposeAll(12);
    EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
    EXPECT_EQ(pelInsertPoint, At(1, 2));
    EXPECT_EQ(kept.pel, At(1, 2));
    EXPECT_EQ(pelHighlight, nullptr);
    EXPECT_EQ(pelUndoPlace, At(1, 3)); // the note's new accidental
}

TEST_F(Transpose, TheUndoPlaceStepsOffTheElementAheadOfAnAccidentalThatGoes)
{
    Write(1, "clef:1 key:0 r48 #3 n3/48");
    pelUndoPlace = At(1, 2);
    lUndoState = UNDO_ADD;
    TransposeAll(12);
    EXPECT_EQ(pelUndoPlace, nullptr);
}

/// TransposeAll as it is told: what each note stands under is looked for from the note.
void PlainTransposeAll(int32_t lSemitones)
{
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        for (Element* pel = StaffLast(lStaff); pel;)
        {
            if (Sort_IsAccidental(pel->sort) && Prev(pel))
            {
                pel = Element_Remove(pel);
                continue;
            }
            if (pel->sort == NOTE)
                pel = TransposeNote(pel, lSemitones);
            else if (pel->sort == CHORD)
                TransposeChordName(pel, lSemitones);
            else if (pel->sort == KEYSIG)
                TransposeKeySig(pel, lSemitones);
            pel = Prev(pel);
        }
        MakeStaffMatchKeySigs(lStaff);
    }
    RemoveSpuriousAccidentals();
}

std::string RandomStaff(std::mt19937& random)
{
    static constexpr char const* aSign[] = {"|",      "||", "|:",  ":|",           "clef:3",
                                            "clef:1", "nl", "r48", "chord\"Bbm\"", "tie"};
    std::string s;
    for (int32_t n = 0; n < 60; ++n)
    {
        std::string const sPitch = std::to_string(static_cast<int32_t>(random() % 16) - 4);
        uint32_t const lKind = random() % 12;
        if (lKind < 5)
            s += "n" + sPitch + "/48 ";
        else if (lKind < 8)
            s += "#b="[lKind - 5] + sPitch + " ";
        else if (lKind < 9)
            s += "key:" + std::to_string(static_cast<int32_t>(random() % 15) - 7) + " ";
        else
            s += std::string(aSign[random() % std::size(aSign)]) + " ";
    }
    return s;
}

std::string Staffs()
{
    std::string s;
    for (int32_t lStaff = 1; lStaff <= 2; ++lStaff)
        s += Read(lStaff) + "\n" + Column(lStaff, &Element::lPitch) + "\n" + Column(lStaff, &Element::lB) + "\n";
    return s;
}

TEST_F(Transpose, CarryingTheSignsGivesTheSameScoreAsLookingForThemFromEachNote)
{
    std::mt19937 random(7);
    for (int32_t n = 0; n < 150; ++n)
    {
        std::string const aStaff[] = {RandomStaff(random), RandomStaff(random)};
        int32_t const lSemitones = static_cast<int32_t>(random() % 25) - 12;
        std::string aScore[2];
        for (bool const bPlain : {false, true})
        {
            Score_EmptyStaffs();
            Serious_Rearm();
            Write(1, aStaff[0]);
            Write(2, aStaff[1]);
            bPlain ? PlainTransposeAll(lSemitones) : TransposeAll(lSemitones);
            aScore[bPlain] = Staffs();
        }
        ASSERT_EQ(aScore[0], aScore[1]) << aStaff[0] << "by " << lSemitones;
    }
}

TEST_F(Transpose, AMarkOverAWholeStaffGivesTheSameAsAll)
{
    std::mt19937 random(8);
    for (int32_t n = 0; n < 50; ++n)
    {
        std::string const sStaff = "clef:1 " + RandomStaff(random);
        std::string aScore[2];
        for (bool const bMark : {false, true})
        {
            Score_EmptyStaffs();
            Serious_Rearm();
            Write(1, sStaff);
            if (bMark)
                pelMarkBegin = StaffFirst(1);
            bMark ? TransposeMark(3) : TransposeAll(3);
            aScore[bMark] = Staffs();
        }
        ASSERT_EQ(aScore[0], aScore[1]) << sStaff;
    }
}
} // namespace
} // namespace zarn

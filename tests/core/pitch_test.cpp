// Pitch and key: the arithmetic among diatonic positions, accidentals and MIDI
// notes.
#include "core/messages.h"
#include "core/pitch.h"
#include "core/respell.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace zarn;
using namespace zarn::test;

namespace
{
class Pitch : public testing::Test
{
protected:
    void TearDown() override { fClarinetTranspose = fGuitarTranspose = false; }
    ScriptedProcess process;
};
using Texts = std::vector<std::string>;
} // namespace

TEST_F(Pitch, AKeyAltersItsOwnSteps)
{
    EXPECT_EQ(KeyAccid(1, 3), 1) << "F in G";
    EXPECT_EQ(KeyAccid(1, 0), 0);
    EXPECT_EQ(KeyAccid(-1, 6), -1) << "B in F";
    EXPECT_EQ(KeyAccid(-1, -1), -1) << "an octave down";
    EXPECT_EQ(KeyAccid(7, -70), 1);
    for (int32_t lStep = 0; lStep < 7; ++lStep)
    {
        EXPECT_EQ(KeyAccid(7, lStep), 1);
        EXPECT_EQ(KeyAccid(-7, lStep), -1);
        EXPECT_EQ(KeyAccid(0, lStep), 0);
        EXPECT_EQ(KeyAccid(8, lStep), 0) << "a key outside -7..7 alters nothing";
        EXPECT_EQ(KeyAccid(-8, lStep), 0);
    }
}

TEST_F(Pitch, TheFlatMasksOfThePianoAreTheSharpOnesBackward)
{
    constexpr int32_t aMask[] = {127, 63, 59, 27, 25, 9, 8};
    for (int32_t lKey = 1; lKey <= 7; ++lKey)
        EXPECT_EQ(FlatMaskReadBackward(lKey), aMask[lKey - 1]);
}

TEST_F(Pitch, AnAccidentalCountsUntilWhatEndsIt)
{
    Write(1, "#3 n3/48 b4 =5 n4/48");
    Element const* const pel = StaffLast(1);
    EXPECT_EQ(AccidStateAt(pel, 3), 1);
    EXPECT_EQ(AccidStateAt(pel, 4), -1);
    EXPECT_EQ(AccidStateAt(pel, 5), 2);
    EXPECT_EQ(AccidStateAt(pel, 6), 0);
    EXPECT_EQ(AccidStateAt(nullptr, 3), 0);
    for (char const* const sEnd : {"key:1", "|", "||", "clef:3", "|:", ":|", "::"})
    {
        Write(1, std::string("#3 ") + sEnd + " n3/48");
        EXPECT_EQ(AccidStateAt(StaffLast(1), 3), 0) << sEnd;
    }
    Write(1, "#3 nl n3/48");
    EXPECT_EQ(AccidStateAt(StaffLast(1), 3), 1) << "a new line ends nothing";
}

TEST_F(Pitch, MidiFromPitchFollowsAccidentalKeyAndOptions)
{
    struct
    {
        int32_t lDiaPitch, lKey, lAcc, lTranspose, lMidi;
    } const aCase[] = {{0, 0, 0, 0, 60},   {-1, 0, 0, 0, 59}, {7, 0, 0, 0, 72},  {3, 1, 0, 0, 66},  {3, 1, 2, 0, 65},
                       {6, -1, 0, 0, 70},  {6, -1, 1, 0, 72}, {2, 0, -1, 0, 63}, {0, 0, 0, 12, 72}, {-7, 0, 0, 0, 48},
                       {-8, -2, 0, 0, 46}, {0, 99, 0, 0, 60}, {0, -99, 0, 0, 60}};
    for (auto const& c : aCase)
        EXPECT_EQ(MidiFromPitch(c.lDiaPitch, c.lKey, c.lAcc, c.lTranspose), c.lMidi) << c.lDiaPitch << " " << c.lKey;
    fGuitarTranspose = true;
    EXPECT_EQ(MidiFromPitch(0, 0, 0, 0), 48);
    fClarinetTranspose = true;
    EXPECT_EQ(MidiFromPitch(0, 0, 0, 0), 58) << "the clarinet comes first";
}

TEST_F(Pitch, AMidiNoteIsSpelledInItsKey)
{
    struct
    {
        char const* sScore;
        int32_t lMidi, lAccid, lDiaPitch;
    } const aCase[] = {{"clef:1", 60, 0, 0},   {"clef:1", 61, 1, 0},  {"key:-1", 61, -1, 1}, {"key:1", 66, 0, 3},
                       {"key:1", 65, 2, 3},    {"#0", 61, 0, 0},      {"#0", 60, 2, 0},      {"key:1 =3", 65, 0, 3},
                       {"key:1 =3", 66, 1, 3}, {"clef:1", 48, 0, -7}, {"clef:1", 59, 0, -1}, {"clef:1", 49, 1, -7},
                       {"clef:1", 72, 0, 7}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, c.sScore);
        int32_t lDiaPitch = -999;
        EXPECT_EQ(PitchFromMidi(StaffLast(1), c.lMidi, &lDiaPitch), c.lAccid) << c.sScore << " " << c.lMidi;
        EXPECT_EQ(lDiaPitch, c.lDiaPitch) << c.sScore << " " << c.lMidi;
    }
    int32_t lDiaPitch = 0;
    EXPECT_EQ(PitchFromMidi(nullptr, 61, &lDiaPitch), 1);
}

TEST_F(Pitch, AnAccidentalIsNeededOnlyByALaterNoteOfItsBar)
{
    struct
    {
        char const* sBehind;
        int32_t lNeeded;
    } const aCase[] = {{"n3/48", 1},    {"n4/48 n3/48", 1}, {"| n3/48", 0}, {"|| n3/48", 1},
                       {"=3 n3/48", 0}, {"#4 n3/48", 1},    {"r48", 0}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, std::string("#3 ") + c.sBehind);
        EXPECT_EQ(AccidNeeded(StaffFirst(1)), c.lNeeded) << c.sBehind;
    }
    EXPECT_TRUE(process.user.Messages().empty());
    (void)AccidNeeded(StaffLast(1));
    EXPECT_EQ(process.user.Messages(), Texts{"Asking AccidNeeded for non-accid"});
}

TEST_F(Pitch, AnAddedAccidentalIsACopyOfItsNote)
{
    Element* const pel = Write(2, "n4/48");
    pel->lX = 30;
    pel->lStrX = 7;
    AddAccidental(pel, -1, 5, true);
    AddAccidental(pel, 0, 5, false);
    EXPECT_EQ(Read(2), "b5 n4/48 =5");
    EXPECT_EQ(Column(2, &Element::lDuration), "0 48 0");
    EXPECT_EQ(Column(2, &Element::lX), "28 30 28");
    EXPECT_EQ(Column(2, &Element::lStrX), "7 7 7");
    AddAccidental(pel, 1, 4, true);
    AddAccidental(pel, 2, 4, true);
    EXPECT_EQ(Read(2), "b5 #4 =4 n4/48 =5");
    AddAccidental(pel, 7, 4, false);
    EXPECT_EQ(At(2, 4)->sort, NOTE) << "the record keeps the note's sort";
    EXPECT_EQ(process.user.Messages(), Texts{"Invalid Accid from PitchFromMidi"});
}

TEST_F(Pitch, ANoteAgainstTheKeysDirectionIsRespelled)
{
    struct
    {
        char const* sCase;
        int32_t lKey;
        char const* sBefore;
        char const* sAfter;
    } const aCase[] = {{"B flat in D", 2, "b6 n6/48", "b6 #5 n5/48"},
                       {"A sharp in F", -1, "#5 n5/48", "#5 n6/48"},
                       {"F flat in D is E", 2, "b3 n3/48", "b3 n2/48"},
                       {"C flat in D is B", 2, "b7 n7/48", "b7 n6/48"},
                       {"C sharp in C stays", 0, "#0 n0/48", "#0 n0/48"},
                       {"D flat in D is C sharp, which the key gives", 2, "b1 n1/48", "b1 n0/48"},
                       {"G flat in A, with what stood at F restored", 3, "=3 b4 n4/48", "=3 b4 #3 n3/48 =3"}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, c.sBefore);
        EXPECT_EQ(MakeAccidentalsMatchKeySig(c.lKey, StaffFirst(1)), nullptr);
        EXPECT_EQ(Read(1), c.sAfter) << c.sCase;
    }
}

TEST_F(Pitch, AStaffFollowsEachOfItsKeys)
{
    Write(1, "b6 n6/48 | key:2 b6 n6/48 | key:-2 #5 n5/48");
    EXPECT_EQ(MakeAccidentalsMatchKeySig(0, StaffFirst(1)), At(1, 3));
    MakeStaffMatchKeySigs(1);
    EXPECT_EQ(Read(1), "b6 n6/48 | key:2 b6 #5 n5/48 | key:-2 #5 n6/48");
    EXPECT_TRUE(process.user.Messages().empty());
}

TEST_F(Pitch, ANewKeyWithPitchesKeptAddsWhatTheOldKeyGave)
{
    Write(1, "n3/48 n0/48 | n3/48 key:0 n3/48");
    Element* const pel = KeepPitchesOverKeyChange(1, 0, StaffFirst(1));
    EXPECT_EQ(Read(1), "=3 n3/48 n0/48 | =3 n3/48 key:0 n3/48");
    EXPECT_EQ(pel, StaffFirst(1)) << "the added sign falls in the changed range";
}

TEST_F(Pitch, AnAccidentalThatServesNoNoteGoesWithItsCursors)
{
    Write(1, "n0/48 #5 | n1/48");
    pelMarkBegin = pelMarkEnd = pelInsertPoint = At(1, 1);
    EXPECT_EQ(KeepPitchesOverKeyChange(0, 0, StaffFirst(1)), StaffFirst(1));
    EXPECT_EQ(Read(1), "n0/48 | n1/48");
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    EXPECT_EQ(pelInsertPoint, At(1, 0));
    Score_EmptyStaffs();
    Write(1, "#5 | n1/48");
    Element const* const pel = KeepPitchesOverKeyChange(0, 0, StaffFirst(1));
    EXPECT_EQ(Read(1), "| n1/48");
    EXPECT_EQ(pel, StaffFirst(1)) << "the range's own first went";
    EXPECT_EQ(KeepPitchesOverKeyChange(0, 0, nullptr), nullptr);
}

TEST_F(Pitch, KeysHaveTheirNames)
{
    constexpr char const* aName[] = {"Gflat", "Dflat", "Aflat", "Eflat", "Bflat", "F", "C",
                                     "G",     "D",     "A",     "E",     "B",     "F#"};
    for (int32_t lKey = -6; lKey <= 6; ++lKey)
        EXPECT_STREQ(KeyName(lKey), aName[lKey + 6]);
    EXPECT_STREQ(KeyName(7), "Unknown");
    EXPECT_STREQ(KeyName(-7), "Unknown");
}

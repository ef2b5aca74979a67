#include "midi/play_list.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "core/text.h"
#include "midi/refresh_pitches.h"
#include "midi/score_times.h"
#include "support/random_score.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace zarn
{
using namespace test;

namespace
{
class PlayListTest : public testing::Test
{
protected:
    void SetUp() override
    {
        fPlayChords = true;
        lOrnamentStyle = ORNAMENT_DIATONIC;
        lLastChordRoot = lLastChordKind = -1;
    }
    void TearDown() override { fClarinetTranspose = fGuitarTranspose = false; }

    void Build(PlayStyle const& style = {}, int32_t lStart = 0)
    {
        Score_SetTimes();
        listPlay.clear();
        BuildPlayList(listPlay, 8, lStart, style, afPlay);
    }

    /// The note events: "0:60" on, "47:-60" off; others "0:T500", "0:P5", "96:rest". The preamble is left out.
    std::string Events()
    {
        std::string s;
        for (PlayRecord const& record : listPlay)
        {
            if (record.lTime < 0)
                continue;
            s += s.empty() ? "" : " ";
            if (record.lProgram != -1)
                s += Format("%d:P%d", record.lTime, record.lProgram);
            else if (record.lTempo != -1)
                s += Format("%d:T%d", record.lTime, record.lTempo);
            else if (record.lNote != -1)
                s += Format(record.lVolume ? "%d:%d" : "%d:-%d", record.lTime, record.lNote);
            else
                s += Format("%d:rest", record.lTime);
        }
        return s;
    }

    std::string Played(std::string const& sScore, PlayStyle const& style = {}, int32_t lStart = 0)
    {
        List_Clear(aStaffList[1]);
        Write(1, sScore);
        Build(style, lStart);
        return Events();
    }

    static std::string Nested(int32_t lDeep, std::string const& sInside)
    {
        std::string s;
        for (int32_t n = 0; n < lDeep; ++n)
            s += "|: ";
        s += sInside;
        for (int32_t n = 0; n < lDeep; ++n)
            s += " :|";
        return s;
    }

    ScriptedProcess process;
    PlayRecords listPlay;
};
} // namespace

TEST_F(PlayListTest, AnEmptyStaffAddsNothingNotEvenItsPreamble)
{
    Build();
    EXPECT_TRUE(listPlay.empty());
}

TEST_F(PlayListTest, ThePreambleIsAProgramAndATempoAheadOfTime)
{
    process.settings.values["Default Instrument"] = 25;
    Played("n0/48");
    EXPECT_EQ(listPlay.at(0), (PlayRecord{-1, lNotSent, -1, -1, 1, -1, 25, lNoPlace}));
    EXPECT_EQ(listPlay.at(1), (PlayRecord{-1, lNotSent, -1, -1, 1, 500, -1, lNoPlace}));
}

TEST_F(PlayListTest, NotesEndOneTickShort) { EXPECT_EQ(Played("n0/48 n1/24"), "0:60 47:-60 48:62 71:-62"); }

TEST_F(PlayListTest, ANoteOfFourTicksWithStaccatoGoesOnAndOffAtOneTick)
{
    EXPECT_EQ(Played("n0/4/flag=64"), "0:60 0:-60");
}

TEST_F(PlayListTest, GraceNotesSoundOneBehindTheOtherAndPushTheNote)
{
    EXPECT_EQ(Played("n0/0 n1/0 n2/0 n3/48"), "0:60 3:-60 4:62 7:-62 8:64 11:-64 12:65 59:-65");
}

TEST_F(PlayListTest, TiesRingThrough) { EXPECT_EQ(Played("n0/48/flag=1 tie n0/48/flag=2"), "0:60 95:-60"); }

TEST_F(PlayListTest, ChordNotesSoundTogether) { EXPECT_EQ(Played("[n0/48 n2/48]"), "0:60 0:64 47:-60 47:-64"); }

TEST_F(PlayListTest, ARestAtTheVeryStartAddsNothingAndALaterOneAMarker)
{
    EXPECT_EQ(Played("r48 n0/48 r48"), "48:60 95:-60 96:rest");
}

TEST_F(PlayListTest, AccidentalsBindToTheirExactPositionUntilTheBar)
{
    EXPECT_EQ(Played("#7 n7/48 n0/48 || n7/48 | n7/48"), "0:73 47:-73 48:60 95:-60 96:73 143:-73 144:72 191:-72");
}

TEST_F(PlayListTest, KeysAndTranspositionsReachTheNotesBehindThem)
{
    EXPECT_EQ(Played("key:1 n3/48 trans:2 n3/48 trans:0 n3/48"), "0:66 47:-66 48:68 95:-68 96:66 143:-66");
}

TEST_F(PlayListTest, OrnamentsOfEachStyle)
{
    struct
    {
        int32_t lStyle;
        char const* sEvents;
    } const aCase[] = {{ORNAMENT_NONE, "0:60 47:-60"},
                       {ORNAMENT_SEMITONE, "0:60 9:-60 9:61 18:-61 18:60 28:-60 28:59 37:-59 37:60 47:-60"},
                       {ORNAMENT_BOWED, "0:60 14:-60 15:60 30:-60 31:60 47:-60"},
                       {ORNAMENT_DIATONIC, "0:60 9:-60 9:62 18:-62 18:60 28:-60 28:59 37:-59 37:60 47:-60"}};
    for (auto const& c : aCase)
    {
        lOrnamentStyle = c.lStyle;
        EXPECT_EQ(Played("n0/48/flag=32"), c.sEvents) << c.lStyle;
    }
}

TEST_F(PlayListTest, AnOrnamentedNoteOffTheBeatIsTimedByWhatItSounds)
{
    // With dotted crotchets the second crotchet of a beat of 96 comes 16 late: 47 less 16 is 31, fifths of it 6.
    EXPECT_EQ(Played("r48 n0/48/flag=32", {96, 0, 48, false, true}),
              "64:60 70:-60 70:62 76:-62 76:60 82:-60 82:59 88:-59 88:60 95:-60");
}

TEST_F(PlayListTest, SwingMovesTheOnsetAndLeavesTheEnd)
{
    EXPECT_EQ(Played("n0/24 n1/24 n2/24 n3/24", {48, 0, 24, false, true}),
              "0:60 23:-60 32:62 47:-62 48:64 71:-64 80:65 95:-65");
}

TEST_F(PlayListTest, BarnDanceCutsNotesOffThePulse)
{
    EXPECT_EQ(Played("n0/48 n1/48", {96, 0, 0, true, true}), "0:60 47:-60 48:62 71:-62");
}

TEST_F(PlayListTest, APulseOfNothingSwingsNothing)
{
    EXPECT_EQ(Played("n0/24 n1/24", {0, 0, 24, true, true}), "0:60 23:-60 24:62 47:-62");
}

TEST_F(PlayListTest, ARepeatPlaysTwiceWithTheSecondEndingInPlaceOfTheFirst)
{
    EXPECT_EQ(Played("|: n0/48 1st n1/48 :| n2/48"), "0:60 47:-60 48:62 95:-62 96:60 143:-60 144:64 191:-64");
}

TEST_F(PlayListTest, AnEndStartBetweenTwoSectionsRepeatsEach)
{
    EXPECT_EQ(Played("|: n0/48 :: n1/48 :|"), "0:60 47:-60 48:60 95:-60 96:62 143:-62 144:62 191:-62");
}

TEST_F(PlayListTest, TheSecondPassBeginsWithTheStateAtTheSign)
{
    EXPECT_EQ(Played("key:1 |: n3/48 key:0 :|"), "0:66 47:-66 48:66 95:-66");
}

TEST_F(PlayListTest, AFirstTimeBarOutsideARepeatIsTold)
{
    Played("1st n0/48");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"First time only outside repeat"});
}

TEST_F(PlayListTest, AStartBehindARepeatLeavesItsSecondPassAsSilence)
{
    // The first pass lies ahead of the start and sounds not at all; the second one has its length.
    EXPECT_EQ(Played("|: n0/48 :| n1/48", {}, 48), "48:62 95:-62");
}

TEST_F(PlayListTest, InstrumentsAndTemposAheadOfTheStartCountAtTheStart)
{
    EXPECT_EQ(Played("inst:5 tempo:120 n0/48 n1/48", {}, 48), "0:P5 0:T500 0:62 47:-62");
}

TEST_F(PlayListTest, ATempoOfNothingIsPassedOver) { EXPECT_EQ(Played("tempo:0 n0/48"), "0:60 47:-60"); }

TEST_F(PlayListTest, SlashRepeatsTheChordAndStopsTheOneBefore)
{
    EXPECT_EQ(Played("chord\"C\" r48 chord\"/\" r48"), "0:48 0:52 0:55 48:-48 48:-52 48:-55 48:48 48:52 48:55 48:rest");
}

TEST_F(PlayListTest, ChordsStaySilentWhenTheOptionIsOff)
{
    fPlayChords = false;
    EXPECT_EQ(Played("chord\"C\" n0/48"), "0:60 47:-60");
}

TEST_F(PlayListTest, AChordAheadOfTheStartIsKnownToALaterSlash)
{
    EXPECT_EQ(Played("chord\"C\" r48 chord\"/\" r48", {}, 48), "0:48 0:52 0:55");
}

TEST_F(PlayListTest, OrderIsThatOfInsertingBehindTheLastThatIsNotLater)
{
    std::mt19937 random(7);
    for (int32_t lStaff = 1; lStaff <= 8; ++lStaff)
        for (int32_t n = 0; n < 60; ++n)
            Write(lStaff, Format("n%d/%d", static_cast<int>(random() % 15), static_cast<int>(random() % 4 * 12)));
    Build();
    // The plain rule, on the records of each staff in turn.
    PlayRecords plain;
    for (int32_t lStaff = 1; lStaff <= 8; ++lStaff)
    {
        int32_t afOne[9] = {};
        afOne[lStaff] = 1;
        PlayRecords listOne;
        BuildPlayList(listOne, 8, 0, {}, afOne);
        for (PlayRecord const& record : listOne)
        {
            auto at = plain.end();
            while (at != plain.begin() && std::prev(at)->lTime > record.lTime)
                --at;
            plain.insert(at, record);
        }
    }
    EXPECT_TRUE(listPlay == plain);
}

TEST_F(PlayListTest, AStaffIsAddedInOrderToWhatTheListHolds)
{
    Write(1, "n0/48 n1/48");
    Build();
    Score_EmptyStaffs();
    Write(1, "r24 n2/48");
    Score_SetTimes();
    BuildPlayList(listPlay, 8, 0, {}, afPlay);
    EXPECT_EQ(Events(), "0:60 24:64 47:-60 48:62 71:-64 95:-62");
}

TEST_F(PlayListTest, AListOfTheLongestLengthIsKeptAndTheUserToldOnce)
{
    Played(Nested(21, "n0/48 n1/48"));
    EXPECT_GE(listPlay.size(), size_t{cMostPlayRecords});
    EXPECT_LE(listPlay.size(), size_t{cMostPlayRecords} + 10);
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{
                  "The repeats in this score make it too long: what lies beyond 2,000,000 events is left out."});
}

TEST_F(PlayListTest, RepeatsTooDeepForAnyListEndAtOnce)
{
    Write(1, Nested(10'000, "n0/48"));
    BuildPlayList(listPlay, 8, 0, {}, afPlay);
    EXPECT_EQ(process.user.shown.size(), 1u);
    Serious_Rearm();
    RefreshPitches(8);
    EXPECT_EQ(process.user.shown.size(), 1u) << "a refresh loses nothing, and says nothing";
}

TEST_F(PlayListTest, AnyFieldsAtAllGiveAListInOrder)
{
    std::mt19937 random(11);
    for (int32_t lRound = 0; lRound < 20; ++lRound)
    {
        Score_EmptyStaffs();
        for (int32_t lStaff = 1; lStaff <= 8; ++lStaff)
            WriteHostileStaff(random, lStaff, 100);
        listPlay.clear();
        BuildPlayList(listPlay, 8, static_cast<int32_t>(random()),
                      {static_cast<int32_t>(random()), static_cast<int32_t>(random()), 48, true, true}, afPlay);
        RefreshPitches(8);
        int32_t lTime = -1;
        for (PlayRecord const& record : listPlay)
        {
            ASSERT_LE(lTime, record.lTime);
            lTime = record.lTime;
            ASSERT_TRUE(record.lNote >= -1 && record.lNote <= 127 && record.lVolume >= -1 && record.lVolume <= 127);
            ASSERT_TRUE(record.lChannel >= 0 && record.lChannel <= 8);
            ASSERT_TRUE(record.lProgram >= -1 && record.lProgram <= 127);
        }
    }
}

TEST_F(PlayListTest, ARefreshStoresThePitchesThatABuildStoresAndReachesTheOthersToo)
{
    constexpr int32_t lUntouched = -5;
    auto const forget = []
    {
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            pel->lPitch = lUntouched;
    };
    std::mt19937 random(12);
    for (int32_t lRound = 0; lRound < 50; ++lRound)
    {
        Score_EmptyStaffs();
        WriteRandomStaff(random, 1, 200);
        // Deeper nests are beyond what a refresh unfolds, and a first-time bar that swallows whole repeats leaves the
        // play with less behind it than the staff holds.
        int32_t lStarts = 0;
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            if (pel->sort == REPEATFIRST || (pel->sort == REPEATSTART && ++lStarts > 3))
                pel->sort = DOUBLEBAR;
        forget();
        Build();
        std::vector<int32_t> built;
        for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
            built.push_back(pel->lPitch);
        forget();
        RefreshPitches(1);
        size_t n = 0;
        for (Element const* pel = StaffFirst(1); pel; pel = Next(pel), ++n)
        {
            if (built[n] != lUntouched)
            {
                ASSERT_EQ(pel->lPitch, built[n]);
            }
            ASSERT_EQ(pel->lPitch != lUntouched, pel->sort == NOTE);
        }
    }
}

TEST_F(PlayListTest, ARefreshGoesOnBehindAnEndThatEndsThePlay)
{
    Write(1, "key:1 n3/48 :| n3/48 :| n3/48");
    RefreshPitches(1);
    EXPECT_EQ(Column(1, &Element::lPitch), "64 66 64 66 64 66");
}

TEST_F(PlayListTest, ARefreshHearsNoChordsBehindAnEndThatEndsThePlay)
{
    lLastChordRoot = lLastChordKind = -1;
    Write(1, "n3/48 :| chord\"G\" 1st n3/48");
    RefreshPitches(1);
    EXPECT_EQ(lLastChordRoot, -1) << "a chord / that follows would repeat it";
    EXPECT_TRUE(process.user.shown.empty()) << "nor does it tell of what isn't played";
}

TEST_F(PlayListTest, ARefreshKnowsThatAFirstTimeBarIsLeftOutTheSecondTime)
{
    Write(1, "key:1 |: n3/48 1st key:0 n3/48 :| n3/48");
    RefreshPitches(1);
    EXPECT_EQ(At(1, 2)->lPitch, 66);
    EXPECT_EQ(At(1, 5)->lPitch, 65);
    EXPECT_EQ(At(1, 7)->lPitch, 66);
}

TEST_F(PlayListTest, AMissingEndOfARepeatIsToldAndTheSectionPlaysOn)
{
    // A pass that runs off the staff leaves the time at its start, so the second one makes no sound; the staff then
    // goes on behind the element at which the section began.
    Played("|: n0/48 n1/48");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Missing end-repeat"});
    EXPECT_EQ(Events(), "0:60 47:-60 48:62 48:62 95:-62 95:-62");
}

TEST_F(PlayListTest, AnEndWithNoStartEndsTheStaff) { EXPECT_EQ(Played("n0/48 :| n1/48"), "0:60 47:-60"); }

TEST_F(PlayListTest, ThreeSlashesPlayOneChordThreeTimes)
{
    EXPECT_EQ(Played("chord\"C\" r48 chord\"/\" r48 chord\"/\""),
              "0:48 0:52 0:55 48:-48 48:-52 48:-55 48:48 48:52 48:55 48:rest 96:-48 96:-52 96:-55 96:48 96:52 96:55");
}

TEST_F(PlayListTest, AnUnknownChordIsSilenceAndSoIsTheSlashBehindIt)
{
    EXPECT_EQ(Played("chord\"C\" r48 chord\"Xyz\" r48 chord\"/\" r48"),
              "0:48 0:52 0:55 48:-48 48:-52 48:-55 48:rest 96:rest");
    EXPECT_EQ(lLastChordKind, -1);
}

TEST_F(PlayListTest, GuitarChordsGoOutOnChannelOneAtTheirOwnVolume)
{
    Write(3, "chord\"C\" n0/48");
    Build();
    int32_t const lColumn = StaffFirst(3)->lStrX;
    EXPECT_EQ(listPlay.at(2), (PlayRecord{0, lNotSent, 48, 48, 1, -1, -1, lColumn}));
}

TEST_F(PlayListTest, AnOrnamentStrikesATiedNoteAgain)
{
    lOrnamentStyle = ORNAMENT_NONE;
    EXPECT_EQ(Played("n0/48/flag=1 tie n0/48/flag=34"), "0:60 48:60 95:-60");
}

TEST_F(PlayListTest, AnOrnamentOnTooShortANoteIsPlayedPlain) { EXPECT_EQ(Played("n0/9/flag=32"), "0:60 8:-60"); }

TEST_F(PlayListTest, StaccatoSoundsAThird) { EXPECT_EQ(Played("n0/48/flag=64"), "0:60 15:-60"); }

TEST_F(PlayListTest, NotesBeyondMidiMakeNoSoundAndKeepTheirPitch)
{
    EXPECT_EQ(Played("n60/48 n0/48"), "48:60 95:-60");
    EXPECT_GT(At(1, 0)->lPitch, 127);
}

TEST_F(PlayListTest, AnAccidentalFarFromMiddleCBindsModulo32)
{
    AccidentalSet sharps;
    sharps.Set(-33);
    EXPECT_TRUE(sharps.Has(-1));
    EXPECT_FALSE(sharps.Has(1));
    EXPECT_EQ(MidiAtPosition(-1, 0, 0, sharps, {}, {}), 60);
}

TEST_F(PlayListTest, RefreshingPitchesEndsWhateverTheRepeatsAre)
{
    std::string sScore = "key:2";
    for (int32_t n = 0; n < 5000; ++n)
        sScore += " |:";
    Write(1, sScore + " n3/48");
    RefreshPitches(8);
    EXPECT_EQ(StaffLast(1)->lPitch, 66);
}

TEST_F(PlayListTest, RefreshingPitchesReachesHiddenAndSilentStaffs)
{
    Write(3, "#3 n3/48");
    afPlay[3] = 0;
    At(3, 1)->lPitch = 0;
    RefreshPitches(8);
    EXPECT_EQ(At(3, 1)->lPitch, 66);
    afPlay[3] = 1;
}

TEST_F(PlayListTest, ChordSymbolsAreParsedByTheirExactSigns)
{
    struct
    {
        char const* sText;
        int32_t lRoot;
        int32_t lKind;
    } const aCase[] = {{"C", 48, 1},  {"F#m7", 54, 4}, {"Bbmaj7", 46, 9}, {"Cmin", 48, 2}, {"Cmin7", 48, 4},
                       {"G7", 55, 3}, {"C-", 48, 5},   {"C0", 48, 5},     {"Fdim", 53, 5}, {"FDim", 53, 1},
                       {"B+", 47, 6}, {"Caug", 48, 6}, {"E!", 52, 7},     {"G6", 55, 8},   {"Xyz", -1, -1},
                       {"/", -1, -1}, {"", -1, -1},    {"h", -1, -1}};
    for (auto const& c : aCase)
    {
        int32_t lRoot = 0;
        int32_t lKind = 0;
        ParseGuitarChord(c.sText, &lRoot, &lKind, 0);
        EXPECT_EQ(lRoot, c.lRoot) << c.sText;
        EXPECT_EQ(lKind, c.lKind) << c.sText;
    }
}

TEST_F(PlayListTest, ASlashSinksFurtherEachTimeInClarinetMode)
{
    fClarinetTranspose = true;
    int32_t lRoot = 0;
    int32_t lKind = 0;
    ParseGuitarChord("C", &lRoot, &lKind, 0);
    EXPECT_EQ(lRoot, 46);
    ParseGuitarChord("/", &lRoot, &lKind, 0);
    EXPECT_EQ(lRoot, 44);
    ParseGuitarChord("/", &lRoot, &lKind, 1);
    EXPECT_EQ(lRoot, 43);
}
} // namespace zarn

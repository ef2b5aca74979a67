// Music played on the virtual clock: every message and its millisecond.
//
// At 1250 beats a minute a crotchet is 48 milliseconds, so that a millisecond is a tick and what a rule of notation
// gives in ticks can be read off the times.
#include "core/pitch.h"
#include "support/sound_fixture.h"

#include <vector>

namespace zarn::test
{
namespace
{
struct PlayedMusic : SoundTest
{
    /// Plays this on staff 1 at a millisecond a tick; the program that comes first is left out.
    std::string Ticks(std::string const& sScore)
    {
        std::string const sSent = Played("tempo:1250 " + sScore);
        EXPECT_TRUE(sSent.starts_with("0:P1")) << sSent;
        return sSent.size() > 5 ? sSent.substr(5) : "";
    }
};
} // namespace

TEST_F(PlayedMusic, NotesFollowOneAnotherAndEndATickShort)
{
    EXPECT_EQ(Ticks("n0/48 n1/24 n2/12"), "0:60 47:-60 48:62 71:-62 72:64 83:-64");
}

TEST_F(PlayedMusic, AChordSoundsTogether)
{
    EXPECT_EQ(Ticks("[n0/48 n2/48 n4/48] n1/48"), "0:60 0:64 0:67 47:-60 47:-64 47:-67 48:62 95:-62");
}

TEST_F(PlayedMusic, AFirstEndingIsPlayedOnceAndTheTuneGoesOnFromThere)
{
    EXPECT_EQ(Ticks("|: n0/48 n1/48 1st n2/48 :| n3/48"),
              "0:60 47:-60 48:62 95:-62 96:64 143:-64 144:60 191:-60 192:62 239:-62 240:65 287:-65");
}

TEST_F(PlayedMusic, AnEndThatIsAStartTooPlaysBothPartsTwice)
{
    EXPECT_EQ(Ticks("|: n0/48 :: n1/48 :|"), "0:60 47:-60 48:60 95:-60 96:62 143:-62 144:62 191:-62");
}

TEST_F(PlayedMusic, ARepeatBeginsEachPassInTheKeyThatItsSignStoodIn)
{
    EXPECT_EQ(Ticks("key:1 |: n3/48 key:0 n3/48 :|"), "0:66 47:-66 48:65 95:-65 96:66 143:-66 144:65 191:-65");
}

TEST_F(PlayedMusic, ARestKeepsItsTimeAndAFinalRestIsNotWaitedFor)
{
    EXPECT_EQ(Ticks("n0/48 r96 n1/48 r192"), "0:60 47:-60 144:62 191:-62");
    EXPECT_EQ(process.user.lNowMs, 192u) << "the play lives until the rest begins";
}

TEST_F(PlayedMusic, ADottedQuaverLiltMovesOffbeatsByAThirdOfAQuaver)
{
    lSwing = 24;
    EXPECT_EQ(Ticks("time:4/4 n0/24 n1/24 n2/24 n3/24"), "0:60 23:-60 32:62 47:-62 48:64 71:-64 80:65 95:-65");
}

TEST_F(PlayedMusic, ALiltLeavesNotesShorterThanItsUnitAlone)
{
    lSwing = 24;
    EXPECT_EQ(Ticks("time:4/4 n0/24 n1/12 n2/12 n3/24"), "0:60 23:-60 24:62 35:-62 36:64 47:-64 48:65 71:-65");
}

TEST_F(PlayedMusic, ADottedCrotchetLiltMovesTheSecondBeat)
{
    lSwing = 48;
    EXPECT_EQ(Ticks("time:4/4 n0/48 n1/48 n2/24 n3/24 n4/48"),
              "0:60 47:-60 64:62 95:-62 96:64 119:-64 120:65 143:-65 160:67 191:-67");
}

TEST_F(PlayedMusic, ALiltCountsItsBeatsFromTheEndOfThePickup)
{
    lSwing = 24;
    EXPECT_EQ(Ticks("time:4/4 n0/24 | n1/24 n2/24 n3/24 n4/24"),
              "8:60 23:-60 24:62 47:-62 56:64 71:-64 72:65 95:-65 104:67 119:-67");
}

TEST_F(PlayedMusic, ABarnDanceHalvesWhatIsOffThePulse)
{
    fBarnDance = true;
    EXPECT_EQ(Ticks("time:4/4 n0/48 n1/48 n2/96"), "0:60 47:-60 48:62 71:-62 96:64 191:-64");
}

TEST_F(PlayedMusic, ABarnDanceHasItsPulseBehindThePickup)
{
    fBarnDance = true;
    EXPECT_EQ(Ticks("time:4/4 n0/48 | n1/48 n2/48"), "0:60 23:-60 48:62 95:-62 96:64 119:-64");
}

TEST_F(PlayedMusic, OrnamentsArePlayedInTheirStyle)
{
    struct
    {
        OrnamentStyle style;
        char const* sSent;
    } const aCase[] = {
        {ORNAMENT_NONE, "0:62 47:-62"},
        {ORNAMENT_SEMITONE, "0:62 9:-62 9:63 18:-63 18:62 28:-62 28:61 37:-61 37:62 47:-62"},
        {ORNAMENT_BOWED, "0:62 14:-62 15:62 30:-62 31:62 47:-62"},
        {ORNAMENT_DIATONIC, "0:62 9:-62 9:64 18:-64 18:62 28:-62 28:60 37:-60 37:62 47:-62"},
    };
    for (auto const& c : aCase)
    {
        lOrnamentStyle = c.style;
        EXPECT_EQ(Ticks("n1/48/flag=32"), c.sSent) << c.style;
    }
}

TEST_F(PlayedMusic, ARollKeepsToTheKeyAndTheAccidentalsOfItsBar)
{
    EXPECT_EQ(Ticks("key:1 n2/48/flag=32"), "0:64 9:-64 9:66 18:-66 18:64 28:-64 28:62 37:-62 37:64 47:-64");
    EXPECT_EQ(Ticks("#1 n2/48/flag=32"), "0:64 9:-64 9:65 18:-65 18:64 28:-64 28:63 37:-63 37:64 47:-64");
}

TEST_F(PlayedMusic, ALiltedOrnamentFitsIntoWhatIsLeftOfItsNote)
{
    lSwing = 24;
    lOrnamentStyle = ORNAMENT_BOWED;
    // The second quaver sounds from 32 to 47, 15 ticks: its strokes are 5 and 10 behind the first.
    EXPECT_EQ(Ticks("time:4/4 n0/24 n1/24/flag=32"), "0:60 23:-60 32:62 36:-62 37:62 41:-62 42:62 47:-62");
}

TEST_F(PlayedMusic, GraceNotesPushTheNoteBehindThemAndNothingElse)
{
    EXPECT_EQ(Ticks("n0/0 n1/0 n2/0 n3/48 n4/48"), "0:60 3:-60 4:62 7:-62 8:64 11:-64 12:65 48:67 59:-65 95:-67");
}

TEST_F(PlayedMusic, StaccatoSoundsAThirdLessATick)
{
    EXPECT_EQ(Ticks("n0/48/flag=64 n1/24/flag=64"), "0:60 15:-60 48:62 55:-62");
}

TEST_F(PlayedMusic, TiedNotesRingThrough)
{
    EXPECT_EQ(Ticks("n0/48/flag=1 tie n0/48/flag=2 n1/48"), "0:60 95:-60 96:62 143:-62");
}

TEST_F(PlayedMusic, AChordSymbolSoundsUntilTheNextAndASlashSoundsItAgain)
{
    EXPECT_EQ(Ticks("chord\"C\" n0/48 chord\"/\" n0/48 chord\"X\" n0/48"),
              "0:48 0:52 0:55 0:60 47:-60 48:-48 48:-52 48:-55 48:48 48:52 48:55 48:60 95:-60 "
              "96:-48 96:-52 96:-55 96:60 143:-60");
}

TEST_F(PlayedMusic, TheLastChordSymbolSoundsOn)
{
    EXPECT_EQ(Ticks("chord\"Am\" n0/48"), "0:45 0:48 0:52 0:60 47:-60");
    ASSERT_EQ(sound.sent.size(), 6u);
    EXPECT_EQ(sound.sent[1].dwMessage, 0x302D91u) << "at its own velocity, 48";
}

TEST_F(PlayedMusic, ChordSymbolsAreSilentWhenTheyAreSwitchedOff)
{
    fPlayChords = false;
    EXPECT_EQ(Ticks("chord\"Am\" n0/48"), "0:60 47:-60");
}

TEST_F(PlayedMusic, ChordSymbolsOfAnyStaffGoToTheFirst)
{
    Write(3, "chord\"G7\" n0/48");
    EXPECT_EQ(Ticks("n0/48"), "0:P1@3 0:60 0:55 0:59 0:62 0:65 0:60@3 47:-60 47:-60@3");
}

TEST_F(PlayedMusic, AClarinetSoundsAToneLower)
{
    fClarinetTranspose = true;
    EXPECT_EQ(Ticks("n0/48 #3 n3/48"), "0:58 47:-58 48:64 95:-64");
    EXPECT_EQ(Ticks("chord\"C\" r48 chord\"/\" r48"), "0:46 0:50 0:53 48:-46 48:-50 48:-53 48:44 48:48 48:51")
        << "each slash sinks by another tone";
}

TEST_F(PlayedMusic, AGuitarSoundsAnOctaveLower)
{
    fGuitarTranspose = true;
    EXPECT_EQ(Ticks("chord\"C\" n0/48"), "0:36 0:40 0:43 0:48 47:-48");
}

TEST_F(PlayedMusic, ATransposeSignReplacesTheOneBefore)
{
    EXPECT_EQ(Ticks("trans:5 n0/48 trans:-7 n0/48 trans:0 n0/48"), "0:65 47:-65 48:53 95:-53 96:60 143:-60");
    EXPECT_EQ(Ticks("trans:2 chord\"C\" n0/48"), "0:50 0:54 0:57 0:62 47:-62");
}

TEST_F(PlayedMusic, TranspositionsAddUp)
{
    fGuitarTranspose = true;
    EXPECT_EQ(Ticks("trans:5 n0/48"), "0:53 47:-53");
}

TEST_F(PlayedMusic, ATempoActsOnTheStepThatLeadsToTheNoteBehindIt)
{
    // 47 * 500 / 48 = 489; one tick at 1000 is 20; 47 * 1000 / 48 = 979.
    EXPECT_EQ(Played("tempo:120 n0/48 tempo:60 n1/48 n2/48"), "0:P1 0:60 489:-60 509:62 1488:-62 1508:64 2487:-64");
}

TEST_F(PlayedMusic, TempoSignsOfAnyStaffActOnAll)
{
    Write(2, "r48 tempo:60 r48");
    EXPECT_EQ(Played("n0/48 n1/48"), "0:P1 0:P1@2 0:60 489:-60 499:62 1478:-62")
        << "the sign stands behind the first staff's note of the same tick";
}

TEST_F(PlayedMusic, QuaversAt133AreRoundedDownEach)
{
    // 60000 / 133 = 451; 451 * 23 / 48 = 216; 451 / 48 = 9.
    EXPECT_EQ(Played("tempo:133 n0/24 n1/24"), "0:P1 0:60 216:-60 225:62 441:-62");
}

TEST_F(PlayedMusic, DoubleSpeedHalvesEachStep)
{
    fDoubleSpeed = true;
    EXPECT_EQ(Played("n0/48 n1/48"), "0:P1 0:60 244:-60 249:62 493:-62");
}

TEST_F(PlayedMusic, AVolumeSignIsTheVelocityOfTheNotesBehindIt)
{
    Ticks("n0/48 vol:100 n1/48 vol:4 n2/48");
    std::vector<uint32_t> aVelocities;
    for (SentMessage const& message : sound.sent)
        if ((message.dwMessage & 0xF0) == 0x90 && message.dwMessage >> 16 != 0)
            aVelocities.push_back(message.dwMessage >> 16);
    EXPECT_EQ(aVelocities, (std::vector<uint32_t>{64, 100, 4}));
}

TEST_F(PlayedMusic, AnInstrumentSignSendsItsProgram)
{
    EXPECT_EQ(Ticks("n0/48 inst:40 n1/48"), "0:60 47:-60 48:P40 48:62 95:-62");
}

TEST_F(PlayedMusic, StaffsThatAreSwitchedOffAreSilent)
{
    Write(2, "tempo:1250 n7/48");
    EXPECT_EQ(Ticks("n0/48"), "0:P1@2 0:60 0:72@2 47:-60 47:-72@2");
    afPlay[2] = 0;
    EXPECT_EQ(Ticks("n0/48"), "0:60 47:-60");
    afPlay[1] = 0;
    EXPECT_EQ(Played("n0/48"), "");
}

namespace
{
struct FromTheMark : PlayedMusic
{
    /// Plays this from its nth symbol on, from 0.
    std::string From(int32_t n, std::string const& sScore)
    {
        List_Clear(aStaffList[1]);
        Write(1, "tempo:1250 " + sScore);
        pelMarkBegin = At(1, n + 1);
        return Play();
    }
};
} // namespace

TEST_F(FromTheMark, ThePlayBeginsThereAtOnce)
{
    EXPECT_EQ(From(1, "n0/48 n1/48 n2/48"), "0:P1 0:62 47:-62 48:64 95:-64");
}

TEST_F(FromTheMark, WhatStandsAheadIsInForce)
{
    EXPECT_EQ(From(4, "key:1 inst:40 #4 n4/48 n4/48 | n4/24 n3/24"),
              "0:P1 0:P40 0:68 47:-68 48:67 71:-67 72:66 95:-66");
}

TEST_F(FromTheMark, AChordAheadIsKnownToTheSlashBehindItAndSilent)
{
    EXPECT_EQ(From(2, "chord\"C\" n0/48 n1/48 chord\"/\" n2/48"), "0:P1 0:62 47:-62 48:48 48:52 48:55 48:64 95:-64");
}

TEST_F(FromTheMark, BehindARepeatItIsSilentFirstForAsLongAsThePass)
{
    EXPECT_EQ(From(3, "|: n0/48 :| n1/48"), "0:P1 48:62 95:-62");
}

TEST_F(FromTheMark, InsideARepeatTheRestOfTheFirstPassIsPlayedAndAllOfTheSecond)
{
    EXPECT_EQ(From(2, "|: n0/48 n1/48 :| n2/48"), "0:P1 0:62 47:-62 48:60 95:-60 96:62 143:-62 144:64 191:-64");
}
} // namespace zarn::test

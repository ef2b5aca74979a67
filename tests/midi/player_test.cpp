// The player on the virtual clock: what goes out at which millisecond, and how a play ends.
#include "midi/player.h"

#include "core/messages.h"
#include "platform/user.h"
#include "support/sound_fixture.h"

#include <functional>
#include <utility>

namespace zarn::test
{
namespace
{
/// A host whose threads run to their end where they are made, so that a play may go on for ever on the virtual clock.
struct ThreadsAtOnce : VirtualSound
{
    using VirtualSound::VirtualSound;
    bool StartThread(std::function<void()> work) override
    {
        work();
        return true;
    }
};

struct Player : SoundTest
{
    /// At that many milliseconds from now.
    void At(uint32_t cMs, std::function<void()> action)
    {
        int32_t const lTimer = ++lLastTimer;
        process.user.SetTimer(lTimer, cMs,
                              [this, lTimer, action = std::move(action)]
                              {
                                  process.user.KillTimer(lTimer);
                                  action();
                              });
    }
    void HoldCtrlAt(uint32_t cMs)
    {
        At(cMs, [this] { process.user.bControlDown = true; });
    }
    void LetCtrlGoAt(uint32_t cMs)
    {
        At(cMs, [this] { process.user.bControlDown = false; });
    }

    ~Player() override { ShutDownMidi(); } // the output may belong to threads

    /// Plays this on a thread.
    void PlayOnThread(std::string const& sScore)
    {
        host.pSound = &threads;
        Open();
        threads.sent.clear();
        Write(1, sScore);
        bTimesValid = false;
        PlayFromMark(false, 0);
    }

    ThreadsAtOnce threads{process.user};
    int32_t lLastTimer = 100;
};

constexpr size_t cAllNotesOff = 1143;
} // namespace

TEST_F(Player, APreambleGoesOutAtOnceAProgramForEachPlayedStaff)
{
    Write(2, "n7/48");
    process.settings.values["Default Instrument"] = 24;
    EXPECT_EQ(Played("n0/48"), "0:P24 0:P24@2 0:60 0:72@2 489:-60 489:-72@2");
}

TEST_F(Player, AListOfPreamblesEndsAtOnce)
{
    EXPECT_EQ(Played("clef:1 time:4/4"), "0:P1");
    EXPECT_FALSE(Player_IsPlaying());
}

TEST_F(Player, AnEmptyScoreEndsAtOnceAndSaysNothing)
{
    EXPECT_EQ(Play(), "");
    EXPECT_FALSE(Player_IsPlaying());
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(Player, MillisecondsAreRoundedForEachStep)
{
    EXPECT_EQ(Played("n0/48 n1/48 n2/48"), "0:P1 0:60 489:-60 499:62 988:-62 998:64 1487:-64");
}

TEST_F(Player, TheFineClockIsAskedForWhileAPlayRuns)
{
    int32_t cDuring = -1;
    At(100, [&] { cDuring = sound.cPeriods; });
    Played("n0/48");
    EXPECT_EQ(cDuring, 1);
    EXPECT_EQ(sound.cPeriods, 0);
}

TEST_F(Player, AnyBytesOfARecordAreThoseOfItsMessage)
{
    Write(3, "vol:100 n0/48");
    Play();
    ASSERT_EQ(sound.sent.size(), 3u);
    EXPECT_EQ(sound.sent[0].dwMessage, 0x01C3u);
    EXPECT_EQ(sound.sent[1].dwMessage, 0x643C93u) << "velocity 100, note 60";
    EXPECT_EQ(sound.sent[2].dwMessage, 0x003C93u) << "an end is a note-on of velocity 0";
}

TEST_F(Player, CtrlDownBeforeTheFirstRecordEndsThePlayWithoutAMessage)
{
    process.user.bControlDown = true;
    EXPECT_EQ(Played("n0/48"), "");
    EXPECT_FALSE(Player_IsPlaying());
}

TEST_F(Player, CtrlInAWaitIsSeenWithinATenthOfASecondAndSilencesAll)
{
    HoldCtrlAt(130);
    std::string const sSent = Played("n0/48 n1/48");
    EXPECT_TRUE(sSent.starts_with("0:P1 0:60 200:-0@0 200:-1@0 ")) << sSent.substr(0, 60);
    ASSERT_EQ(sound.sent.size(), 2 + cAllNotesOff);
    EXPECT_EQ(MessageText(sound.sent.back().dwMessage), "-126@8");
    EXPECT_FALSE(Player_IsPlaying());
}

TEST_F(Player, CtrlThatIsLetGoBetweenTwoLooksGoesUnseen)
{
    HoldCtrlAt(110);
    LetCtrlGoAt(190);
    EXPECT_EQ(Played("n0/48"), "0:P1 0:60 489:-60");
}

TEST_F(Player, CtrlIsSeenAtTheEndOfAShortWait)
{
    HoldCtrlAt(489);
    std::string const sSent = Played("n0/48 n1/48");
    EXPECT_TRUE(sSent.starts_with("0:P1 0:60 489:-0@0 ")) << "the note's own end doesn't go out";
}

TEST_F(Player, ASecondPlayIsRefusedWhileOneRuns)
{
    At(100, [this] { PlayFromMark(false, 0); });
    EXPECT_EQ(Played("n0/48"), "0:P1 0:60 489:-60");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Cannot play.  Previous play not yet complete."});
}

TEST_F(Player, WithoutAnOutputNothingPlaysAndTheUserIsTold)
{
    sound.aOutputs.clear();
    Write(1, "n0/48");
    PlayFromMark(false, 0);
    EXPECT_EQ(process.user.Messages(),
              (std::vector<std::string>{
                  "There are no MIDI devices configured on this system\nYou need a sound card with MIDI.",
                  "Cannot play - MIDI not working."}));
    EXPECT_FALSE(Player_IsPlaying());
}

TEST_F(Player, EndlessRepeatSendsThePreambleInEachPassAndStartsItAtOnce)
{
    fEndlessRepeat = true;
    At(700, [] { fEndlessRepeat = false; });
    PlayOnThread("n0/48");
    ASSERT_EQ(threads.sent.size(), 6u);
    std::vector<std::pair<uint32_t, std::string>> aSent;
    for (SentMessage const& message : threads.sent)
        aSent.emplace_back(message.lMs, MessageText(message.dwMessage));
    EXPECT_EQ(aSent, (std::vector<std::pair<uint32_t, std::string>>{
                         {0, "P1"}, {0, "60"}, {489, "-60"}, {489, "P1"}, {489, "60"}, {978, "-60"}}));
}

TEST_F(Player, CtrlInAWaitEndsAnEndlessRepeat)
{
    fEndlessRepeat = true;
    HoldCtrlAt(1000);
    PlayOnThread("n0/48");
    EXPECT_EQ(process.user.lNowMs, 1078u) << "the third pass began at 978, and its wait looked after 100";
    EXPECT_FALSE(Player_IsPlaying());
    EXPECT_EQ(threads.sent.size(), 3 + 3 + 2 + cAllNotesOff);
}

TEST_F(Player, CtrlBetweenRecordsStartsAnEndlessRepeatAgainUntilItIsLetGo)
{
    fEndlessRepeat = true;
    process.user.bControlDown = true;
    LetCtrlGoAt(1005);
    At(1100, [] { fEndlessRepeat = false; });
    PlayOnThread("n0/48");
    ASSERT_EQ(threads.sent.size(), 3u);
    EXPECT_EQ(threads.sent[1].lMs, 1010u);
}

TEST_F(Player, AListThatTakesNoTimeIsNotRepeated)
{
    fEndlessRepeat = true;
    PlayOnThread("clef:1");
    EXPECT_EQ(threads.sent.size(), 1u);
}

TEST_F(Player, WithoutAThreadOfItsOwnAPlayIsNotRepeated)
{
    fEndlessRepeat = true;
    EXPECT_EQ(Played("n0/48"), "0:P1 0:60 489:-60");
}

TEST_F(Player, ADeviceThatRefusesIsToldOnceAndEndsThePlay)
{
    At(1000, [this] { sound.nSendResult = MIDIERR_NODEVICE; });
    EXPECT_EQ(Played("n0/48 n1/48 n2/48 n3/48"), "0:P1 0:60 489:-60 499:62 988:-62 998:64");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Error 68"});
    EXPECT_EQ(process.user.shown[0].sCaption, "MidiOutShortMsg");
    EXPECT_FALSE(Player_IsPlaying());
}

TEST_F(Player, AnErrorWithoutWordsIsToldAllTheSame)
{
    Open();
    sound.bErrorTexts = false;
    sound.nSendResult = MMSYSERR_ERROR;
    Played("n0/48");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Unrecognised MIDI out error"});
}

TEST_F(Player, TheLatenessOfEachRecordIsKeptUntilThePlayHasEnded)
{
    PlayRecords seen;
    pOnPassPlayed = [&](PlayRecords const& listPlay) { seen = listPlay; };
    At(400, [this] { process.user.lNowMs += 100; }); // the machine is busy
    Played("n0/48 n1/48");
    std::vector<int32_t> aLate;
    for (PlayRecord const& record : seen)
        aLate.push_back(record.lLate);
    // The preamble stands at -1 and so is a millisecond late; the clock jumps from 400 to 500.
    EXPECT_EQ(aLate, (std::vector<int32_t>{1, 1, 0, 11, 1, 0}));
    EXPECT_FALSE(Player_IsPlaying());
}

TEST_F(Player, WhatWasNotSentIsNotLate)
{
    PlayRecords seen;
    pOnPassPlayed = [&](PlayRecords const& listPlay) { seen = listPlay; };
    HoldCtrlAt(100);
    Played("n0/48");
    ASSERT_EQ(seen.size(), 4u);
    EXPECT_EQ(seen[3].lLate, lNotSent);
}

TEST_F(Player, TheColumnIsThatOfTheSymbolThatSoundsAndNoneAfterwards)
{
    std::vector<int32_t> aColumns;
    for (uint32_t const lAtMs : {100u, 495u, 600u, 1200u})
        At(lAtMs, [&] { aColumns.push_back(Player_Column()); });
    Played("x:10 n0/48 x:20 r48 x:30 n1/48");
    EXPECT_EQ(aColumns, (std::vector<int32_t>{10, 10, 20, 30})) << "a note's end moves nothing";
    EXPECT_EQ(Player_Column(), lNoPlace);
}

TEST_F(Player, APlayMayCrossTheEndOfTheClock)
{
    process.user.lNowMs = UINT32_MAX - 300;
    EXPECT_EQ(Played("n0/48 n1/48"), "0:P1 0:60 489:-60 499:62 988:-62");
}

} // namespace zarn::test

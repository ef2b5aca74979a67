// A play on a thread of its own, while the main thread does all that a user may do meanwhile. The thread sanitizer
// watches these.
#include "edit/add.h"
#include "edit/current_symbol.h"
#include "edit/new_score.h"
#include "layout/adjust.h"
#include "midi/sound_note.h"
#include "support/sound_fixture.h"
#include "support/threaded_sound.h"

namespace zarn::test
{
namespace
{
struct PlayerThread : testing::Test
{
    PlayerThread()
    {
        host.pSound = &sound;
        ResetPlayOptions();
        OpenMidiOut();
        process.user.shown.clear();
    }
    ~PlayerThread() override
    {
        ShutDownMidi();
        ResetPlayOptions();
    }

    /// Begins a play of this and returns when its first note sounds.
    void Begin(std::string const& sScore)
    {
        Write(1, sScore);
        bTimesValid = false;
        PlayFromMark(false, 0);
        sound.noteSent.Wait();
    }
    /// The play stands at its first note until something ends it.
    void BeginAndStand()
    {
        sound.bClockStands = true;
        Begin("n0/48 n1/48");
    }

    ThreadedSound sound;
    ScriptedProcess process;
};

constexpr size_t cMode = 16; ///< messages of an output that opens
constexpr size_t cAllNotesOff = 1143;
constexpr char const* sLongTune = "n0/12 n1/12 n2/12 n3/12 n4/12 n5/12 n6/12 n7/12 n0/12 n1/12 n2/12 n3/12 n4/12 "
                                  "n0/12 n1/12 n2/12 n3/12 n4/12 n5/12 n6/12 n7/12 n0/12 n1/12 n2/12 n3/12 n4/12";
} // namespace

TEST_F(PlayerThread, APlayGoesOnBesideTheMainThreadToItsEnd)
{
    Begin("n0/48 n1/48");
    Player_Wait();
    EXPECT_FALSE(Player_IsPlaying());
    std::vector<uint32_t> aSent = sound.Sent();
    aSent.erase(aSent.begin(), aSent.begin() + cMode);
    EXPECT_EQ(aSent, (std::vector<uint32_t>{0x01C1, 0x403C91, 0x003C91, 0x403E91, 0x003E91}));
    EXPECT_EQ(sound.cPeriods, 0);
}

TEST_F(PlayerThread, AnotherPlayMayFollowAtOnce)
{
    for (int32_t n = 0; n < 20; ++n)
    {
        Score_EmptyStaffs();
        Begin("n0/1");
        Player_Wait();
    }
    EXPECT_EQ(sound.Sent().size(), cMode + 20 * 3);
}

TEST_F(PlayerThread, UndoMidiWakesAPlayAndEndsIt)
{
    BeginAndStand();
    EXPECT_TRUE(Player_IsPlaying());
    UndoMidi();
    EXPECT_FALSE(Player_IsPlaying());
    EXPECT_EQ(MidiOutHandle(), nullptr);
    EXPECT_EQ(sound.cOpen, 0);
    EXPECT_EQ(sound.cPeriods, 0);
    EXPECT_EQ(sound.Sent().size(), cMode + 2 + 2 * cAllNotesOff) << "silenced by the player, and by the command";
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(PlayerThread, InitMidiEndsAPlayWhenTheUserChoosesAgain)
{
    BeginAndStand();
    process.user.answers.push_back({.kind = Answer::NO});
    InitMidi();
    EXPECT_TRUE(Player_IsPlaying()) << "No leaves everything";
    process.user.answers.push_back({.kind = Answer::YES});
    InitMidi();
    EXPECT_FALSE(Player_IsPlaying());
    EXPECT_EQ(sound.cOpen, 1);
}

TEST_F(PlayerThread, ShuttingDownEndsAPlay)
{
    BeginAndStand();
    ShutDownMidi();
    EXPECT_FALSE(Player_IsPlaying());
    EXPECT_EQ(sound.cOpen, 0);
}

TEST_F(PlayerThread, AnotherScoreMayComeInDuringAPlay)
{
    BeginAndStand();
    Score_New();
    Write(1, "n4/48");
    FullAdjust(); // a staff begins with a clef then
    EXPECT_TRUE(Player_IsPlaying());
    UndoMidi();
    EXPECT_EQ(Read(1), "clef:1 n4/48");
}

TEST_F(PlayerThread, TheScoreMayBeEditedDuringAPlay)
{
    Begin(sLongTune);
    for (int32_t n = 0; n < 30; ++n)
    {
        CurrentSymbol_SetNote(48);
        AddElement(nullptr, nullptr, nullptr, elCurrent);
        fDoubleSpeed = !fDoubleSpeed;
        bTimesValid = false;
    }
    Player_Wait();
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(PlayerThread, ANoteMaySoundDuringAPlay)
{
    Begin(sLongTune);
    for (int32_t n = 0; n < 5; ++n)
        SoundNoteFor(60, 1, 9, 64, 20);
    Player_Wait();
    size_t cOn = 0;
    for (uint32_t const dwMessage : sound.Sent())
        cOn += dwMessage == 0x403C99;
    EXPECT_EQ(cOn, 5u);
    EXPECT_EQ(sound.Sent().size(), cMode + 1 + 26 * 2 + 5 * 3);
}

TEST_F(PlayerThread, SwitchingTheEndlessRepeatOffEndsItWithItsPass)
{
    fEndlessRepeat = true;
    Begin("n0/12");
    sound.noteSent.Reset();
    sound.noteSent.Wait(); // a later pass
    fEndlessRepeat = false;
    Player_Wait();
    EXPECT_EQ((sound.Sent().size() - cMode) % 3, 0u) << "whole passes";
}

TEST_F(PlayerThread, ADeviceThatHasGoneIsToldOnceByTheMainThread)
{
    Begin(sLongTune);
    sound.nSendResult = MIDIERR_NODEVICE;
    Player_Wait();
    EXPECT_TRUE(process.user.shown.empty()) << "not on the player's thread";
    process.user.RunPosted();
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Error 68"});
    EXPECT_EQ(process.user.shown[0].sCaption, "MidiOutShortMsg");
}

TEST_F(PlayerThread, TheTraceOfAPlayIsWrittenByTheMainThread)
{
    static std::string sTrace;
    sTrace.clear();
    pDebugLogSink = [](std::string_view sText) { sTrace += sText; };
    fMidiTrace = true;
    Begin("n0/48");
    Player_Wait();
    EXPECT_EQ(sTrace, "");
    process.user.RunPosted();
    pDebugLogSink = nullptr;
    EXPECT_EQ(sTrace, "midiOutShortMsg 000001c1\nmidiOutShortMsg 00403c91\nmidiOutShortMsg 00003c91\n");
}

TEST_F(PlayerThread, ThePlaceBeingPlayedCanBeReadAtAnyTime)
{
    Begin("x:10 n0/12 x:20 n1/12 x:30 n2/12");
    int32_t lBefore = 0;
    while (Player_IsPlaying())
    {
        int32_t const lNow = Player_Column();
        ASSERT_TRUE(lNow == lNoPlace || lNow >= lBefore) << lNow;
        if (lNow != lNoPlace)
            lBefore = lNow;
    }
    EXPECT_EQ(Player_Column(), lNoPlace);
}
} // namespace zarn::test

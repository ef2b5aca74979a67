// Recording, on a virtual keyboard and a virtual synthesizer.
#include "midi/record.h"

#include "core/messages.h"
#include "core/score.h"
#include "midi/midi_setup.h"
#include "midi/track_key.h"
#include "platform/memory.h"
#include "support/recording_fixture.h"
#include "support/score_text.h"

namespace zarn::test
{
namespace
{
using Words = std::vector<std::pair<std::string, std::string>>; ///< caption and text

struct RecordTest : RecordingFixture
{
    RecordTest() { Serious_Rearm(); }
    ~RecordTest() override { lGlobalAllocsLeft = lGlobalLocksLeft = -1; }

    /// What has been shown since the last look.
    Words Shown()
    {
        Words aWords;
        for (auto const& box : process.user.shown)
            aWords.emplace_back(box.sCaption, box.sText);
        process.user.shown.clear();
        Serious_Rearm();
        return aWords;
    }
};
constexpr char const* sOurs = "Zarn Message";
} // namespace

TEST_F(RecordTest, AnInputIsOpenedAndListens)
{
    EXPECT_FALSE(IsRecording());
    StartRecording();
    EXPECT_TRUE(IsRecording());
    EXPECT_EQ(sound.lInOpen, 0);
    EXPECT_TRUE(sound.bInStarted);
    EXPECT_EQ(sound.cPeriods, 1);
    ASSERT_NE(sound.pRoom, nullptr);
    EXPECT_EQ(sound.pRoom->dwBufferLength, 1000u);
    EXPECT_EQ(sound.hThru, nullptr) << "no output is open";
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(Shown(), Words()) << "one input is taken without a question";
    StopRecording(nullptr);
    EXPECT_FALSE(IsRecording());
    EXPECT_EQ(sound.lInOpen, -1);
    EXPECT_EQ(sound.cPeriods, 0);
    EXPECT_EQ(sound.pRoom, nullptr);
}

TEST_F(RecordTest, TheHeaderIsFreedWithTheTake)
{
    int32_t const cBlocks = cGlobalBlocks;
    StartRecording();
    EXPECT_EQ(cGlobalBlocks, cBlocks + 1);
    StopRecording(nullptr);
    EXPECT_EQ(cGlobalBlocks, cBlocks);
}

TEST_F(RecordTest, ASecondStartDoesNothing)
{
    StartRecording();
    Down(1200, 60);
    sound.aInputs = {"one", "two"};
    StartRecording();
    EXPECT_EQ(RecordedNotes().size(), 1u);
    EXPECT_EQ(Shown(), Words());
}

TEST_F(RecordTest, OfTwoInputsEachIsAskedAboutInTurn)
{
    sound.aInputs = {"Left keyboard", "Right keyboard", "Accordion"};
    Answers(Answer::NO);
    Answers(Answer::YES);
    StartRecording();
    EXPECT_EQ(process.user.shown[0].lFlags, MB_YESNO);
    EXPECT_EQ(Shown(), (Words{{"Is this one OK?", "Left keyboard"}, {"Is this one OK?", "Right keyboard"}}));
    EXPECT_EQ(sound.lInOpen, 1);
}

TEST_F(RecordTest, WhoWantsNoneOfThemGetsTheFirst)
{
    sound.aInputs = {"Left keyboard", "Right keyboard"};
    Answers(Answer::NO);
    Answers(Answer::NO);
    StartRecording();
    EXPECT_EQ(Shown(), (Words{{"Is this one OK?", "Left keyboard"},
                              {"Is this one OK?", "Right keyboard"},
                              {"Twit", "Well there aren't any more!!"}}));
    EXPECT_EQ(sound.lInOpen, 0);
}

TEST_F(RecordTest, WithoutAnInputThreeBoxesSayWhyNothingIsRecorded)
{
    sound.aInputs.clear();
    StartRecording();
    EXPECT_EQ(Shown(), (Words{{"Sorry", "No MIDI input devices available"},
                              {"MidiInOpen", "Error 2"},
                              {sOurs, "Midi input handle=NULL"}}));
    EXPECT_FALSE(IsRecording());
    EXPECT_EQ(sound.cPeriods, 0);
    MidiIn_Message(0x90, 60, 64);
    EXPECT_EQ(Log(), "");
}

TEST_F(RecordTest, WithoutSoundAtAllNothingIsRecorded)
{
    host.pSound = nullptr;
    StartRecording();
    EXPECT_EQ(Shown(), (Words{{"Sorry", "No MIDI input devices available"},
                              {"MidiInOpen", "Unrecognised MIDI in error"},
                              {sOurs, "Midi input handle=NULL"}}));
    EXPECT_FALSE(IsRecording());
    host.pSound = &sound;
}

TEST_F(RecordTest, ANameThatCantBeHadIsToldAndTheInputOfferedAllTheSame)
{
    sound.nNameResult = MMSYSERR_BADDEVICEID;
    sound.aInputs = {"one", "two"};
    Answers(Answer::YES);
    StartRecording();
    EXPECT_EQ(Shown(), (Words{{"MidiInGetDevCaps", "Error 2"}, {"Is this one OK?", ""}}));
    EXPECT_TRUE(IsRecording());
}

TEST_F(RecordTest, AResultWithoutAnErrorIsShownWhenMidiIsTraced)
{
    fMidiTrace = true;
    StartRecording();
    EXPECT_EQ(Shown(), (Words{{"MidiInGetDevCaps", "Error 0"}, {"MidiInOpen", "Error 0"}}));
}

TEST_F(RecordTest, AStartThatFailsIsToldAndLeavesTheInputOpenUntilItIsStopped)
{
    struct
    {
        std::function<void()> break_;
        char const* sText;
        int32_t cPeriods;
    } const aCase[] = {
        {[] { lGlobalAllocsLeft = 0; }, "Couldn't get global memory handle for MIDIHDR", 0},
        {[] { lGlobalLocksLeft = 0; }, "Couldn't locked global memory for MIDIHDR", 0},
        {[this] { sound.nRoomResult = MMSYSERR_ERROR; }, "Couldn't prepare MIDI input header", 0},
        {[this] { sound.nConnectResult = 11; }, "MidiInConnect error 11 ==        b", 1},
        {[this] { sound.nStartResult = 0x12345678; }, "MidiInStart error 305419896 == 12345678", 1},
    };
    OpenOutput();
    int32_t const cBlocks = cGlobalBlocks;
    for (auto const& c : aCase)
    {
        CurrentSymbol(REST, 24);
        c.break_();
        StartRecording();
        EXPECT_EQ(Shown(), (Words{{sOurs, c.sText}}));
        EXPECT_TRUE(IsRecording()) << c.sText;
        EXPECT_EQ(cGlobalBlocks, cBlocks) << c.sText;
        EXPECT_EQ(sound.pRoom, nullptr) << c.sText;
        EXPECT_FALSE(sound.bInStarted) << c.sText;
        EXPECT_EQ(sound.cPeriods, c.cPeriods) << c.sText;
        EXPECT_EQ(elCurrent.sort, REST) << c.sText;
        MidiIn_Message(0x90, 60, 64); // a straggler does no harm
        sound.nRoomResult = sound.nConnectResult = sound.nStartResult = MMSYSERR_NOERROR;
        StopRecording(nullptr);
        EXPECT_FALSE(IsRecording()) << c.sText;
        EXPECT_EQ(sound.cPeriods, 0) << c.sText;
        EXPECT_EQ(sound.lInOpen, -1) << c.sText;
    }
}

TEST_F(RecordTest, WhatIsPlayedSoundsOnTheOpenOutput)
{
    OpenOutput();
    StartRecording();
    EXPECT_EQ(sound.hThru, MidiOutHandle());
    Down(1200, 60);
    ASSERT_EQ(sound.sent.size(), 1u);
    EXPECT_EQ(sound.sent[0].dwMessage, 0x403C90u);
    StopRecording(nullptr);
    EXPECT_EQ(sound.hThru, nullptr);
}

TEST_F(RecordTest, AnOutputThatClosesDuringATakeIsLeftByTheInputFirst)
{
    OpenOutput();
    StartRecording();
    UndoMidi();
    EXPECT_EQ(sound.hThru, nullptr);
    Down(1200, 60);
    EXPECT_EQ(RecordedNotes().size(), 1u);
    StopRecording(nullptr);
    OpenOutput();
    StartRecording();
    ShutDownMidi();
    EXPECT_EQ(sound.hThru, nullptr);
    EXPECT_EQ(sound.cThruLost, 0);
}

TEST_F(RecordTest, KeysAreFollowedAndHeldAndThePictureIsRepainted)
{
    struct CountedWindow : HeadlessWindow
    {
        CountedWindow() : HeadlessWindow("", nullptr) {}
        void Invalidate() override { ++cInvalidated; }
        int32_t cInvalidated = 0;
    } window;
    CreateMidiInWindow(&window);
    StartRecording();
    Down(1200, 60);
    EXPECT_EQ(gltStart, 1200);
    EXPECT_EQ(window.cInvalidated, 1);
    Up(1600, 60);
    EXPECT_EQ(window.cInvalidated, 1) << "a key that goes up shows nothing";
    Comes(1700, 0x9F, 64, 64); // any channel
    Comes(1800, 0x9F, 64, 0);
    Comes(1900, 0x8A, 60, 64);
    std::vector<HeldNote> const& listHeld = RecordedNotes();
    ASSERT_EQ(listHeld.size(), 2u);
    EXPECT_EQ(listHeld[0].lOn, 0);
    EXPECT_EQ(listHeld[0].lOff, 700);
    EXPECT_EQ(listHeld[1].lOn, 500);
    EXPECT_EQ(listHeld[1].lOff, 600);
    EXPECT_EQ(listHeld[1].lBeat, 48);
    StopRecording(&window);
    EXPECT_EQ(window.cInvalidated, 3);
    EXPECT_TRUE(RecordedNotes().empty());
}

TEST_F(RecordTest, OtherMessagesAreDroppedOrLogged)
{
    StartRecording();
    for (int32_t nStatus = 0xA0; nStatus <= 0xFF; ++nStatus)
        if (nStatus != 0xF0 && nStatus != 0xF7)
            Comes(1200, static_cast<uint8_t>(nStatus), 60, 64);
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(gltStart, 0);
    Comes(1200, 0xF0);
    Comes(1200, 0x3C);
    Comes(1200, 0xF7);
    EXPECT_EQ(Log(), "MM_MIM_LONGDATA has happened \r\n"
                     "MM_MIM_ERROR has happened \r\n"
                     "MM_MIM_LONGERROR has happened \r\n");
}

TEST_F(RecordTest, AMessageThatComesBehindTheEndIsDropped)
{
    StartRecording();
    sound.Play(0x90, 60, 64); // on its way when the input closes
    StopRecording(nullptr);
    (void)Log();
    EXPECT_EQ(gltStart, 0);
    EXPECT_TRUE(RecordedNotes().empty());
}

TEST_F(RecordTest, ATakeEndsWithItsNotesHeldAndNothingPlaced)
{
    Write(1, "clef:1 n0/48");
    bScoreDirty = false;
    StartRecording();
    for (uint32_t l = 0; l < 16; ++l)
    {
        Down(1200 + 500 * l, static_cast<uint8_t>(60 + l));
        Up(1500 + 500 * l, static_cast<uint8_t>(60 + l));
    }
    EXPECT_EQ(RecordedNotes().size(), 16u);
    StopRecording(nullptr);
    EXPECT_EQ(Read(1), "clef:1 n0/48");
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(RecordTest, StoppingWithoutAKeyLogsAFirstKeyAtNoTime)
{
    StartRecording();
    StopRecording(nullptr);
    EXPECT_EQ(Log(), "First key down.  gltStart=0\r\n");
}

TEST_F(RecordTest, StoppingWithNothingOpenDoesNothing)
{
    StopRecording(nullptr);
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(Shown(), Words());
    EXPECT_TRUE(Metronome_State().fStopping);
}

TEST_F(RecordTest, TheMetronomeEndsWithTheTakeAndAnswersTheNext)
{
    OpenOutput();
    StartRecording();
    for (uint32_t const lMs : {1200, 1700, 2200})
        Down(lMs, 60);
    process.user.Advance(600);
    EXPECT_EQ(Metronome_State().lDingCount, 2);
    StopRecording(nullptr);
    process.user.Advance(3000);
    EXPECT_EQ(Metronome_State().lDingCount, 2) << "not one more";

    StartRecording();
    uint32_t const lStart = process.user.lNowMs + 100;
    for (uint32_t const lMs : {0, 400, 800})
        Down(lStart + lMs, 60);
    process.user.Advance(500);
    EXPECT_EQ(Metronome_State().lDingCount, 2) << "200 and 400 ms behind the beat";
    EXPECT_EQ(Metronome_State().lDingPeriod, 200);
}

TEST_F(RecordTest, TheFirstIntervalOfATakeIsWhatTheCurrentNoteWas)
{
    CurrentSymbol(NOTE, 24);
    StartRecording();
    EXPECT_EQ(lBeatLength, 24);
    EXPECT_EQ(elCurrent.lDuration, 48) << "and then it is a crotchet";
    StopRecording(nullptr);
    StartRecording();
    EXPECT_EQ(lBeatLength, 48);
}
} // namespace zarn::test

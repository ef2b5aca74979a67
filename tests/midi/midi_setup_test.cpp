// Opening and closing the output, and the choice among several.
#include "midi/midi_setup.h"

#include "midi/player.h"
#include "support/sound_fixture.h"

namespace zarn::test
{
namespace
{
struct MidiSetup : SoundTest
{
    void Answers(Answer::Kind kind) { process.user.answers.push_back({.kind = kind}); }
    void AnswersRow(int32_t lRow) { process.user.answers.push_back({.kind = Answer::ROW, .lNumber = lRow}); }
    [[nodiscard]] std::vector<std::string> Messages() const { return process.user.Messages(); }
};
} // namespace

TEST_F(MidiSetup, WithoutADeviceTheUserIsToldAndNoneIsOpen)
{
    sound.aOutputs.clear();
    EXPECT_EQ(OpenMidiOut(), nullptr);
    EXPECT_EQ(lMidiOutDevice, -1);
    EXPECT_EQ(Messages(), std::vector<std::string>{
                              "There are no MIDI devices configured on this system\nYou need a sound card with MIDI."});
}

TEST_F(MidiSetup, TheOnlyDeviceIsTakenAndNamedEachTimeItIsOpened)
{
    EXPECT_NE(OpenMidiOut(), nullptr);
    EXPECT_EQ(lMidiOutDevice, 0);
    OpenMidiOut();
    std::vector<std::string> const aOnce{"Using device 'Virtual synthesizer' (only device available)."};
    EXPECT_EQ(Messages(), aOnce) << "it was open";
    UndoMidi();
    OpenMidiOut();
    EXPECT_EQ(Messages().size(), 2u);
}

TEST_F(MidiSetup, OpeningSendsTheModeToChannels0To7)
{
    OpenMidiOut();
    std::vector<uint32_t> aExpected;
    for (uint32_t const nMode : {0x7CB0u, 0x7EB0u})
        for (uint32_t nChannel = 0; nChannel < 8; ++nChannel)
            aExpected.push_back(nMode + nChannel);
    std::vector<uint32_t> aSent;
    for (SentMessage const& message : sound.sent)
        aSent.push_back(message.dwMessage);
    EXPECT_EQ(aSent, aExpected);
}

TEST_F(MidiSetup, AModeThatIsRefusedIsNoMessageToTheUser)
{
    sound.nSendResult = MMSYSERR_ERROR;
    EXPECT_NE(OpenMidiOut(), nullptr);
    EXPECT_EQ(Messages().size(), 1u) << "but for the name";
}

TEST_F(MidiSetup, SeveralDevicesAreAskedAbout)
{
    sound.aOutputs = {"One", "Two", "Three"};
    AnswersRow(1);
    EXPECT_NE(OpenMidiOut(), nullptr);
    EXPECT_EQ(lMidiOutDevice, 1);
    EXPECT_EQ(sound.lOutOpen, 1);
    EXPECT_EQ(process.user.shown.back().sCaption, "Select MIDI device");
}

TEST_F(MidiSetup, OkWithoutAChoiceTakesTheLastDevice)
{
    sound.aOutputs = {"One", "Two", "Three"};
    Answers(Answer::OK);
    OpenMidiOut();
    EXPECT_EQ(lMidiOutDevice, 2);
}

TEST_F(MidiSetup, ADigitInADevicesNameIsNoNumber)
{
    sound.aOutputs = {"One", "7: 8 voices"};
    AnswersRow(1);
    OpenMidiOut();
    EXPECT_EQ(lMidiOutDevice, 1);
}

TEST_F(MidiSetup, CancellingTheChoiceOpensNoneAndAPlaySaysSo)
{
    sound.aOutputs = {"One", "Two"};
    PlayFromMark(false, 0);
    EXPECT_EQ(lMidiOutDevice, -1);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Select MIDI device", "Cannot play - MIDI not working."}));
}

TEST_F(MidiSetup, ADialogThatCantBeMadeCountsAsCancelled)
{
    sound.aOutputs = {"One", "Two"};
    process.user.bFormsWork = false;
    EXPECT_EQ(OpenMidiOut(), nullptr);
}

TEST_F(MidiSetup, DevicesWithoutANameAreToldAndNotListed)
{
    sound.aOutputs = {"One", "Two"};
    sound.nNameResult = MMSYSERR_ERROR;
    Answers(Answer::OK);
    EXPECT_EQ(OpenMidiOut(), nullptr);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Error 1", "Error 1", "Select MIDI device"}));
    EXPECT_EQ(process.user.shown[0].sCaption, "MidiOutGetDevCaps");
}

TEST_F(MidiSetup, ADeviceThatDoesntOpenIsTold)
{
    sound.nOpenResult = MMSYSERR_ALLOCATED;
    EXPECT_EQ(OpenMidiOut(), nullptr);
    EXPECT_EQ(process.user.shown.back().sCaption, "MidiOutOpen");
    EXPECT_EQ(process.user.shown.back().sText, "Error 4");
    EXPECT_TRUE(sound.sent.empty());
}

TEST_F(MidiSetup, InitMidiAsksBeforeItChoosesAgain)
{
    sound.aOutputs = {"One", "Two"};
    AnswersRow(0);
    InitMidi();
    Answers(Answer::NO);
    InitMidi();
    EXPECT_EQ(process.user.shown.back().sText, "MIDI is already set up.  Re-do?");
    EXPECT_EQ(sound.lOutOpen, 0);
    Answers(Answer::YES);
    AnswersRow(1);
    InitMidi();
    EXPECT_EQ(sound.lOutOpen, 1);
}

TEST_F(MidiSetup, UndoMidiSilencesEveryNoteBut127AndCloses)
{
    Open();
    UndoMidi();
    ASSERT_EQ(sound.sent.size(), 9u * 127u);
    EXPECT_EQ(MessageText(sound.sent[0].dwMessage), "-0@0");
    EXPECT_EQ(MessageText(sound.sent[126].dwMessage), "-126@0");
    EXPECT_EQ(MessageText(sound.sent[127].dwMessage), "-0");
    EXPECT_EQ(MessageText(sound.sent.back().dwMessage), "-126@8");
    EXPECT_EQ(sound.lOutOpen, -1);
    EXPECT_EQ(MidiOutHandle(), nullptr);
}

TEST_F(MidiSetup, UndoMidiOnADeviceThatHasGoneSaysSoOnceAndCloses)
{
    Open();
    sound.nSendResult = MIDIERR_NODEVICE;
    UndoMidi();
    EXPECT_EQ(Messages(), std::vector<std::string>{"Error 68"});
    EXPECT_EQ(sound.lOutOpen, -1);
}

TEST_F(MidiSetup, UndoMidiWithoutADeviceDoesNothing)
{
    UndoMidi();
    EXPECT_TRUE(sound.sent.empty());
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(MidiSetup, ShuttingDownClosesWithoutSilencing)
{
    Open();
    ShutDownMidi();
    EXPECT_TRUE(sound.sent.empty());
    EXPECT_EQ(sound.lOutOpen, -1);
}
} // namespace zarn::test

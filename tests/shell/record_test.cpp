// Recording in the whole program: the command and its check, journals, and whatever else happens during a take.
#include "midi/record.h"
#include "midi/track_key.h"

#include "core/score_check.h"
#include "platform/headless/replay.h"
#include "platform/headless/virtual_sound.h"
#include "shell/command_numbers.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
struct RecordCommandTest : Shell
{
    RecordCommandTest()
    {
        host.pSound = &sound;
        host.pDoor = &door;
    }
    ~RecordCommandTest() override { ShutDown(); }

    void Key(int32_t lNote, int32_t lVelocity = 64)
    {
        process.user.Advance(500);
        Send(EventKind::MIDI, 144, lNote, lVelocity);
    }

    VirtualSound sound{process.user};
};
} // namespace

TEST_F(RecordCommandTest, TheCommandStartsAndEndsARecordingAndItsCheckTells)
{
    Start();
    EXPECT_FALSE(Checked(COMMAND_RECORD));
    Command(COMMAND_RECORD);
    EXPECT_TRUE(IsRecording());
    EXPECT_TRUE(Checked(COMMAND_RECORD));
    Command(COMMAND_RECORD);
    EXPECT_FALSE(IsRecording());
    EXPECT_FALSE(Checked(COMMAND_RECORD));
}

TEST_F(RecordCommandTest, WithoutAnInputTheCheckStaysOff)
{
    Start();
    sound.aInputs.clear();
    Command(COMMAND_RECORD);
    EXPECT_EQ(Messages(),
              (std::vector<std::string>{"No MIDI input devices available", "Error 2", "Midi input handle=NULL"}));
    EXPECT_FALSE(Checked(COMMAND_RECORD));
}

TEST_F(RecordCommandTest, AStartThatFailedHalfWayIsCheckedAndEndedByTheNextCommand)
{
    Start();
    sound.nStartResult = MMSYSERR_ERROR;
    Command(COMMAND_RECORD);
    EXPECT_TRUE(Checked(COMMAND_RECORD));
    Command(COMMAND_RECORD);
    EXPECT_FALSE(Checked(COMMAND_RECORD));
    EXPECT_EQ(sound.lInOpen, -1);
}

TEST_F(RecordCommandTest, ARecordingMakesThePointerACrotchetAndAddsNothing)
{
    Start();
    Command(COMMAND_REST + 4);
    Command(COMMAND_RECORD);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 48);
    EXPECT_EQ(elCurrent.lB, 64);
    EXPECT_EQ(Read(1), "");
}

TEST_F(RecordCommandTest, KeysArriveThroughTheDoorAndOwePicture)
{
    Start();
    Command(COMMAND_RECORD);
    Update();
    int32_t const cPaints = Window().cPaints;
    Key(60);
    Key(62);
    Update();
    EXPECT_EQ(Window().cPaints, cPaints + 1);
    EXPECT_EQ(RecordedNotes().size(), 2u);
    EXPECT_FLOAT_EQ(sBeatRate, 0.096F);
}

TEST_F(RecordCommandTest, AKeyDoesNotLetARunOfErrorsSpeakAgain)
{
    Start();
    Command(COMMAND_RECORD);
    Serious("first");
    Key(60);
    Serious("second");
    EXPECT_EQ(Messages(), std::vector<std::string>{"first"});
}

TEST_F(RecordCommandTest, ANewTuneAnotherFileAndEditsLeaveATakeGoingOn)
{
    Start();
    Command(COMMAND_RECORD);
    Key(60);
    Write(1, "clef:1 n0/48 n2/48 n4/48");
    Command(COMMAND_MINIADJUST);
    Key(62);
    AnswersNewTune();
    Command(COMMAND_NEW);
    Key(64);
    Drop(MakeFile("two.abc", sTwoTunes));
    Key(65);
    Press("escape");
    Press("3");
    Command(COMMAND_UNDO);
    Key(67);
    EXPECT_EQ(Score_Check(), std::vector<std::string>());
    EXPECT_TRUE(IsRecording());
    EXPECT_TRUE(Checked(COMMAND_RECORD)) << "the checks were shown anew with the file";
    EXPECT_EQ(RecordedNotes().size(), 5u);
    Command(COMMAND_RECORD);
    EXPECT_EQ(Score_Check(), std::vector<std::string>());
}

TEST_F(RecordCommandTest, LeavingTheProgramEndsTheTakeFirst)
{
    Start();
    Command(COMMAND_RECORD);
    Key(60);
    Key(62);
    Key(64);
    Send(EventKind::CLOSE);
    EXPECT_TRUE(process.user.bQuit);
    EXPECT_FALSE(IsRecording());
    EXPECT_EQ(sound.lInOpen, -1);
    EXPECT_EQ(hMidiInWindow, nullptr);
    Key(65); // on its way while the window closed
    process.user.Advance(5000);
    EXPECT_EQ(sound.cPeriods, 0);
}

TEST_F(RecordCommandTest, AProgramThatStaysGoesOnRecording)
{
    Start();
    Command(COMMAND_RECORD);
    bScoreDirty = true;
    Answers(Answer::CANCEL);
    Send(EventKind::CLOSE);
    EXPECT_FALSE(process.user.bQuit);
    EXPECT_TRUE(IsRecording());
}

TEST_F(RecordCommandTest, AnEndWithoutTheWindowsLeaveEndsTheTakeToo)
{
    Start();
    Command(COMMAND_RECORD);
    Key(60);
    ShutDown();
    EXPECT_FALSE(IsRecording());
    EXPECT_EQ(sound.lInOpen, -1);
}

TEST_F(RecordCommandTest, AJournalPlaysATakeBackWithItsTimes)
{
    Start();
    std::string sTold;
    EXPECT_EQ(Replay_Play("command 207\n"
                          "tick 700\nmidi 144 60 64\ntick 300\nmidi 128 60 0\n"
                          "tick 200\nmidi 144 64 64\ntick 250\nmidi 144 67 64\n"
                          "tick 10\nmidi 144 69 64\ntick 240\nmidi 144 72 64\ntick 600\n",
                          process.user, [&](std::string_view s) { sTold += s; }),
              0)
        << sTold;
    std::vector<int32_t> aOn;
    std::vector<int32_t> aBeats;
    for (HeldNote const& note : RecordedNotes())
    {
        aOn.push_back(note.lOn);
        aBeats.push_back(note.lBeat);
    }
    EXPECT_EQ(aOn, (std::vector<int32_t>{0, 500, 750, 760, 1000}));
    EXPECT_EQ(aBeats, (std::vector<int32_t>{0, 48, 72, 72, 96}));
    EXPECT_EQ(RecordedNotes()[0].lOff, 300);
    EXPECT_EQ(Metronome_State().lDingCount, 2);
    EXPECT_EQ(Replay_Play("command 207\n", process.user, {}), 0);
    EXPECT_FALSE(IsRecording());
}
} // namespace zarn::test

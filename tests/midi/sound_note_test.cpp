#include "midi/sound_note.h"

#include "support/sound_fixture.h"

namespace zarn::test
{
namespace
{
struct SoundNoteTest : SoundTest
{
};
} // namespace

TEST_F(SoundNoteTest, SoundsForAnEighthOfASecondAndEndsOnChannel1WithItsVelocity)
{
    Open();
    SoundNote(60, 5, 3, 100);
    EXPECT_EQ(sound.sent, (std::vector<SentMessage>{{0, 0x05C3}, {0, 0x643C93}, {125, 0x643C81}}));
}

TEST_F(SoundNoteTest, SoundsForTheTimeThatIsAskedFor)
{
    Open();
    SoundNoteFor(38, 2, 9, 127, 20);
    EXPECT_EQ(sound.sent, (std::vector<SentMessage>{{0, 0x02C9}, {0, 0x7F2699}, {20, 0x7F2681}}));
}

TEST_F(SoundNoteTest, WithoutADeviceIsSilentOpensNoneAndTakesNoTime)
{
    SoundNote(60, 1, 1, 64);
    EXPECT_EQ(sound.lOutOpen, -1);
    EXPECT_EQ(process.user.lNowMs, 0u);
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(SoundNoteTest, ANoteThatMidiHasNotIsSilent)
{
    Open();
    for (int32_t const lNote : {INT32_MIN, -1, 128, INT32_MAX})
        SoundNote(lNote, 1, 1, 64);
    EXPECT_TRUE(sound.sent.empty());
}

TEST_F(SoundNoteTest, ADeviceThatRefusesIsToldOnceANoteAndNotWaitedFor)
{
    Open();
    sound.nSendResult = MMSYSERR_ERROR;
    SoundNote(60, 1, 1, 64);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Error 1"});
    EXPECT_EQ(process.user.shown[0].sCaption, "MidiOutShortMsg");
    EXPECT_EQ(process.user.lNowMs, 0u);
}

TEST_F(SoundNoteTest, AMessageForAnOutputThatHasBeenClosedGoesNowhere)
{
    Open();
    HMIDIOUT const hOut = MidiOutHandle();
    UndoMidi();
    sound.sent.clear();
    EXPECT_TRUE(MidiNoteOn(hOut, 60, 64, 1));
    EXPECT_TRUE(MidiProgramChange(1, 5));
    EXPECT_TRUE(AllNotesOff(nullptr));
    EXPECT_TRUE(sound.sent.empty());
    EXPECT_TRUE(process.user.shown.empty());
}
} // namespace zarn::test

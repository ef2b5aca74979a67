// The list of devices, and the synthesizer as one that is heard, or would be.
#include "sound/sound_fixture.h"

#include <gmock/gmock.h>

namespace zarn::test
{
namespace
{
class Devices : public testing::Test
{
protected:
    /// A module on a machine without servers.
    std::unique_ptr<SoundModule> Module(std::string const& szDriver) { return NewSoundModule({szTestFont, szDriver}); }
    /// Its last device, opened.
    uint32_t OpenLast(SoundModule& module)
    {
        HMIDIOUT hOut = nullptr;
        uint32_t const nResult = module.OpenOutput(static_cast<int32_t>(module.Outputs().size()) - 1, hOut);
        out.reset(hOut);
        return nResult;
    }
    static std::string ErrorText(SoundModule& module, uint32_t nResult)
    {
        std::string szText;
        EXPECT_TRUE(module.ErrorText(nResult, szText)) << nResult;
        return szText;
    }

    Environment noPulse{"PULSE_SERVER", "unix:/nowhere/pulse"};
    Environment noJack{"JACK_DEFAULT_SERVER", "zarn-none"};
    std::unique_ptr<MidiOutPort> out;
};
} // namespace

TEST_F(Devices, TheBuiltInSynthesizerComesLast) { EXPECT_EQ(Module("none")->Outputs().back(), "Built-in synthesizer"); }

TEST_F(Devices, ListingThemPrintsNothing)
{
    testing::internal::CaptureStderr();
    auto const module = Module("none");
    (void)module->Outputs();
    (void)module->Inputs();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Devices, OneThatIsNotInTheListIsRefused)
{
    auto const module = Module("none");
    for (int32_t const lDevice : {-1, static_cast<int32_t>(module->Outputs().size()), INT32_MAX})
    {
        HMIDIOUT hOut = nullptr;
        EXPECT_EQ(module->OpenOutput(lDevice, hOut), MMSYSERR_BADDEVICEID);
        EXPECT_EQ(hOut, nullptr);
    }
    EXPECT_NE(ErrorText(*module, MMSYSERR_BADDEVICEID), "");
}

TEST_F(Devices, WithoutADriverTheSynthesizerPlaysOnUnheard)
{
    auto const module = Module("none");
    ASSERT_EQ(OpenLast(*module), MMSYSERR_NOERROR);
    EXPECT_EQ(out->Send(Program(40)), MMSYSERR_NOERROR);
    EXPECT_EQ(out->Send(NoteOn(60)), MMSYSERR_NOERROR);
    EXPECT_EQ(out->Send(NoteOn(60, 0)), MMSYSERR_NOERROR);
}

TEST_F(Devices, TwoSynthesizersMayBeOpen)
{
    auto const module = Module("none");
    ASSERT_EQ(OpenLast(*module), MMSYSERR_NOERROR);
    auto const first = std::move(out);
    ASSERT_EQ(OpenLast(*module), MMSYSERR_NOERROR);
    EXPECT_EQ(first->Send(NoteOn(60)), MMSYSERR_NOERROR);
    EXPECT_EQ(out->Send(NoteOn(60)), MMSYSERR_NOERROR);
}

TEST_F(Devices, NoAudioServerIsToldAndNothingIsPrinted)
{
    for (char const* szDriver : {"pulseaudio", "jack", "no-such-driver"})
    {
        auto const module = Module(szDriver);
        testing::internal::CaptureStderr();
        uint32_t const nResult = OpenLast(*module);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << szDriver;
        EXPECT_THAT(ErrorText(*module, nResult), testing::HasSubstr("finds no sound device")) << szDriver;
        EXPECT_EQ(out, nullptr);
    }
}

TEST_F(Devices, AFontThatIsMissingIsToldWhenTheSynthesizerOpens)
{
    auto const module = NewSoundModule({"/nowhere/no.sf2", "none"});
    EXPECT_THAT(ErrorText(*module, OpenLast(*module)), testing::HasSubstr("is missing, or is no sound font"));
    EXPECT_EQ(out, nullptr);
}

TEST_F(Devices, ACodeThatIsNoneOfOursHasNoSentence)
{
    std::string szText;
    EXPECT_FALSE(Module("none")->ErrorText(MMSYSERR_NOERROR, szText));
    EXPECT_FALSE(Module("none")->ErrorText(999999, szText));
}
} // namespace zarn::test

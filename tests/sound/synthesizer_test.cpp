// The built-in synthesizer with no clock: what it makes of messages.
#include "sound/sound_fixture.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <unistd.h>

namespace zarn::test
{
namespace
{
class Synthesizer : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string sError;
        source = NewSoundModule({szTestFont, {}})->NewWaveSource(sError);
        ASSERT_NE(source, nullptr) << sError;
    }

    /// How strong a note's own frequency is in the samples, on the left.
    static double Strength(std::vector<int16_t> const& aSamples, int32_t lNote)
    {
        double const dFrequency = 440.0 * std::pow(2.0, (lNote - 69) / 12.0);
        double const dStep = 2 * std::numbers::pi * dFrequency / lWaveRate;
        double dCosine = 0;
        double dSine = 0;
        size_t const cFrames = aSamples.size() / lWaveChannels;
        for (size_t l = 0; l < cFrames; ++l)
        {
            dCosine += aSamples[l * lWaveChannels] * std::cos(dStep * static_cast<double>(l));
            dSine += aSamples[l * lWaveChannels] * std::sin(dStep * static_cast<double>(l));
        }
        return std::hypot(dCosine, dSine) / static_cast<double>(cFrames);
    }

    std::unique_ptr<WaveSource> source;
};

constexpr int32_t cHalfSecond = lWaveRate / 2;
} // namespace

TEST_F(Synthesizer, ItIsSilentUntilANoteBegins)
{
    EXPECT_LE(Peak(Rendered(*source, cHalfSecond)), 1);
    EXPECT_EQ(source->Send(NoteOn(60)), MMSYSERR_NOERROR);
    EXPECT_GT(Peak(Rendered(*source, cHalfSecond)), 1000);
}

TEST_F(Synthesizer, ANoteOffAndAVelocityOfZeroBothEndANote)
{
    for (uint32_t const dwOff : {NoteOn(60, 0), NoteOn(60) - 0x10})
    {
        (void)source->Send(Program(16)); // an organ: it sounds for as long as it is held
        (void)source->Send(NoteOn(60));
        (void)Rendered(*source, lWaveRate);
        EXPECT_GT(Peak(Rendered(*source, cHalfSecond)), 1000);
        (void)source->Send(dwOff);
        (void)Rendered(*source, 2 * lWaveRate);
        EXPECT_LT(Peak(Rendered(*source, cHalfSecond)), 50) << std::hex << dwOff;
    }
}

TEST_F(Synthesizer, TheMessagesOfAnOpeningOutputLeaveItItsChords)
{
    for (uint32_t nChannel = 0; nChannel < 8; ++nChannel)
    {
        (void)source->Send(Control(124, 0, nChannel));
        (void)source->Send(Control(126, 0, nChannel));
    }
    (void)source->Send(Program(16));
    for (uint32_t const nNote : {60u, 64u, 67u})
        (void)source->Send(NoteOn(nNote));
    auto const aSamples = Rendered(*source, lWaveRate);
    double const dBetween = Strength(aSamples, 62); // of no note of the chord
    for (int32_t const lNote : {60, 64, 67})
        EXPECT_GT(Strength(aSamples, lNote), 10 * dBetween) << lNote;
}

TEST_F(Synthesizer, AProgramChangeAnotherInstrument)
{
    (void)source->Send(NoteOn(60));
    auto const aPiano = Rendered(*source, cHalfSecond);
    std::string sError;
    source = NewSoundModule({szTestFont, {}})->NewWaveSource(sError);
    (void)source->Send(Program(40));
    (void)source->Send(NoteOn(60));
    EXPECT_NE(Rendered(*source, cHalfSecond), aPiano);
}

TEST_F(Synthesizer, TheSameMessagesGiveTheSameSamples)
{
    std::string sError;
    auto const again = NewSoundModule({szTestFont, {}})->NewWaveSource(sError);
    for (uint32_t const nNote : {60u, 62u, 64u, 65u})
    {
        (void)source->Send(NoteOn(nNote));
        (void)again->Send(NoteOn(nNote));
        ASSERT_EQ(Rendered(*source, 12345), Rendered(*again, 12345)) << nNote;
    }
}

TEST_F(Synthesizer, WhatIsNoMessageIsPassedOver)
{
    for (uint32_t const dwMessage : {0x00000000u, 0x00FF8090u, 0x00648090u, 0x000000FFu, 0x007F7FF0u, 0xFFFFFFFFu})
        EXPECT_EQ(source->Send(dwMessage), MMSYSERR_NOERROR);
    EXPECT_LE(Peak(Rendered(*source, cHalfSecond)), 1);
}

TEST_F(Synthesizer, NoFramesIsNothing)
{
    source->Render(nullptr, 0);
    EXPECT_LE(Peak(Rendered(*source, 1)), 1);
}

TEST(SoundFont, AMissingOneIsTold)
{
    std::string sError;
    EXPECT_EQ(NewSoundModule({"/nowhere/no.sf2", {}})->NewWaveSource(sError), nullptr);
    EXPECT_NE(sError, "");
}

namespace
{
constexpr char const* sBadFont = "The sound font of the built-in synthesizer is missing, or is no sound font.";

/// What a font file of these bytes comes to; empty when it can be played.
std::string FontError(std::string const& sContents)
{
    std::string const szFile = testing::TempDir() + "zarn-no-font-" + std::to_string(getpid());
    std::ofstream(szFile, std::ios::binary) << sContents;
    std::string sError;
    (void)NewSoundModule({szFile, {}})->NewWaveSource(sError);
    std::filesystem::remove(szFile);
    return sError;
}
} // namespace

TEST(SoundFont, AFileThatIsNoneIsToldAndNothingIsPrinted)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(FontError(""), sBadFont);
    EXPECT_EQ(FontError("This is no sound font."), sBadFont);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(SoundFont, OneThatIsCutOffIsTold)
{
    std::ifstream font(szTestFont, std::ios::binary);
    std::string sBytes(1'000'000, '\0');
    font.read(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    for (size_t const cb : {size_t{20}, size_t{1000}, sBytes.size()})
        EXPECT_EQ(FontError(sBytes.substr(0, cb)), sBadFont) << cb;
}

TEST(SoundFont, AFolderIsNone)
{
    std::string sError;
    EXPECT_EQ(NewSoundModule({"/usr", {}})->NewWaveSource(sError), nullptr);
    EXPECT_NE(sError, "");
}

TEST(SoundFont, OneIsFoundInTheUsualPlaces)
{
    std::string sError;
    EXPECT_NE(NewSoundModule({})->NewWaveSource(sError), nullptr) << sError;
}
} // namespace zarn::test

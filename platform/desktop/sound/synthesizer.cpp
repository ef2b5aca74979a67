// Making a FluidSynth synthesizer, and speaking to it in short messages.
#include "platform/desktop/sound/synthesizer.h"

#include "platform/desktop/sound/sound_errors.h"

#include <filesystem>
#include <system_error>

namespace zarn
{
/// Loud enough for one tune, with room for full chords: the library's own 0.2 is hardly heard.
constexpr double dGain = 0.7;

/// What FluidSynth has to say goes to the user in our own words, by error codes.
static void SilenceFluidSynth()
{
    for (int lLevel = 0; lLevel < LAST_LOG_LEVEL; ++lLevel)
        fluid_set_log_function(
            lLevel, [](int, char const*, void*) {}, nullptr);
}

FluidSettings NewFluidSettings()
{
    SilenceFluidSynth();
    FluidSettings settings(new_fluid_settings());
    if (!settings)
        return nullptr;
    fluid_settings_setnum(settings.get(), "synth.gain", dGain);
    // A program's samples are read when it is first asked for: a font of any size opens in a moment.
    fluid_settings_setint(settings.get(), "synth.dynamic-sample-loading", 1);
    return settings;
}

/// Where systems keep General MIDI fonts. A named font comes ahead of the system's choice among those installed, so
/// that installing another program doesn't change how a score sounds.
static std::string UsualFont()
{
    static constexpr char const* aPlaces[] = {
        "/usr/share/sounds/sf2/TimGM6mb.sf2",         "/usr/share/sounds/sf2/FluidR3_GM.sf2",
        "/usr/share/sounds/sf2/default-GM.sf2",       "/usr/share/soundfonts/FluidR3_GM.sf2",
        "/usr/share/soundfonts/default.sf2",          "/usr/share/sounds/sf3/default-GM.sf3",
        "/usr/local/share/sounds/sf2/default-GM.sf2", "/usr/local/share/soundfonts/default.sf2",
    };
    std::error_code error;
    for (char const* szPlace : aPlaces)
        if (std::filesystem::is_regular_file(szPlace, error))
            return szPlace;
    return {};
}

FluidSynth NewFluidSynth(fluid_settings_t* pSettings, std::string const& szFont, uint32_t& nResult)
{
    std::string const szFile = szFont.empty() ? UsualFont() : szFont;
    nResult = szFile.empty() ? lErrorNoFont : lErrorBadFont;
    // Looked at first: loading what is no font at all would have a library beneath complain on standard error.
    if (szFile.empty() || !fluid_is_soundfont(szFile.c_str()))
        return nullptr;
    FluidSynth synth(new_fluid_synth(pSettings));
    if (!synth)
        nResult = lErrorNoMemory;
    else if (fluid_synth_sfload(synth.get(), szFile.c_str(), 1) == FLUID_FAILED)
        synth.reset();
    return synth;
}

static void SendControl(fluid_synth_t* pSynth, int lChannel, int lController, int lValue)
{
    // Omni and mono modes would make one voice of the chords of a staff: a General MIDI instrument keeps its own mode,
    // and takes these messages for the "all notes off" that they include.
    constexpr int lFirstMode = 124;
    if (lController >= lFirstMode)
        fluid_synth_all_notes_off(pSynth, lChannel);
    else
        fluid_synth_cc(pSynth, lChannel, lController, lValue);
}

void Synth_Send(fluid_synth_t* pSynth, uint32_t dwMessage)
{
    int const lChannel = dwMessage & 0x0F;
    int const lData1 = dwMessage >> 8 & 0xFF;
    int const lData2 = dwMessage >> 16 & 0xFF;
    constexpr int lHighest = 127;
    if (lData1 > lHighest || lData2 > lHighest)
        return;
    // The results tell of notes that weren't on and programs that the font hasn't: nothing that a device reports.
    switch (dwMessage & 0xF0)
    {
    case 0x80:
        fluid_synth_noteoff(pSynth, lChannel, lData1);
        break;
    case 0x90:
        fluid_synth_noteon(pSynth, lChannel, lData1, lData2); // velocity 0 is a note-off
        break;
    case 0xA0:
        fluid_synth_key_pressure(pSynth, lChannel, lData1, lData2);
        break;
    case 0xB0:
        SendControl(pSynth, lChannel, lData1, lData2);
        break;
    case 0xC0:
        fluid_synth_program_change(pSynth, lChannel, lData1);
        break;
    case 0xD0:
        fluid_synth_channel_pressure(pSynth, lChannel, lData1);
        break;
    case 0xE0:
        fluid_synth_pitch_bend(pSynth, lChannel, lData2 << 7 | lData1);
        break;
    default:
        break;
    }
}

namespace
{
class SynthWave : public WaveSource
{
public:
    SynthWave(FluidSettings ownSettings, FluidSynth ownSynth)
        : settings(std::move(ownSettings)), synth(std::move(ownSynth))
    {
    }
    uint32_t Send(uint32_t dwMessage) override
    {
        Synth_Send(synth.get(), dwMessage);
        return MMSYSERR_NOERROR;
    }
    void Render(int16_t* pSamples, int32_t cFrames) override
    {
        fluid_synth_write_s16(synth.get(), cFrames, pSamples, 0, lWaveChannels, pSamples, 1, lWaveChannels);
    }

private:
    FluidSettings settings; // outlives the synthesizer
    FluidSynth synth;
};
} // namespace

std::unique_ptr<WaveSource> NewSynthWave(std::string const& szFont, uint32_t& nResult)
{
    FluidSettings settings = NewFluidSettings();
    nResult = lErrorNoMemory;
    if (!settings)
        return nullptr;
    fluid_settings_setnum(settings.get(), "synth.sample-rate", lWaveRate);
    FluidSynth synth = NewFluidSynth(settings.get(), szFont, nResult);
    if (!synth)
        return nullptr;
    return std::make_unique<SynthWave>(std::move(settings), std::move(synth));
}
} // namespace zarn

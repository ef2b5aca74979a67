// The synthesizer on an audio driver.
//
// The driver is opened first, and plays silence until the synthesizer is made at the sample rate that it settled on. A
// driver that stops asking for samples has lost its device: the sends say so.
#include "platform/desktop/sound/synth_output.h"

#include "platform/desktop/sound/midi_input.h"
#include "platform/desktop/sound/midi_systems.h"
#include "platform/desktop/sound/sound_errors.h"
#include "platform/desktop/sound/synthesizer.h"
#include "platform/realtime.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <system_error>
#include <thread>

namespace zarn
{
namespace
{
using Clock = std::chrono::steady_clock;

/// In this order: what mixes the sound of several programs comes first, and each system has its own.
constexpr char const* aDrivers[] = {"pulseaudio", "alsa", "jack", "coreaudio", "wasapi", "dsound"};
constexpr char const* szNoDriver = "none";

/// Longer than any driver's buffer: one that asks for nothing so long has no device.
constexpr std::chrono::milliseconds lGoneMs{2000};

class SynthOutput : public MidiOutPort
{
public:
    SynthOutput() = default;
    ~SynthOutput() override;
    uint32_t Open(SoundSetup const& setup);
    uint32_t Send(uint32_t dwMessage) override;

private:
    bool OpenDriver(std::string const& szDriver);
    bool StartPacer();
    void Pace();
    void Fill(int32_t cFrames, float* pLeft, float* pRight);

    FluidSettings settings; // outlives the others
    FluidSynth synth;
    std::atomic<fluid_synth_t*> pPlaying = nullptr; ///< what the driver's thread plays; null: silence
    std::atomic<Clock::duration> lastFill{};        ///< when samples were last asked for, by the clock
    std::atomic<bool> bEnd = false;                 ///< of the pacer
    std::thread pacer;                              ///< stands for a driver where there is to be none
    FluidDriver driver;                             // goes before the synthesizer
};

SynthOutput::~SynthOutput()
{
    Inputs_Forget(this);
    bEnd = true;
    if (pacer.joinable())
        pacer.join();
}

void SynthOutput::Fill(int32_t cFrames, float* pLeft, float* pRight)
{
    lastFill = Clock::now().time_since_epoch();
    if (fluid_synth_t* const pSynth = pPlaying)
        fluid_synth_write_float(pSynth, cFrames, pLeft, 0, 1, pRight, 0, 1);
}

bool SynthOutput::OpenDriver(std::string const& szDriver)
{
    if ((szDriver == "jack" && !IsJackRunning()) || // FluidSynth would wait for a server that it starts itself
        fluid_settings_setstr(settings.get(), "audio.driver", szDriver.c_str()) == FLUID_FAILED)
        return false;
    lastFill = Clock::now().time_since_epoch();
    driver.reset(new_fluid_audio_driver2(
        settings.get(),
        [](void* pOutput, int cFrames, int, float**, int cBuffers, float** apBuffer)
        {
            if (cBuffers == lWaveChannels) // they come filled with silence
                static_cast<SynthOutput*>(pOutput)->Fill(cFrames, apBuffer[0], apBuffer[1]);
            return int{FLUID_OK};
        },
        this));
    return driver != nullptr;
}

bool SynthOutput::StartPacer()
{
    lastFill = Clock::now().time_since_epoch();
    try
    {
        pacer = std::thread([this] { Pace(); });
    }
    catch (std::system_error const&)
    {
        return false;
    }
    return true;
}

void SynthOutput::Pace()
{
    Thread_RaisePriority(); // as a driver's own thread does: the player waits for a synthesizer that is at work
    constexpr int32_t cFrames = lWaveRate / 100;
    constexpr std::chrono::milliseconds lPeriodMs{10};
    float aLeft[cFrames];
    float aRight[cFrames];
    for (auto next = Clock::now(); !bEnd; next += lPeriodMs)
    {
        Fill(cFrames, aLeft, aRight);
        Thread_SleepUntil(next + lPeriodMs);
    }
}

uint32_t SynthOutput::Open(SoundSetup const& setup)
{
    settings = NewFluidSettings();
    if (!settings)
        return lErrorNoMemory;
    fluid_settings_setint(settings.get(), "audio.jack.autoconnect", 1); // or nobody would hear it
    fluid_settings_setstr(settings.get(), "audio.jack.id", "Zarn");
    SilenceMidiSystems(); // the same libraries are beneath
    bool bOpen = setup.szDriver == szNoDriver;
    if (!bOpen && !setup.szDriver.empty())
        bOpen = OpenDriver(setup.szDriver);
    else if (!bOpen)
        for (char const* szDriver : aDrivers)
            if ((bOpen = OpenDriver(szDriver)))
                break;
    if (!bOpen)
        return lErrorNoAudio;
    uint32_t nResult = MMSYSERR_NOERROR;
    synth = NewFluidSynth(settings.get(), setup.szFont, nResult);
    if (!synth)
        return nResult;
    pPlaying = synth.get();
    return driver || StartPacer() ? MMSYSERR_NOERROR : lErrorNoMemory;
}

uint32_t SynthOutput::Send(uint32_t dwMessage)
{
    if (Clock::now().time_since_epoch() - lastFill.load() > lGoneMs)
        return MIDIERR_NODEVICE;
    Synth_Send(synth.get(), dwMessage);
    return MMSYSERR_NOERROR;
}
} // namespace

uint32_t OpenSynthOutput(SoundSetup const& setup, HMIDIOUT& hOut)
{
    auto output = std::make_unique<SynthOutput>();
    uint32_t const nResult = output->Open(setup);
    if (nResult == MMSYSERR_NOERROR)
        hOut = output.release();
    return nResult;
}
} // namespace zarn

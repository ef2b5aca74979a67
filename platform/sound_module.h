/// What the sound module hands to the program: MIDI devices, the built-in synthesizer among them, and music as samples.
///
/// The module is loaded when sound is first asked for, so that a program which plays nothing starts without it. It
/// calls the program by virtual calls alone.
#pragma once
#include "platform/winmm.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zarn
{
/// What the built-in synthesizer is to use.
struct SoundSetup
{
    std::string szFont; ///< the path of a sound font, UTF-8; empty: the first of the usual places
    /// The audio driver, by FluidSynth's name for it; empty: the first of the system's that opens. "none": nobody hears
    /// it, and it plays on at the pace of the clock.
    std::string szDriver;
};

constexpr int32_t lWaveRate = 44100; ///< frames a second
constexpr int32_t lWaveChannels = 2; ///< samples a frame, left first

/// The built-in synthesizer with no clock: it takes messages, and plays on when it is asked to. One thread.
class WaveSource : public MidiOutPort
{
public:
    /// Plays on by cFrames, at least 0; lWaveChannels samples of each go to pSamples.
    virtual void Render(int16_t* pSamples, int32_t cFrames) = 0;
};

class SoundModule
{
public:
    virtual ~SoundModule() = default;
    /// The names of the devices that there are now; a device is asked for by its place in the last list.
    virtual std::vector<std::string> Outputs() = 0;
    virtual std::vector<std::string> Inputs() = 0;
    virtual uint32_t OpenOutput(int32_t lDevice, HMIDIOUT& hOut) = 0;              ///< hOut stays null on failure
    virtual uint32_t OpenInput(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn) = 0; ///< the sink must outlive the input
    /// A sentence for the user; false when there is none for that code. Any thread, the rest on the main thread.
    virtual bool ErrorText(uint32_t nResult, std::string& szText) = 0;
    /// Null when there is no sound font; sError is a sentence for the user.
    virtual std::unique_ptr<WaveSource> NewWaveSource(std::string& sError) = 0;
};

/// Makes the one sound module of the process; it lives to the end.
extern "C" SoundModule* zarn_sound_module(SoundSetup const& setup);

/// The name under which the module exports it.
constexpr char const* sSoundEntry = "zarn_sound_module";
using SoundEntry = decltype(&zarn_sound_module);
} // namespace zarn

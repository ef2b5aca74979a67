/// The built-in synthesizer: a General MIDI sound font, played by FluidSynth.
#pragma once
#include "platform/sound_module.h"

#include <fluidsynth.h>

#include <cstdint>
#include <memory>
#include <string>

namespace zarn
{
struct FluidDelete
{
    void operator()(fluid_settings_t* p) const { delete_fluid_settings(p); }
    void operator()(fluid_synth_t* p) const { delete_fluid_synth(p); }
    void operator()(fluid_audio_driver_t* p) const { delete_fluid_audio_driver(p); }
};
using FluidSettings = std::unique_ptr<fluid_settings_t, FluidDelete>;
using FluidSynth = std::unique_ptr<fluid_synth_t, FluidDelete>;
using FluidDriver = std::unique_ptr<fluid_audio_driver_t, FluidDelete>;

/// The settings that every synthesizer of ours begins with; null without memory.
[[nodiscard]] FluidSettings NewFluidSettings();

/// Makes a synthesizer with a sound font; the settings must outlive it.
/// @param szFont   a path; empty: the first of the usual places
/// @param nResult  on failure, when null is given, a code of sound_errors.h
[[nodiscard]] FluidSynth NewFluidSynth(fluid_settings_t* pSettings, std::string const& szFont, uint32_t& nResult);

/// Hands a short message on; what no instrument answers to is passed over. Any thread.
void Synth_Send(fluid_synth_t* pSynth, uint32_t dwMessage);

/// The synthesizer as a source of samples; null and nResult as above.
[[nodiscard]] std::unique_ptr<WaveSource> NewSynthWave(std::string const& szFont, uint32_t& nResult);
} // namespace zarn

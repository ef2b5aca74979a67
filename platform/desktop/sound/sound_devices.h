/// All that the sound module has to offer.
#pragma once
#include "platform/sound_module.h"

#include <memory>

namespace zarn
{
/// The system's MIDI ports, as they are at each look, and behind them the built-in synthesizer. It comes last, where
/// an answer that chooses nothing falls on it: it sounds on every machine.
[[nodiscard]] std::unique_ptr<SoundModule> NewSoundModule(SoundSetup const& setup);
} // namespace zarn

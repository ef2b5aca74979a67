/// The built-in synthesizer as a MIDI output that is heard.
#pragma once
#include "platform/sound_module.h"

#include <cstdint>

namespace zarn
{
/// Opens it on the audio driver that the setup asks for, or on the first that plays. hOut stays null on failure.
[[nodiscard]] uint32_t OpenSynthOutput(SoundSetup const& setup, HMIDIOUT& hOut);
} // namespace zarn

/// A MIDI port of the system as an output.
#pragma once
#include "platform/desktop/sound/midi_ports.h"
#include "platform/winmm.h"

namespace zarn
{
/// hOut stays null on failure.
[[nodiscard]] uint32_t OpenMidiOutput(MidiPort const& port, HMIDIOUT& hOut);
} // namespace zarn

/// A MIDI port of the system as an input.
#pragma once
#include "platform/desktop/sound/midi_ports.h"
#include "platform/winmm.h"

namespace zarn
{
/// hIn stays null on failure. The sink hears on a thread of the system's.
[[nodiscard]] uint32_t OpenMidiInput(MidiPort const& port, MidiSink& sink, HMIDIIN& hIn);

/// No input goes through to this output any more: it is about to be closed.
void Inputs_Forget(HMIDIOUT hOut);
} // namespace zarn

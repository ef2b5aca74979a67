/// Opening and closing the MIDI output. Main thread.
#pragma once
#include "platform/winmm.h"

#include <cstdint>

namespace zarn
{
inline int32_t lMidiOutDevice = -1; ///< number of the device; -1 after a cancel, or when there is none

/// The open output; opens one when none is, and asks which when there are several. Null when none could be opened: the
/// user has been told.
HMIDIOUT OpenMidiOut();

void InitMidi(); ///< Opens the output; when one is open the user may choose again.
void UndoMidi(); ///< Ends a play, silences the output and closes it; the next play asks for a device again.

/// Ends a play and closes the output. At exit.
void ShutDownMidi();
} // namespace zarn

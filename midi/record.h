/// Recording from a MIDI input: what a player does is followed, and held. Main thread.
///
/// Notes are placed once they have ended; nothing tells that of a live note, so a take leaves the Score as it was. What
/// it shows is the metronome and the trace.
#pragma once
#include "midi/place_notes.h"
#include "platform/user.h"
#include "platform/winmm.h"

#include <cstdint>
#include <vector>

namespace zarn
{
inline HMIDIIN hMidiIn = nullptr; ///< the input that is open; a recording runs, or its start has failed half way
/// The window that the input's messages belong to, and that is repainted for them. Input comes through the door, so it
/// is the main window, and none of its own is made.
inline HWND hMidiInWindow = nullptr;

void CreateMidiInWindow(HWND hwndParent); ///< At start-up; null at the end.

/// Opens an input, asking which, and listens. The user is told of whatever goes wrong; the input may be open then, and
/// StopRecording closes it. The current symbol becomes a crotchet. Nothing while an input is open.
void StartRecording();
/// Ends the take and closes the input; nothing sounds from then on. Nothing but that while none is open.
/// @param hwnd  to be repainted; null for none
void StopRecording(HWND hwnd);
[[nodiscard]] bool IsRecording();
/// What is played no longer goes to the open output: ahead of its closing. Nothing while no input is open.
void Recording_EndThru();

/// A message from the input; nothing while none is open. lStatus 128 to 143 is a key that goes up, 144 to 159 one that
/// goes down, with lData1 its note and lData2 its velocity. What begins a long message (0xF0), what ends one that got
/// lost (0xF7) and what is no status (below 128) is told in the trace; anything else is dropped.
void MidiIn_Message(int32_t lStatus, int32_t lData1, int32_t lData2);

/// What is held of the take that is being recorded; empty without one.
[[nodiscard]] std::vector<HeldNote> const& RecordedNotes();
} // namespace zarn

/// The open MIDI output, and the messages that go to it.
///
/// The main thread opens and closes it; the player and the metronome send from threads of their own. A message for an
/// output that has been closed meanwhile goes nowhere. What a device refuses is told in a box, by the main thread.
#pragma once
#include "platform/winmm.h"

#include <atomic>
#include <cstdint>

namespace zarn
{
inline std::atomic<bool> fMidiTrace = false; ///< option: every message goes to the trace channel as well

/// The open output device, null when none is open. Any thread.
[[nodiscard]] HMIDIOUT MidiOutHandle();

/// Makes hOut the open output and closes the one before; null leaves none. Main thread.
void MidiOut_Set(HMIDIOUT hOut);

/// Sends a short message, low byte first. Gives the platform's result, and 0 for an output that isn't open any more.
/// Any thread.
uint32_t MidiOut_Send(HMIDIOUT hOut, uint32_t dwMessage);

/// The box that tells of a result that isn't 0, under that caption. Gives true when all was well. Any thread: away from
/// the main thread the box is left to that one.
bool MidiOut_Check(char const* sCaption, uint32_t nResult);

/// These send at once and tell what went wrong; false then. Any thread. Channels are 0 to 15, the rest 0 to 127.
bool MidiProgramChange(int32_t lChannel, int32_t lProgram);
bool MidiNoteOn(HMIDIOUT hOut, int32_t lNote, int32_t lVolume, int32_t lChannel);

/// Silences every note but 127 on channels 0 to 8; nothing without a device. Ends at the first refusal, which is told.
bool AllNotesOff(HMIDIOUT hOut);
} // namespace zarn

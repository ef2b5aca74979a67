/// One note at once, for an added note and the metronome. Both return when the note has ended.
#pragma once
#include <cstdint>

namespace zarn
{
/// Sounds a MIDI note for an eighth of a second. Nothing when no output is open, or the note is none that MIDI has.
void SoundNote(int32_t lNote, int32_t lProgram, int32_t lChannel, int32_t lVolume);
/// The same for that long. Any thread.
void SoundNoteFor(int32_t lNote, int32_t lProgram, int32_t lChannel, int32_t lVolume, uint32_t cMilliseconds);
} // namespace zarn

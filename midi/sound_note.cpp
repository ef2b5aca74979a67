// One note at once. A device that refuses one of its messages gets no more of them: one box for a note is enough.
#include "midi/sound_note.h"

#include "midi/midi_out.h"
#include "midi/play_record.h"

namespace zarn
{
constexpr uint32_t lAuditionMs = 125;
/// The note-off goes to this channel, whatever channel the note went to, and keeps the note-on's velocity. Everything
/// else that sounds single notes sounds them there.
constexpr uint32_t nNoteOffOnChannel1 = 0x81;

void SoundNote(int32_t lNote, int32_t lProgram, int32_t lChannel, int32_t lVolume)
{
    SoundNoteFor(lNote, lProgram, lChannel, lVolume, lAuditionMs);
}

void SoundNoteFor(int32_t lNote, int32_t lProgram, int32_t lChannel, int32_t lVolume, uint32_t cMilliseconds)
{
    HMIDIOUT const hOut = MidiOutHandle();
    if (!hOut || lNote < 0 || lNote > lHighestMidiValue)
        return;
    if (!MidiProgramChange(lChannel, lProgram) || !MidiNoteOn(hOut, lNote, lVolume, lChannel))
        return;
    Sleep(cMilliseconds);
    uint32_t const dwOff =
        static_cast<uint32_t>(lVolume) << 16 | static_cast<uint32_t>(lNote) << 8 | nNoteOffOnChannel1;
    MidiOut_Check("MidiOutShortMsg", MidiOut_Send(hOut, dwOff));
}
} // namespace zarn

/// A Standard MIDI File as a Score.
#pragma once
#include "platform/files.h"

#include <cstdint>

namespace zarn
{
/// What ReadMidiFile gives beside the numbers of a damaged event, which are below 0.
enum MidiFileError : int32_t
{
    MIDI_FILE_READ = 0,
    MIDI_FILE_SHORT = 1,         ///< no whole header
    MIDI_FILE_NOT_MIDI = 2,      ///< it doesn't begin "MThd"
    MIDI_FILE_HEADER_LENGTH = 3, ///< of another length than 6
    MIDI_FILE_FORMAT = 4,        ///< neither 0 nor 1
    MIDI_FILE_NO_TRACK = 5,      ///< no "MTrk" where a track must begin
    MIDI_FILE_TRACK_LENGTH = 6,  ///< the file ends in it
    MIDI_FILE_DIVISION = 7,      ///< none, or one in frames of film
};

/// Reads a file of format 0 or 1 from the handle's place, behind the insert point, or into staff 1 when there is none:
/// one staff shows for each channel that has notes, the notes all go to one. Rough: lengths are guessed, chords are
/// what begins together. Lays out what came in. 0, or what is wrong; what was read up to there stays in the Score.
[[nodiscard]] int32_t ReadMidiFile(HFILE hFile);
} // namespace zarn

/// Guitar chord symbols as sound.
#pragma once
#include "midi/play_record.h"

#include <cstdint>
#include <string_view>

namespace zarn
{
inline bool fPlayChords = true;     ///< option "Play guitar chords"
inline int32_t lLastChordRoot = -1; ///< of the chord before, adjusted already; never reset by a build
inline int32_t lLastChordKind = -1;

/// Root as a MIDI note and kind 1 to 9 of a chord symbol; -1 and -1 for silence. Remembers both for a later "/".
void ParseGuitarChord(std::string_view sText, int32_t* plRoot, int32_t* plKind, int32_t lTranspose);

/// The four voices that sound; -1 is none.
struct ChordVoices
{
    int32_t alChordNotes[4] = {-1, -1, -1, -1};
};

/// Stops the chord that sounds and starts this one, at record's time; a kind below 1 is silence. All on channel 1,
/// whatever staff the symbol stands on.
void PlayGuitarChord(PlayRecords& records, PlayRecord record, ChordVoices& voices, int32_t lRoot, int32_t lKind);
} // namespace zarn

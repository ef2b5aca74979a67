/// The arithmetic among the three forms of pitch: diatonic position, separate accidentals, MIDI note.
///
/// Keys count sharps above 0 and flats below. An accidental, as a state or a request, is 0 none (what the key says),
/// 1 sharp, -1 flat, 2 natural.
#pragma once
#include "core/score.h"

#include <cstdint>

namespace zarn
{
inline bool fClarinetTranspose = false; ///< option: sound 2 semitones lower; excludes fGuitarTranspose
inline bool fGuitarTranspose = false;   ///< option: sound 12 semitones lower

/// Bit s is set when a key of that many sharps or flats alters scale step s (0 is C).
extern int32_t const aSharpKeys[8];
extern int32_t const aFlatKeys[8];

/// The mask that a read of aFlatKeys at -lKey, for lKey 0 to 7, has always given: aFlatKeys lay directly behind
/// aSharpKeys, and a negative index reads that one backward. The results are part of the behaviour.
[[nodiscard]] int32_t FlatMaskReadBackward(int32_t lKey);

/// The key's own sharp or flat mask for its steps, 0 for a key outside -7..7: such a key alters nothing.
[[nodiscard]] int32_t SharpMask(int32_t lKey); ///< for lKey 0 to 7
[[nodiscard]] int32_t FlatMask(int32_t lKey);  ///< for lKey 0 to -7

/// The accidental that the key itself gives a position: 1, -1 or 0. Positions below -70 give 0.
[[nodiscard]] int32_t KeyAccid(int32_t lKey, int32_t lDiaPitch);

/// The sorts that end every accidental ahead of them: bars of all kinds, a clef, a key signature.
[[nodiscard]] bool Sort_EndsAccidentals(int32_t sort);
/// The state that a SHARP, FLAT or NATURAL puts in force: 1, -1 or 2; 0 for any other sort.
[[nodiscard]] int32_t AccidentalState(int32_t sort);

/// The accidental in force at a place from the elements of its bar, looking back from pel inclusive at its own staff.
[[nodiscard]] int32_t AccidStateAt(Element const* pel, int32_t lDiaPitch);

/// The MIDI note of a position under a key and an accidental, with the options' and lTranspose's semitones.
[[nodiscard]] int32_t MidiFromPitch(int32_t lDiaPitch, int32_t lKey, int32_t lAcc, int32_t lTranspose);

/// Spells a MIDI note at a place; gives the accidental that is needed there: 0 none, 1, -1, or 2.
int32_t PitchFromMidi(Element const* pel, int32_t lMidi, int32_t* plDiaPitch);

/// The spelling alone, with no regard to what stands in the bar: the accidental 0, 1 or -1 by the key's direction.
int32_t SpellMidi(int32_t lMidi, int32_t lKey, int32_t* plDiaPitch);

/// 1 when this accidental applies to a later note: one of its position before the next BAR or the next such accidental.
[[nodiscard]] int32_t AccidNeeded(Element const* pelAccid);

/// Adds an accidental (0 and 2 natural, 1 sharp, -1 flat) made from a copy of the note, ahead of it or behind it.
void AddAccidental(Element* pelNote, int32_t lAccid, int32_t lDiaPitch, bool bBefore);

/// The element ahead of pel, after deleting pel with List_Delete.
Element* DeleteBackward(Element* pel);

/// The key's name for an ABC file; "Unknown" outside -6..6.
[[nodiscard]] char const* KeyName(int32_t lKey);
} // namespace zarn

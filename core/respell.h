/// Rewriting the accidentals of a passage when a key signature arrives.
#pragma once
#include "core/pitch.h"

namespace zarn
{
/// Respells, from pel up to the next KEYSIG, each note that stands on an accidental against the direction of lKey.
/// Gives that KEYSIG, or null at the end of the staff.
Element* MakeAccidentalsMatchKeySig(int32_t lKey, Element* pel);

/// The same over a whole staff, 1 to 8, with each key signature in turn.
void MakeStaffMatchKeySigs(int32_t lStaff);

/// Keeps the sound of the notes from pel up to the next KEYSIG, by adding accidentals; gives the first element of the
/// changed range, null for a null pel.
Element* KeepPitchesOverKeyChange(int32_t lNewKey, int32_t lOldKey, Element* pel);
} // namespace zarn

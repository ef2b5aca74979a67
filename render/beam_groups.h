/// Which short notes share a beam, and which way their stems point: decided in the layout, read by the drawing.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Cuts a staff's short notes into groups by the metre, from pelFirst to the end.
void AutoBeam(Element* pelFirst);
/// Chooses one stem direction for the notes from first to last and writes beam and up; does nothing when either is null
/// or both lie in one chord.
void SetBeamGroup(Element* pelFirst, Element* pelLast);
/// After placing: undoes each beam set that lacks its end or runs over a line's end.
void BeamCheck(List list);
/// True when pelB is reached from pelA within one chord.
[[nodiscard]] bool SameChord(Element const* pelA, Element const* pelB);
/// Plain and dotted notes beam together, triplets only with triplets.
[[nodiscard]] bool SameFamily(int32_t lDurationA, int32_t lDurationB);
/// Writes beam on all notes of pel's chord.
void SetChordBeam(Element* pel, int32_t lBeam);
/// The next note behind pel that a beam can reach; bStemEnd asks for the note at the stem's end of its chord.
[[nodiscard]] Element* NextBeamable(Element* pel, bool bStemEnd);
/// The last note of the set that begins at pel, repairing the set on the way; null when there is none.
Element* EndOfBeamSet(Element* pel);
/// The greatest duration of the set's notes from pel on.
[[nodiscard]] int32_t LongestInSet(Element const* pel);
} // namespace zarn

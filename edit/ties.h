/// Ties: a TIE element that draws the arc, and flags on the notes that it joins, pitch by pitch.
#pragma once
#include "core/score.h"

namespace zarn
{
/// The note that a tie may reach from pel, looking at the elements next to it; null when something stops the walk, and
/// for a null pel. A tie may run back over a line's end; a walk forward stops at one.
[[nodiscard]] Element* TiePrevNote(Element* pel);
[[nodiscard]] Element* TieNextNote(Element* pel);
/// 1 if a TIE put ahead of pelPlace has two chords to join that share a pitch; otherwise 0, and the user is told. bShow
/// false keeps quiet about a missing note, but not about a null place or chords with nothing in common.
[[nodiscard]] int32_t TieCheck(Element* pelPlace, bool bShow);
/// Sets the flags on both chords; gives the TIE's lDiaPitch.
int32_t TieNotes(Element* pelPlace);
/// Clears the flags of a TIE that is about to go, or of any element that stands where a TIE stands.
void TieBreak(Element* pelTie);
/// 1 if the chords that begin at these notes share a lPitch. They are walked as a merge, in rising pitch.
[[nodiscard]] int32_t TieCommon(Element const* pelChordA, Element const* pelChordB);
/// Flags the notes of equal lPitch in the two chords as tied on and tied from.
void TieSetFlags(Element* pelChordA, Element* pelChordB);
/// For the sequential adders: ties the chord at pelInsertPoint to the one before it.
void AddTieAtInsertPoint();
} // namespace zarn

/// Ties: which notes they join, and their arcs.
#pragma once
#include "core/element.h"
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// An arc of three strokes; one whose ends differ in height runs over the end of a line of music, in two pieces. 0 when
/// both ends are off the page.
int32_t TieCurve(HDC hdc, POINT from, POINT to, bool bUnder);
/// The arcs for the pitches that the chords on both sides of a TIE share.
int32_t DrawTies(HDC hdc, Element* pelTie);
/// The note that pel is tied to; null when there is none.
[[nodiscard]] Element* FindTieTo(Element* pel);
/// Breaks a tie that has lost its other note, with a message. pelTo is what FindTieTo gives.
void CheckTie(Element* pel, Element* pelTo);
} // namespace zarn

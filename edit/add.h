/// Adding by position: a click, or the keyboard's add at the pointer.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Adds the current symbol at a place in device pixels; with a mark sign as current symbol, places that end of the mark
/// and gives null. hdc and hwnd may be null. Gives what AddElement gives; behind a TIE the note that it leads to.
Element* AddAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y);

/// Adds el ahead of pelPlace, null for the end of its staff: its lDiaPitch is in the treble frame. Gives the new
/// element; with bAutoLayout on, the score has been laid out and it gives what SkipPunctuationBack found from the new
/// one, or what stands ahead of that when the layout took it away. Null when a TIE has nothing to join.
Element* AddElement(HDC hdc, HWND hwnd, Element* pelPlace, RoomyElement el);

/// A note that joins a chord takes the length of the chord's note when its own is that one without dot or triplet.
void TakeChordDuration(Element& elNew, Element const* pelNote);

/// From pel up to the next CLEF, moves every element's lDiaPitch so that it keeps its place on the staff when the clef
/// ahead changes from lOldClef to lNewClef. Pitches are left to the next RefreshPitches, which the bar fingering of a
/// shown tablature runs ahead of the move.
void ShiftForClef(Element* pel, int32_t lOldClef, int32_t lNewClef);
} // namespace zarn

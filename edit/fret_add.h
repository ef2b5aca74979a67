/// A note from its place on the tablature.
#pragma once
#include "core/element.h"
#include "platform/user.h"

namespace zarn
{
/// Adds a note of the current symbol's length that sounds a fret of the string at a place, in device pixels, spelled in
/// the key there. Gives the new note, which keeps that string and fret; null when the current symbol isn't a note, of
/// which the user is told, when there is no string, and when memory has run out. hdc may be null.
Element* AddFretNote(HDC hdc, HWND hwnd, int32_t x, int32_t y, int32_t lFret);
} // namespace zarn

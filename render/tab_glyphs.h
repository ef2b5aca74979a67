/// What is drawn on the tablature below a staff. (x, y) is the place on the staff that stands above it; each reports 0
/// when it is off the page and drew nothing.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// The staff position, in the treble frame, that stands above a string.
[[nodiscard]] int32_t AboveString(int32_t lString);
/// A bar line from the last string, above which (x, y) stands, up to the first.
int32_t TabBarGlyph(HDC hdc, int32_t x, int32_t y);
/// The number of a fret, centred on its string.
int32_t FretNumber(HDC hdc, int32_t x, int32_t y, int32_t lFret);
} // namespace zarn

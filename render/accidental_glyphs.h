/// Sharps, flats and naturals, centred on (x, y). Each reports 0 when off the page.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
int32_t SharpGlyph(HDC hdc, int32_t x, int32_t y);
int32_t FlatGlyph(HDC hdc, int32_t x, int32_t y);
int32_t NaturalGlyph(HDC hdc, int32_t x, int32_t y);
} // namespace zarn

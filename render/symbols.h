/// One symbol from its element.
#pragma once
#include "core/element.h"
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
/// Draws one element under its clef, where lX and lY say, and rules its line of music once something of it has been
/// drawn. bCursor: it goes into the cursor bitmap. hwnd is null when printing. Always 1.
int32_t DrawSymbol(HDC hdc, HWND hwnd, Element* pel, int32_t lClef, bool bCursor);
} // namespace zarn

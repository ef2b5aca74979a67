/// Slurs.
#pragma once
#include "core/element.h"
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// An arc half a head wider than its notes and one head off them.
int32_t SlurCurve(HDC hdc, POINT from, POINT to, bool bUnder);
/// Draws the slur that begins at pel; a SLUR that ends one draws nothing. Writes the height used into lY of both ends.
int32_t DrawSlur(HDC hdc, Element* pel);
} // namespace zarn

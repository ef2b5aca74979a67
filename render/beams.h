/// Beams, drawn from the heads of their set alone.
#pragma once
#include "core/element.h"
#include "platform/user.h"

namespace zarn
{
/// Draws the beam of the set that begins at pel, and the stems up to it. Repairs a set that lacks its end.
void DrawBeamSet(HDC hdc, HWND hwnd, Element* pel);
} // namespace zarn

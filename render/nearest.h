/// Hit testing: the element at a place of the window.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// The element nearest to a place in device pixels, of those that are shown, less than about 45 pixels away. In the
/// first and last tenth of a line a place with nothing near reaches over the line's edge: to the last element ahead of
/// its column, or the first behind it. Null for none.
[[nodiscard]] Element* NearestElement(int32_t x, int32_t y);

/// Shows the nearest element in green, and the one that was green as it was.
void HighlightNearest(HDC hdc, HWND hwnd, int32_t x, int32_t y);

/// The leger lines that a note at the pointer would need, by the treble clef. Nothing erases them but a repaint.
void DrawCursorLegers(HDC hdc, int32_t x, int32_t y);
} // namespace zarn

/// Painting the Score, or a range of it.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Paints the elements from lFromStrX on; lToStrX ends it when printing. hwnd is null when printing. True when
/// something real lies beyond lToStrX.
bool DrawScore(HDC hdc, HWND hwnd, int32_t lFromStrX, int32_t lToStrX);
/// Paints what lies on the page.
void DrawVisible(HDC hdc, HWND hwnd);
/// One element, under its clef. bCursor: it goes into the cursor bitmap.
int32_t DrawSymbol(HDC hdc, HWND hwnd, Element* pel, int32_t lClef, bool bCursor);
} // namespace zarn

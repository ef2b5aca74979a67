/// Painting the Score, or a range of it.
#pragma once
#include "platform/user.h"
#include "render/symbols.h"

namespace zarn
{
/// Paints the elements from lFromStrX on; lToStrX ends it when printing. hwnd is null when printing. True when
/// something real lies beyond lToStrX.
bool DrawScore(HDC hdc, HWND hwnd, int32_t lFromStrX, int32_t lToStrX);
/// Paints what lies on the page.
void DrawVisible(HDC hdc, HWND hwnd);
/// The columns that lie on the page between two heights in pixels: plFrom the first of the line where the page begins,
/// plTo that of the first line below its foot.
void VisibleRange(int32_t lYFoot, int32_t lYHead, int32_t* plTo, int32_t* plFrom);
} // namespace zarn

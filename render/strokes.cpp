// Strokes. HLine and VLine count their thickness in staff spaces, Stroke in rows.
#include "render/strokes.h"

#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
/// t per cent of a staff space in pixels, rounded.
static int32_t SpacePerCent(int32_t t)
{
    int64_t const lRows = lRowsPerPage;
    return static_cast<int32_t>((int64_t{t} * lPageHeight * lStaffSpace + lRows * 50) / (lRows * 100));
}

void HairLine(HDC hdc, int32_t x1, int32_t y1, int32_t x2, int32_t y2)
{
    MoveToEx(hdc, x1, y1);
    LineTo(hdc, x2, y2);
    if (!bPrintScale)
        return;
    MoveToEx(hdc, x1, y1 + 1);
    LineTo(hdc, x2, y2 + 1);
    MoveToEx(hdc, x2, y2);
}

void HLine(HDC hdc, int32_t x1, int32_t y, int32_t x2, int32_t t)
{
    int32_t const h = SpacePerCent(t) / 2;
    if (h >= 1)
        Rectangle(hdc, x1, y - h, x2, y + h);
    else
        Rectangle(hdc, x1, y, x2, y + 1);
}

void VLine(HDC hdc, int32_t x, int32_t y1, int32_t y2, int32_t t)
{
    int32_t const h = SpacePerCent(t) / 2;
    y1 = std::clamp(y1, -lFurthest, lFurthest);
    y2 = std::clamp(y2, -lFurthest, lFurthest);
    if (h >= 1)
        Rectangle(hdc, x - h, y1, x + h, y2);
    else
        Rectangle(hdc, x, y1, x + 1, y2);
}

void Stroke(HDC hdc, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t t, bool bUpright)
{
    constexpr int32_t lThick = 35; // per cent of a staff space, which is 70 of a row
    int64_t const w = t ? std::max(t / 2, 1) : lThick;
    auto const lPixels =
        static_cast<int32_t>(std::max<int64_t>(lPageHeight * w * lStaffSpace / (int64_t{lRowsPerPage} * 100), 1));
    int32_t const h = lPixels / 2;
    int32_t const dx = bUpright ? h : 0;
    int32_t const dy = bUpright ? 0 : h;
    POINT const aCorners[] = {{x1 - dx, y1 - dy}, {x1 + dx, y1 + dy}, {x2 + dx, y2 + dy}, {x2 - dx, y2 - dy}};
    Polygon(hdc, aCorners, 4);
}

void PenStep(HDC hdc, int32_t dx, int32_t dy, int32_t t)
{
    POINT const from = ptPen;
    ptPen.x += static_cast<int32_t>(int64_t{dx} * lPageWidth / (int64_t{lColsPerLine} * 2));
    ptPen.y += static_cast<int32_t>(int64_t{dy} * lPageHeight / (int64_t{lRowsPerPage} * 2));
    Stroke(hdc, from.x, from.y, ptPen.x, ptPen.y, t);
}

void Dot(HDC hdc, int32_t x, int32_t y)
{
    int32_t const left = x - (lBlobX >> 2);
    int32_t const top = y - (lBlobY >> 2);
    Ellipse(hdc, left, top, left + lBlobX / 2, top + lBlobY / 2);
}

int32_t LegerLine(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    MoveToEx(hdc, x - lBlobX, y);
    LineTo(hdc, x + lBlobX, y);
    return 1;
}

int32_t DrawText(HDC hdc, int32_t x, int32_t y, std::string_view sText, bool bCentred)
{
    if (OffPage(y))
        return 0;
    SetBkMode(hdc, TRANSPARENT);
    ExtTextOutA(hdc, bCentred ? x - lBlobX / 2 : x, y, sText);
    return 1;
}
} // namespace zarn

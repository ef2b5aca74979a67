// Hit testing walks all elements: their pixels are known, and a look at each costs less than any order to keep.
#include "render/nearest.h"

#include "render/colours.h"
#include "render/geometry.h"
#include "render/legers.h"
#include "render/symbols.h"
#include "render/tab_band.h"

namespace zarn
{
constexpr int64_t lFarthestSquared = 2000; ///< pixels; no longer near

static int64_t DistanceSquared(POINT from, int32_t x, int32_t y)
{
    int64_t const dx = int64_t{from.x} - x;
    int64_t const dy = int64_t{from.y} - y;
    // A folded place is within 32 bits, so a square may not be.
    if (dx >= lFarthestSquared || dx <= -lFarthestSquared || dy >= lFarthestSquared || dy <= -lFarthestSquared)
        return lFarthestSquared;
    return dx * dx + dy * dy;
}

/// Where a click means an element: the symbol itself, or on the tablature the number of its fret.
static POINT PlaceOf(Element const* pel, bool bTablature)
{
    POINT place{pel->lX, pel->lY};
    if (bTablature)
        TabFold(pel->lStrX, pel->lString, pel->lStaff, &place.x, &place.y);
    return place;
}

static Element* NearestShown(int32_t x, int32_t y)
{
    bool const bTablature = OnTablature(x, y);
    Element* pelNearest = nullptr;
    int64_t lNearest = lFarthestSquared;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsVisible(lStaff))
            continue;
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            if (pel->fHidden || (bTablature && pel->sort != NOTE))
                continue;
            int64_t const lDistance = DistanceSquared(PlaceOf(pel, bTablature), x, y);
            if (lDistance < lNearest)
            {
                lNearest = lDistance;
                pelNearest = pel;
            }
        }
    }
    return pelNearest;
}

static Element* OverTheEdge(int32_t x, int32_t y)
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(x, y, &lStrX, &lDiaPitch, &lStaff, 1);
    int32_t const lStart = LineStart(lStrX);
    int32_t const lNext = NextLine(lStrX);
    if (lStrX < lStart + (lNext - lStart) / 10)
    {
        Element* pel = StaffLast(lStaff);
        while (pel && pel->lStrX >= lStrX)
            pel = Prev(pel);
        return pel;
    }
    if (lStrX > lNext + (lStart - lNext) / 10)
    {
        Element* pel = StaffFirst(lStaff);
        while (pel && pel->lStrX <= lStrX)
            pel = Next(pel);
        return pel;
    }
    return nullptr;
}

Element* NearestElement(int32_t x, int32_t y)
{
    Element* const pel = NearestShown(x, y);
    return pel ? pel : OverTheEdge(x, y);
}

void HighlightNearest(HDC hdc, HWND hwnd, int32_t x, int32_t y)
{
    Element* const pelNew = NearestElement(x, y);
    if (pelHighlight && hdc)
        DrawSymbol(hdc, hwnd, pelHighlight, ClefAt(pelHighlight), false);
    pelHighlight = pelNew;
    if (!pelNew || !hdc)
        return;
    BeginGreen(hdc);
    DrawSymbol(hdc, hwnd, pelNew, ClefAt(pelNew), false);
    EndColour(hdc);
}

void DrawCursorLegers(HDC hdc, int32_t x, int32_t y)
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(x, y, &lStrX, &lDiaPitch, &lStaff, 1);
    if (hdc)
        DrawLegers(hdc, x, lStrX, lStaff, lDiaPitch, 1);
}
} // namespace zarn

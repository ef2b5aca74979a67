#include "edit/neighbours.h"

#include "core/text.h"
#include "edit/delete.h"
#include "render/geometry.h"
#include "render/nearest.h"

namespace zarn
{
BetweenPlace FollowNeighbours(POINT place, Element const* pelA, Element const* pelB)
{
    BetweenPlace between;
    int32_t lStrX = 0;
    Draw_Straighten(place.x, place.y, &lStrX, &between.lDiaPitch, &between.lStaff, 1);
    if (pelA && pelB)
    {
        int64_t const lSpan = int64_t{pelB->lStrX} - pelA->lStrX;
        between.lPercent = lSpan == 0 ? 0 : Clamp32((int64_t{lStrX} - pelA->lStrX) * 100 / lSpan);
    }
    else if (Element const* const pel = pelA ? pelA : pelB)
        between.lPercent = Clamp32(int64_t{lStrX} - pel->lStrX);
    return between;
}

POINT ToPositionBetween(Element const* pelA, Element const* pelB, BetweenPlace const& between, POINT place)
{
    int64_t lStrX = 0;
    if (pelA && pelB)
        lStrX = pelA->lStrX + ((int64_t{pelB->lStrX} - pelA->lStrX) * between.lPercent + 50) / 100;
    else if (Element const* const pel = pelA ? pelA : pelB)
        lStrX = int64_t{pel->lStrX} + between.lPercent;
    else
        return place;
    Draw_Fold(Clamp32(lStrX), between.lDiaPitch, between.lStaff, 1, &place.x, &place.y);
    return place;
}

POINT DeleteAtMouse(HDC hdc, HWND hwnd, POINT place)
{
    Element* const pel = NearestElement(place.x, place.y);
    if (pel == pelHighlight)
        pelHighlight = nullptr;
    if (!pel)
        return place;
    // The pointer goes to where the element stood, as its neighbours move.
    KeptCursor const ahead(SkipPunctuationBack(Prev(pel)));
    KeptCursor const behind(SkipPunctuationForward(Next(pel)));
    place = {pel->lX, pel->lY};
    BetweenPlace const between = FollowNeighbours(place, ahead.pel, behind.pel);
    int32_t const bRepaint = DeleteElement(hdc, hwnd, pel, true);
    place = ToPositionBetween(ahead.pel, behind.pel, between, place);
    if (bRepaint)
        InvalidateRect(hwnd);
    return place;
}
} // namespace zarn

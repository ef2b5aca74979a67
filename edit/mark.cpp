// Each end pulls the other along, so that the end never lies ahead of the begin.
#include "edit/mark.h"

#include "render/geometry.h"

namespace zarn
{
static void SetSymbol(int32_t sort)
{
    if (elSavedCurrent.sort == NOSORT)
        elSavedCurrent = elCurrent;
    Element_Init(&elCurrent);
    elCurrent.sort = sort;
}

void Mark_SetBeginSymbol() { SetSymbol(MARKBEGIN); }

void Mark_SetEndSymbol() { SetSymbol(MARKEND); }

static void RestoreSymbol()
{
    if (elSavedCurrent.sort == NOSORT)
        return;
    elCurrent = elSavedCurrent;
    elSavedCurrent.sort = NOSORT;
}

namespace
{
/// The element at or ahead of a position; staff 0 when that one doesn't show.
struct MarkedPlace
{
    Element* pelAtOrBefore = nullptr;
    int32_t lStaff = 0;
};
} // namespace

static MarkedPlace PlaceAt(int32_t x, int32_t y)
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(x, y, &lStrX, &lDiaPitch, &lStaff, 1);
    if (!IsVisible(lStaff))
        return {};
    return {FindAtOrBefore(lStrX, lStaff), lStaff};
}

static bool InOrder(Element const* pelA, Element const* pelB) { return List_InOrder(pelA, pelB) != 0; }

bool MarkBeginAt(HWND hwnd, int32_t x, int32_t y)
{
    RestoreSymbol();
    MarkedPlace const place = PlaceAt(x, y);
    pelMarkBegin = place.pelAtOrBefore ? Next(place.pelAtOrBefore) : StaffFirst(place.lStaff ? place.lStaff : -1);
    InvalidateRect(hwnd);
    if (!InOrder(pelMarkBegin, pelMarkEnd))
        pelMarkEnd = pelMarkBegin;
    return pelMarkBegin != nullptr;
}

bool MarkEndAt(HWND hwnd, int32_t x, int32_t y)
{
    RestoreSymbol();
    pelMarkEnd = PlaceAt(x, y).pelAtOrBefore;
    InvalidateRect(hwnd);
    if (!InOrder(pelMarkBegin, pelMarkEnd))
        pelMarkBegin = pelMarkEnd;
    return pelMarkEnd != nullptr;
}

void MarkClear(HWND hwnd)
{
    pelMarkBegin = pelMarkEnd = nullptr;
    InvalidateRect(hwnd);
}
} // namespace zarn

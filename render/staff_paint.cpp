// Painting along one staff. The clef is carried along.
//
// Blue has no end of its own: an overrun turns what is behind it on the staff blue as well, so that the user sees where
// the lengths stop adding up.
#include "render/staff_paint.h"

#include "render/beams.h"
#include "render/colours.h"
#include "render/geometry.h"
#include "render/symbols.h"
#include "render/ties.h"

namespace zarn
{
static void PaintElement(HDC hdc, HWND hwnd, Element* pel, int32_t lClef)
{
    if (pel->fOverBar)
        BeginBlue(hdc);
    else if (pel == pelMarkBegin && !bPrinting)
        BeginRed(hdc);
    DrawSymbol(hdc, hwnd, pel, lClef, false);
    if (pel->beam == BEAM_FIRST && bBeamQuavers)
        DrawBeamSet(hdc, hwnd, pel);
    if (pel->sort == NOTE && (pel->lA & fTiedOn))
        CheckTie(pel, FindTieTo(pel));
    if (pel == pelMarkEnd)
        EndColour(hdc);
}

StaffPlace PaintStaff(HDC hdc, HWND hwnd, StaffPlace place, int32_t lFromStrX, int32_t lToStrX)
{
    for (; place.pel; place.Step())
    {
        if (place.pel->lStrX < lFromStrX)
            continue;
        if (place.pel->lStrX >= lToStrX)
            break;
        PaintElement(hdc, hwnd, place.pel, place.ClefHere());
    }
    EndColour(hdc);
    return place;
}

bool IsAnythingLeft(Element const* pel)
{
    while (pel && (pel->sort == NEWLINE || pel->sort == SPACE))
        pel = Next(pel);
    return pel != nullptr;
}
} // namespace zarn

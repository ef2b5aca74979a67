// Accidentals that a panel adds.
#include "edit/accidental.h"

#include "render/draw_score.h"
#include "render/geometry.h"

namespace zarn
{
Element* AddAccidentalAt(HDC hdc, HWND hwnd, int32_t lStrX, int32_t lDiaPitch, int32_t lStaff, Element* pelAfter,
                         int32_t lAccid, int32_t lClef)
{
    Element el;
    el.sort = lAccid == 1 ? SHARP : lAccid == -1 ? FLAT : NATURAL;
    el.lStrX = lStrX;
    el.lDiaPitch = lDiaPitch;
    el.lStaff = lStaff;
    Draw_FoldElement(&el, lClef);
    List_AddAfter(aStaffList[lStaff], pelAfter, &el, cbPlainElement);
    Element* const pel = pelAfter ? Next(pelAfter) : StaffFirst(lStaff);
    if (hdc && pel)
        DrawSymbol(hdc, hwnd, pel, lClef, false);
    return pel;
}
} // namespace zarn

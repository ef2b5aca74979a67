// The view's switch. While it is on a system is twice as high, which each fold reads from it.
#include "tab/tablature.h"

#include "edit/fret_add.h"
#include "layout/adjust.h"
#include "render/geometry.h"

namespace zarn
{
void Tab_SetShown(bool bOn) { bTabShowing = bOn; }

bool Tab_IsShown() { return bTabShowing; }

bool Tab_NoteFromFret(HDC hdc, HWND hwnd, int32_t x, int32_t y, int32_t lFret)
{
    if (!AddFretNote(hdc, hwnd, x, y, lFret))
        return false;
    FullAdjust();
    InvalidateRect(hwnd);
    return true;
}
} // namespace zarn

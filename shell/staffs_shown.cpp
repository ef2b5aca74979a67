// Showing and hiding staffs: systems grow and shrink, so the scroll follows to keep the same music in view.
#include "shell/staffs_shown.h"

#include "core/messages.h"
#include "layout/adjust.h"
#include "layout/bars.h"
#include "layout/place.h"
#include "render/geometry.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"

namespace zarn
{
constexpr int32_t lTreble = 1;

/// The first column of the system at the top of the page.
static int32_t ViewStart()
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(lLeftMarginPx, lTopMarginPx, &lStrX, &lDiaPitch, &lStaff, lTreble);
    return lStrX;
}

/// Moves the view by one staff band; false when it didn't move.
static bool ScrollOneLine(int32_t n)
{
    int32_t const lBefore = lScroll;
    ScrollLines(n);
    return lScroll != lBefore;
}

void ShowOrHideStaff(int32_t lStaff)
{
    int32_t const lView = ViewStart();
    bool const bShown = ToggleStaff(lStaff); // a second staff hides the tablature
    Menu_Check(COMMAND_SHOWSTAFF + lStaff, bShown);
    FullAdjust();
    if (bShown)
    {
        while (ViewStart() < lView && ScrollOneLine(1))
        {
        }
        SeedStaff(lStaff);
        FullAdjust();
    }
    else
    {
        while (ViewStart() > lView && ScrollOneLine(-1))
        {
        }
        ReGrid();
    }
    InvalidateRect(hwndMain);
}
} // namespace zarn

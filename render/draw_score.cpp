// One paint of the Score.
//
// On the screen a paint goes on to the end of each staff: what lies far off the page draws nothing, and painting mends
// beams, ties and slurs as it passes them.
#include "render/draw_score.h"

#include "layout/right_justify.h"
#include "render/geometry.h"
#include "render/ruled_lines.h"
#include "render/ruling.h"
#include "render/staff_paint.h"
#include "render/tab_band.h"
#include "tab/tuning.h" // where the tablature ends

#include <algorithm>
#include <limits>

namespace zarn
{
constexpr int32_t lNoColumn = std::numeric_limits<int32_t>::max();

bool DrawScore(HDC hdc, HWND hwnd, int32_t lFromStrX, int32_t lToStrX)
{
    RuledLines_Reset();
    int32_t const lLimit = bPrinting ? lToStrX : lNoColumn;
    bool bMore = false;
    int32_t lMostScroll = 0;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsVisible(lStaff))
            continue;
        if (bRightJustified)
            RightJustifyStaff(aStaffList[lStaff]);
        StaffPlace const stopped = PaintStaff(hdc, hwnd, {StaffFirst(lStaff), 1}, lFromStrX, lLimit);
        bMore = bMore || IsAnythingLeft(stopped.pel);
        Element const* const pelLast = StaffLast(lStaff);
        if (!pelLast)
        {
            RuleLine(hdc, hwnd, 1); // an empty staff still shows
            continue;
        }
        int32_t yFoot = 0;
        int32_t lScrollRows = 0;
        ScrollBottom(pelLast->lStrX, HighestVisible(), &yFoot, &lScrollRows);
        lMostScroll = std::max(lMostScroll, lScrollRows);
    }
    if (hwnd)
        SetScrollRange(hwnd, lMostScroll < lNoColumn ? lMostScroll + 1 : lMostScroll);
    return bMore;
}

/// Whether a note's tablature does.
static bool TabReachesBelow(Element const* pel, int32_t lYFoot)
{
    if (!bTabShowing || pel->sort != NOTE)
        return false;
    int32_t x = 0;
    int32_t yLastString = 0;
    TabFold(pel->lStrX, Tab_UsedStrings(), pel->lStaff, &x, &yLastString);
    return yLastString > lYFoot;
}

void VisibleRange(int32_t lYFoot, int32_t lYHead, int32_t* plTo, int32_t* plFrom)
{
    int32_t lTo = lNoColumn;
    int32_t lFrom = lNoColumn;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsVisible(lStaff))
            continue;
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            int32_t x = 0;
            int32_t yBottomLine = 0;
            Draw_Fold(pel->lStrX, 2, lStaff, 1, &x, &yBottomLine);
            if (pel->lY > lYFoot || yBottomLine > lYFoot || TabReachesBelow(pel, lYFoot))
                lTo = std::min(lTo, pel->lStrX);
            if (pel->lY > lYHead)
                lFrom = std::min(lFrom, pel->lStrX);
        }
    }
    *plFrom = lFrom != lNoColumn ? LineStart(lFrom) : lTo;
    *plTo = lTo != lNoColumn ? LineStart(lTo) : lTo;
}

void DrawVisible(HDC hdc, HWND hwnd)
{
    int32_t lTo = 0;
    int32_t lFrom = 0;
    VisibleRange(lTopMarginPx + lPageHeight, lTopMarginPx, &lTo, &lFrom);
    DrawScore(hdc, hwnd, lFrom, lTo);
}
} // namespace zarn

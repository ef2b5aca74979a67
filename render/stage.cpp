// Which staffs show, and the bands that they stand on.
#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
/// Tablature stands below one staff alone.
static void HideTablatureUnderMore()
{
    if (lStaffCount > 1)
        bTabShowing = false;
}

bool ToggleStaff(int32_t lStaff)
{
    if (lStaff < 0 || lStaff > lHighestStaff)
        return false;
    bool const bShown = abStaffVisible[lStaff] = !abStaffVisible[lStaff];
    for (int32_t l = lStaff; l <= lHighestStaff; ++l)
        aStaffRow[l] += bShown ? 1 : -1;
    lStaffCount = VisibleCount();
    int32_t lBand = 1;
    for (int32_t l = 1; l <= lHighestStaff; ++l)
        if (IsVisible(l))
            aRowStaff[lBand++] = l;
    // A band without a staff holds its own number; no click gets there.
    for (; lBand <= lHighestStaff; ++lBand)
        aRowStaff[lBand] = lBand;
    HideTablatureUnderMore();
    return bShown;
}

void SetStaffCount(int32_t n)
{
    lStaffCount = std::clamp(n, 0, lHighestStaff);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        abStaffVisible[lStaff] = lStaff <= lStaffCount;
        aStaffRow[lStaff] = aRowStaff[lStaff] = std::min(lStaff, lStaffCount);
    }
    HideTablatureUnderMore();
}

int32_t VisibleCount()
{
    int32_t lCount = 0;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        lCount += IsVisible(lStaff);
    return lCount;
}

int32_t HighestVisible()
{
    int32_t lStaff = lHighestStaff;
    while (lStaff > 0 && !IsVisible(lStaff))
        --lStaff;
    return lStaff;
}

bool IsVisible(int32_t lStaff) { return lStaff >= 1 && lStaff <= lHighestStaff && abStaffVisible[lStaff]; }
} // namespace zarn

// Folding for the tablature.
#include "render/tab_band.h"

#include "core/text.h"
#include "render/device_place.h"
#include "render/geometry.h"
#include "tab/tuning.h" // how many strings there are, which only the instrument can tell

#include <algorithm>

namespace zarn
{
constexpr int32_t lRowsToString = 2;

/// From a staff to its tablature.
static int64_t BandPixels() { return int64_t{yunit} * lStaffHeight; }

void TabFold(int32_t lStrX, int32_t lString, int32_t lStaff, int32_t* plX, int32_t* plY)
{
    int64_t const lCols = std::max(lColsPerLine, 1);
    int64_t const lLine = lStrX / lCols;
    int64_t const lBand = aStaffRow[std::clamp(lStaff, 0, lHighestStaff)];
    int64_t const lRows = SystemHeight() * lLine + (lBand - 1) * lStaffHeight + int64_t{lRowsToString} * lString -
                          lRowsToString - lScroll + lTopOffset + lLegersAbove;
    *plX = DevicePlace(lLeftMarginPx + lStrX % lCols * lPageWidth / lCols);
    *plY = DevicePlace(int64_t{Clamp32(lRows)} * lPageHeight / std::max(lRowsPerPage, 1) + BandPixels() + lTopMarginPx);
}

namespace
{
struct TabPlace
{
    int32_t lStrX = 0;
    int64_t lRow = 0; ///< below string 1
};

TabPlace PlaceOf(int32_t lX, int32_t lY)
{
    int64_t const lHeight = std::max(lPageHeight, 1);
    int64_t const lWidth = std::max(lPageWidth, 1);
    int64_t const lCols = std::max(lColsPerLine, 1);
    int64_t const lBelow = Clamp32(lY - BandPixels() - lTopMarginPx);
    int64_t const lRows = (lHeight / 2 + lBelow * std::max(lRowsPerPage, 1)) / lHeight - lTopOffset + int64_t{lScroll};
    int64_t const lCol = (lWidth / 2 + int64_t{Clamp32(int64_t{lX} - lLeftMarginPx)} * lCols) / lWidth;
    // A system of no height has no place below its top.
    int64_t const lSystem = SystemHeight();
    int64_t const lLine = lSystem != 0 ? lRows / lSystem : 0;
    int64_t const lRest = lSystem != 0 ? lRows % lSystem : lRows;
    return {Clamp32(lCol + int64_t{Clamp32(lLine)} * lCols), lRest - lLegersAbove};
}
} // namespace

void TabStraighten(int32_t lX, int32_t lY, int32_t* plStrX, int32_t* plString, int32_t* plStaff)
{
    TabPlace const place = PlaceOf(lX, lY);
    *plStrX = place.lStrX;
    *plStaff = aRowStaff[1];
    int64_t const lStrings = Tab_UsedStrings();
    *plString =
        lStrings == 0 ? 0 : static_cast<int32_t>(std::clamp<int64_t>(place.lRow / lRowsToString + 1, 1, lStrings));
}

bool OnTablature(int32_t x, int32_t y)
{
    if (!bTabShowing)
        return false;
    int64_t const lRow = PlaceOf(x, y).lRow;
    return lRow >= 0 && lRow <= lRowsToString * (int64_t{Tab_UsedStrings()} - 1);
}
} // namespace zarn

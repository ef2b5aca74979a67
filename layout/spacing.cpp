// The arithmetic behind the spacing commands.
#include "layout/spacing.h"

#include "core/settings.h"
#include "core/text.h"
#include "layout/adjust.h"
#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lStretchPart = 20;    ///< a step is this part of the whole
constexpr int32_t lMostOfWindow = 80;   ///< per cent that two opposite margins may take
constexpr int32_t lWholeWindow = 100;   ///< per cent
constexpr int32_t lRowsBelowLegers = 1; ///< kept free besides the leger notes asked for

static int32_t Held(int64_t lColsOrRows)
{
    return static_cast<int32_t>(std::clamp<int64_t>(lColsOrRows, 1, lMostColsOrRows));
}

static int32_t Step(int32_t lColsOrRows) { return std::max(lColsOrRows / lStretchPart, 1); }

static void LayOutAnew()
{
    SetUnits();
    FullAdjust();
}

void Stretch_Horiz()
{
    lColsPerLine = Held(int64_t{lColsPerLine} - Step(lColsPerLine));
    LayOutAnew();
}

void Squeeze_Horiz()
{
    lColsPerLine = Held(int64_t{lColsPerLine} + Step(lColsPerLine));
    LayOutAnew();
}

void Stretch_Vert()
{
    lRowsPerPage = Held(int64_t{lRowsPerPage} - Step(lRowsPerPage));
    LayOutAnew();
}

void Squeeze_Vert()
{
    lRowsPerPage = Held(int64_t{lRowsPerPage} + Step(lRowsPerPage));
    LayOutAnew();
}

void Spacing_Reset()
{
    lColsPerLine = lDefaultColsPerLine;
    lRowsPerPage = lDefaultRowsPerPage;
    LayOutAnew();
}

void Spacing_SaveAsDefault()
{
    // The names say the opposite of what they hold, and stored settings rely on it.
    SaveSetting(lRowsPerPage, "ColSpacing");
    SaveSetting(lColsPerLine, "LineSpacing");
}

static void RenewStaffHeight() { lStaffHeight = Clamp32(int64_t{lLegersAbove} + 4 * lStaffSpace + lLegersBelow); }

void Legers_SetAbove(int32_t lRows)
{
    lLegersAbove = lRows;
    RenewStaffHeight();
}

void Legers_SetBelow(int32_t lRows)
{
    lLegersBelow = Clamp32(int64_t{lRows} + lRowsBelowLegers);
    RenewStaffHeight();
}

void Systems_SetGap(int32_t lRows) { lExtraBetweenSystems = lRows; }

static void SetMargin(int32_t& lMargin, int32_t lOpposite, int32_t& lColsOrRows, int32_t lPerCent)
{
    int32_t const lNew = std::min(Clamp32(int64_t{lMostOfWindow} - lOpposite), lPerCent);
    int64_t const lWas = Clamp32(int64_t{lWholeWindow} - lOpposite - lMargin);
    int64_t const lIs = Clamp32(int64_t{lWholeWindow} - lOpposite - lNew);
    if (lWas > 0) // stored margins can have left nothing to compare with
        lColsOrRows = Held(lIs * lColsOrRows / lWas);
    lMargin = lNew;
}

void Margin_SetLeft(int32_t lPerCent) { SetMargin(lMarginLeft, lMarginRight, lColsPerLine, lPerCent); }

void Margin_SetRight(int32_t lPerCent) { SetMargin(lMarginRight, lMarginLeft, lColsPerLine, lPerCent); }

void Margin_SetTop(int32_t lPerCent) { SetMargin(lMarginTop, lMarginBottom, lRowsPerPage, lPerCent); }

void Margin_SetBottom(int32_t lPerCent) { SetMargin(lMarginBottom, lMarginTop, lRowsPerPage, lPerCent); }
} // namespace zarn

// The grid's folding, its units, and the scroll.
//
// All of it is integer arithmetic with truncating division, in the stated order: the results decide where a symbol
// stands. What a file, a setting or a click can drive out of range is computed in 64 bits and held in 32.
#include "render/geometry.h"

#include "core/messages.h"
#include "core/settings.h"
#include "core/text.h"
#include "layout/place.h" // printing folds the whole score anew, as a resize of the window does
#include "render/device_place.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lDefaultLegersAbove = 8;
constexpr int32_t lDefaultLegersBelow = 11;
constexpr int32_t lRowsBetweenOuterLines = 8;
constexpr int32_t lOffPageMargin = 500; ///< pixels above and below the page that are drawn all the same
constexpr int32_t lThinnestPen = 2;     ///< pixels

/// What printing puts back when it ends.
struct ScreenUnits
{
    int32_t lPageHeight, lPageWidth, lRowsPerPage, lLeftMarginPx, lTopMarginPx, lScroll;
};
static ScreenUnits screenUnits;

static int64_t Cols() { return std::max(lColsPerLine, 1); }

static int64_t Rows() { return std::max(lRowsPerPage, 1); }

int32_t SystemHeight()
{
    return Clamp32(int64_t{bTabShowing ? 2 : 1} * lStaffCount * lStaffHeight + lExtraBetweenSystems);
}

static int32_t FromSetting(char const* sName, int32_t lDefault)
{
    int32_t lValue = lDefault;
    LoadSetting(&lValue, sName);
    return lValue;
}

static int32_t SpacingFromSetting(char const* sName, int32_t lDefault)
{
    int32_t const lValue = FromSetting(sName, lDefault);
    return lValue > lMostColsOrRows ? lDefault : std::max(lValue, 1);
}

void Geometry_Init()
{
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
    {
        aRowStaff[lStaff] = aStaffRow[lStaff] = 1;
        abStaffVisible[lStaff] = lStaff == 1;
    }
    lColsPerLine = SpacingFromSetting("LineSpacing", lDefaultColsPerLine);
    lRowsPerPage = SpacingFromSetting("ColSpacing", lDefaultRowsPerPage);
    lLegersAbove = FromSetting("LegersAbove", lDefaultLegersAbove);
    lLegersBelow = FromSetting("LegersBelow", lDefaultLegersBelow);
    lStaffSpace = 2;
    lTopOffset = 8;
    lExtraBetweenSystems = 5;
    lScroll = 0;
    lStaffCount = 1;
    lStaffHeight = Clamp32(int64_t{lLegersAbove} + lLegersBelow + lRowsBetweenOuterLines);
    SetUnits();
}

static void DeletePens()
{
    for (HPEN* const phPen : {&hpenBlack, &hpenRed, &hpenBlue, &hpenGreen})
    {
        DeleteObject(*phPen);
        *phPen = nullptr;
    }
}

void Geometry_Free() { DeletePens(); }

static void RenewPens()
{
    DeletePens();
    int32_t const lWidth = std::max(lBlobX / 8, lThinnestPen);
    hpenBlack = CreatePen(PS_SOLID, lWidth, 0);
    hpenRed = CreatePen(PS_SOLID, lWidth, 255);
    hpenBlue = CreatePen(PS_SOLID, lWidth, 0xFF0000);
    hpenGreen = CreatePen(PS_SOLID, lWidth, 0xFF00);
    hpenStock = GetStockObject(BLACK_PEN);
}

static int32_t AtLeastOne(int64_t l) { return std::max(Clamp32(l), 1); }

void SetUnits()
{
    lColsPerLine = std::max(lColsPerLine, 1);
    lRowsPerPage = std::max(lRowsPerPage, 1);
    xunit = AtLeastOne((lColsPerLine / 2 + int64_t{lPageWidth}) / lColsPerLine);
    yunit = AtLeastOne((lRowsPerPage / 2 + int64_t{lPageHeight}) / lRowsPerPage);
    lBlobX = AtLeastOne(int64_t{xunit} * 7 / 4);
    lBlobY = AtLeastOne(int64_t{yunit} * 7 / 4);
    lStemLength = AtLeastOne(int64_t{yunit} * 9 / 2);
    DebugLog(
        Format("SetUnits: %d, X %d,  %d per line %d per col", lPageWidth, lPageHeight, lColsPerLine, lRowsPerPage));
    DebugLog(Format("xunit= %d, yunit= %d lBlobX= %d lblobY= %d", xunit, yunit, lBlobX, lBlobY));
    RenewPens();
}

static int64_t PerCentLeft(int32_t lMarginA, int32_t lMarginB) { return Clamp32(int64_t{100} - lMarginA - lMarginB); }

/// The page inside a surface of that size, without its margins.
static void SetPage(int64_t lWidth, int64_t lHeight)
{
    lPageHeight = AtLeastOne(DeviceLength(PerCentLeft(lMarginTop, lMarginBottom) * lHeight / 100));
    lTopMarginPx = DeviceLength(lMarginTop * lHeight / 100);
    lPageWidth = AtLeastOne(DeviceLength(PerCentLeft(lMarginLeft, lMarginRight) * lWidth / 100));
    lLeftMarginPx = DeviceLength(lMarginLeft * lWidth / 100);
}

void SetWindowUnits(RECT const& client)
{
    SetPage(int64_t{client.right} - client.left, int64_t{client.bottom} - client.top);
    SetUnits();
}

/// lNewHeight * lOldWidth * lOldRows / (lNewWidth * lOldHeight); a page so odd that 64 bits don't hold the product
/// loses the precision of the last step.
static int32_t RowsOnPaper(int64_t lNewHeight, int64_t lOldWidth, int64_t lOldRows, int64_t lNewWidth,
                           int64_t lOldHeight)
{
    int64_t lProduct = 0;
    if (!__builtin_mul_overflow(lNewHeight * lOldWidth, lOldRows, &lProduct))
        return AtLeastOne(lProduct / (lNewWidth * lOldHeight));
    return AtLeastOne(int64_t{Clamp32(lNewHeight * lOldWidth / (lNewWidth * lOldHeight))} * lOldRows);
}

void BeginPrintUnits(int32_t lDeviceWidth, int32_t lDeviceHeight, bool bStrong)
{
    bPrinting = true;
    screenUnits = {lPageHeight, lPageWidth, lRowsPerPage, lLeftMarginPx, lTopMarginPx, lScroll};
    SetPage(lDeviceWidth, lDeviceHeight);
    // The screen's aspect of a column to a row goes along, so that the paper looks like the screen whatever its shape.
    lRowsPerPage =
        RowsOnPaper(lPageHeight, screenUnits.lPageWidth, screenUnits.lRowsPerPage, lPageWidth, screenUnits.lPageHeight);
    bPrintScale = bStrong;
    SetUnits();
    ReGrid();
}

void EndPrintUnits()
{
    bPrinting = false;
    bPrintScale = false;
    lPageHeight = screenUnits.lPageHeight;
    lPageWidth = screenUnits.lPageWidth;
    lRowsPerPage = screenUnits.lRowsPerPage;
    lLeftMarginPx = screenUnits.lLeftMarginPx;
    lTopMarginPx = screenUnits.lTopMarginPx;
    SetUnits();
    lScroll = screenUnits.lScroll;
    ReGrid();
}

double PaperScale() { return bPrinting ? double{1} * lPageWidth / screenUnits.lPageWidth : 1; }

void SetCursorScale(int32_t n)
{
    lPageWidth = AtLeastOne(int64_t{n} * lColsPerLine);
    lPageHeight = AtLeastOne(int64_t{n} * lRowsPerPage);
    SetUnits();
}

void GetUnits(int32_t* pxunit, int32_t* pyunit)
{
    *pxunit = xunit;
    *pyunit = yunit;
}

int32_t LineStart(int32_t lStrX) { return Clamp32(lStrX / Cols() * Cols()); }

int32_t NextLine(int32_t lStrX) { return Clamp32((lStrX / Cols() + 1) * Cols()); }

int32_t LineOfColumn(int32_t lStrX)
{
    return lStrX <= Cols() ? 1 : static_cast<int32_t>((int64_t{lStrX} - 1) / Cols() + 1);
}

/// Rows from the top of the band to the middle C of a clef: the clef's table, but for the pitch itself.
static bool MiddleCRow(int32_t lClef, int64_t& lRow)
{
    switch (lClef)
    {
    case 1:
        lRow = int64_t{5} * lStaffSpace + lLegersAbove;
        return true;
    case 2:
        lRow = int64_t{2} * lStaffSpace + lLegersAbove;
        return true;
    case 3:
        lRow = int64_t{-1} * lStaffSpace + lLegersAbove;
        return true;
    case 4:
        lRow = int64_t{lStaffSpace} + lLegersAbove;
        return true;
    default:
        return false;
    }
}

void Draw_Fold(int32_t lStrX, int32_t lDiaPitch, int32_t lStaff, int32_t lClef, int32_t* plX, int32_t* plY)
{
    int64_t const lLine = lStrX / Cols();
    int64_t const lCol = lStrX % Cols();
    int64_t const lBand = aStaffRow[std::clamp(lStaff, 0, lHighestStaff)];
    // A height that 32 bits hold times a line number, and no more than the page height times that, stays in 64 bits.
    int64_t lRows = int64_t{lTopOffset} - lScroll + SystemHeight() * lLine + (lBand - 1) * lStaffHeight;
    int64_t lMiddleC = 0;
    if (MiddleCRow(lClef, lMiddleC))
        lRows += lMiddleC - lDiaPitch;
    else
        Serious("Draw_Fold called with bad lClef value");
    *plY = DevicePlace(lTopMarginPx + int64_t{Clamp32(lRows)} * lPageHeight / Rows());
    *plX = DevicePlace(lLeftMarginPx + (lPageWidth * lCol + Cols() / 2 + 1) / Cols());
}

void Draw_FoldElement(Element* pel, int32_t lClef)
{
    Draw_Fold(pel->lStrX, pel->lDiaPitch, pel->lStaff, lClef, &pel->lX, &pel->lY);
}

void Draw_Straighten(int32_t lX, int32_t lY, int32_t* plStrX, int32_t* plDiaPitch, int32_t* plStaff, int32_t lClef)
{
    int64_t const lHeight = std::max(lPageHeight, 1);
    int64_t const lWidth = std::max(lPageWidth, 1);
    int64_t const lRows =
        (lHeight / 2 + int64_t{Clamp32(int64_t{lY} - lTopMarginPx)} * Rows()) / lHeight - lTopOffset + int64_t{lScroll};
    int64_t const lCols = (lWidth / 2 + int64_t{Clamp32(int64_t{lX} - lLeftMarginPx)} * Cols()) / lWidth;
    // A system or a band of no height has no place below its top.
    int64_t const lSystem = SystemHeight();
    int64_t const lLine = lSystem != 0 ? lRows / lSystem : 0;
    int64_t lRest = lSystem != 0 ? lRows % lSystem : lRows;
    int64_t lBand = lStaffHeight != 0 ? lRest / lStaffHeight + 1 : 1;
    lBand = std::min<int64_t>(lBand, lStaffCount);
    lRest += (1 - lBand) * lStaffHeight;
    *plStrX = Clamp32(lCols + int64_t{Clamp32(lLine)} * Cols());
    *plStaff = aRowStaff[std::clamp<int64_t>(lBand, 0, lHighestStaff)];
    int64_t lMiddleC = 0;
    if (MiddleCRow(lClef, lMiddleC))
        *plDiaPitch = Clamp32(lMiddleC - lRest);
    else
        Serious("Draw_Straighten called with bad lClef value");
}

void ScrollBottom(int32_t lStrX, int32_t lStaff, int32_t* plY, int32_t* plScrollRows)
{
    int32_t lX = 0;
    Draw_Fold(lStrX, Clamp32(int64_t{2} - lLegersBelow), lStaff, 1, &lX, plY);
    *plScrollRows = Clamp32(lScroll + (int64_t{*plY} - lTopMarginPx) / yunit);
}

static void ScrollBy(int64_t lRows) { lScroll = std::max(Clamp32(lScroll + lRows), 0); }

void ScrollPages(int32_t n) { ScrollBy(int64_t{n} * SystemHeight()); }

void ScrollLines(int32_t n)
{
    if (lStaffHeight == 0)
    {
        Serious("Duff staff size");
        return;
    }
    ScrollBy(int64_t{n} * lStaffHeight);
}

bool OffPage(int32_t lY)
{
    if (bNoClip || bDrawingCursor)
        return false;
    return lY > int64_t{lPageHeight} + lTopMarginPx + lOffPageMargin || lY < int64_t{-lOffPageMargin} - lTopMarginPx;
}
} // namespace zarn

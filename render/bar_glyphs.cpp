// Bar lines and what hangs on them.
#include "render/bar_glyphs.h"

#include "core/messages.h"
#include "core/text.h"
#include "render/geometry.h"
#include "render/strokes.h"
#include "tab/tuning.h" // how many strings there are, which only the instrument can tell

#include <algorithm>

namespace zarn
{
constexpr int32_t lRowsOfStaff = 8;
constexpr int32_t lBarPerCent = 25; ///< of a staff space

int32_t RowsInPixels(int64_t n) { return Clamp32(int64_t{Clamp32(n)} * lPageHeight / lRowsPerPage); }

int32_t BarGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff)
{
    if (OffPage(y))
        return 0;
    bool const bTopBand = aStaffRow[std::clamp(lStaff, 0, lHighestStaff)] == 1;
    int64_t const lRows = bTopBand ? lRowsOfStaff : int64_t{lRowsOfStaff} + lLegersAbove + lLegersBelow;
    VLine(hdc, x, y, Clamp32(int64_t{y} - RowsInPixels(lRows)), lBarPerCent);
    return 1;
}

int32_t DoubleBarGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff)
{
    return BarGlyph(hdc, x, y, lStaff) | BarGlyph(hdc, x + xunit, y, lStaff);
}

static void RepeatDots(HDC hdc, int32_t x, int32_t y)
{
    Dot(hdc, x, y - 3 * yunit);
    Dot(hdc, x, y - 5 * yunit);
}

int32_t RepeatStartGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff)
{
    if (OffPage(y))
        return 0;
    DoubleBarGlyph(hdc, x, y, lStaff);
    RepeatDots(hdc, x + lBlobX / 2 + xunit, y);
    return 1;
}

int32_t RepeatEndGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff)
{
    if (OffPage(y))
        return 0;
    RepeatDots(hdc, x, y);
    DoubleBarGlyph(hdc, x + lBlobX / 2, y, lStaff);
    return 1;
}

int32_t RepeatEndStartGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff)
{
    if (OffPage(y))
        return 0;
    RepeatDots(hdc, x, y);
    DoubleBarGlyph(hdc, x + lBlobX / 2, y, lStaff);
    RepeatDots(hdc, x + lBlobX / 2 + lBlobX / 2 + xunit, y);
    return 1;
}

int32_t BowGlyph(HDC hdc, int32_t x, int32_t y, int32_t lKind)
{
    if (OffPage(y))
        return 0;
    auto const lHalfColumn = static_cast<int32_t>(lPageWidth / (int64_t{lColsPerLine} * 2));
    if (lKind == 1)
    {
        ptPen = {x - lHalfColumn, y};
        MoveToEx(hdc, ptPen.x, ptPen.y);
        PenStep(hdc, 1, 3, lThickStroke);
        PenStep(hdc, 1, -3, lThickStroke);
        return 1;
    }
    if (lKind == 2)
    {
        ptPen = {x - lHalfColumn, y + static_cast<int32_t>(int64_t{3} * lPageHeight / (int64_t{lRowsPerPage} * 2))};
        PenStep(hdc, 0, -3, lThickStroke);
        PenStep(hdc, 2, 0, lThickStroke);
        PenStep(hdc, 0, 3, lThickStroke);
        return 1;
    }
    Serious("Attempt to draw unknown thingy type");
    return 0;
}

int32_t ArpeggioBracket(HDC hdc, int32_t x, int32_t y, bool bStart)
{
    int32_t const yHead = Clamp32(int64_t{y} - RowsInPixels(6));
    if ((!bDrawingCursor && OffPage(yHead)) || bPrintScale)
        return 0;
    int32_t const xArm = bStart ? x + lBlobX : x - lBlobX;
    MoveToEx(hdc, xArm, yHead - 2 * yunit);
    LineTo(hdc, x, yHead);
    LineTo(hdc, x, y - 2 * yunit);
    LineTo(hdc, xArm, y);
    return 1;
}

int32_t RepeatFirstLine(HDC hdc, int32_t x1, int32_t x2, int32_t y)
{
    if (OffPage(y) || TooFar(x1) || TooFar(x2))
        return 0;
    HLine(hdc, x1 + xunit, y - 2 * yunit, x2 - xunit, 0);
    return 1;
}

int32_t RepeatFirstHook(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y) || TooFar(x))
        return 0;
    VLine(hdc, x, y, y - 3 * yunit, 15);
    Stroke(hdc, x, y - 3 * yunit, x - xunit / 2, y - 2 * yunit, lThickStroke);
    return 1;
}

int32_t TimeSigGlyph(HDC hdc, int32_t x, int32_t y, int32_t lNum, int32_t lDen)
{
    if (OffPage(y))
        return 0;
    return DrawText(hdc, x, y - 4 * yunit, Format("%d", lNum), false) | DrawText(hdc, x, y, Format("%d", lDen), false);
}

void StaffLines(HDC hdc, int32_t lFromCol, int32_t lRow, int32_t lToCol)
{
    constexpr int32_t lLines = 5;
    constexpr int32_t lLinePerCent = 10; // of a staff space
    int32_t const x1 = Clamp32(lLeftMarginPx + int64_t{lFromCol} * lPageWidth / lColsPerLine);
    int32_t const x2 = Clamp32(lLeftMarginPx + int64_t{lToCol} * lPageWidth / lColsPerLine);
    if (TooFar(x1) || TooFar(x2))
        return;
    auto const rule = [&](int32_t lLine, int64_t lPixelsBelow)
    {
        int64_t const lRows = int64_t{lRow} + int64_t{lLine} * lStaffSpace;
        int32_t const y = Clamp32(lTopMarginPx + lRows * lPageHeight / lRowsPerPage + lPixelsBelow);
        if (!OffPage(y))
            HLine(hdc, x1, y, x2, lLinePerCent);
    };
    for (int32_t lLine = 0; lLine < lLines; ++lLine)
        rule(lLine, 0);
    for (int32_t lString = 0; bTabShowing && lString < Tab_UsedStrings(); ++lString)
        rule(lString, int64_t{yunit} * lStaffHeight);
}
} // namespace zarn

// Fret numbers and bar lines of the tablature. The strings themselves are ruled with the staff lines.
#include "render/tab_glyphs.h"

#include "core/text.h"
#include "render/bar_glyphs.h"
#include "render/geometry.h"
#include "render/strokes.h"
#include "tab/tuning.h" // how many strings there are, which only the instrument can tell

namespace zarn
{
/// From the staff to the tablature below it.
static int32_t OneBandBelow(int32_t y) { return Clamp32(y + int64_t{yunit} * lStaffHeight); }

int32_t AboveString(int32_t lString)
{
    constexpr int64_t lStringAtMiddleC = 6;
    return Clamp32((lStringAtMiddleC - lString) * 2);
}

int32_t TabBarGlyph(HDC hdc, int32_t x, int32_t y)
{
    constexpr int32_t lBarPerCent = 25; // of a staff space
    int32_t const yLastString = OneBandBelow(y);
    if (OffPage(yLastString))
        return 0;
    int64_t const lRowsUp = (int64_t{1} - Tab_UsedStrings()) * 2;
    VLine(hdc, x, yLastString, Clamp32(int64_t{yLastString} + RowsInPixels(lRowsUp)), lBarPerCent);
    return 1;
}

int32_t FretNumber(HDC hdc, int32_t x, int32_t y, int32_t lFret)
{
    int32_t const yString = OneBandBelow(y);
    if (OffPage(yString) || TooFar(x))
        return 0;
    std::string const sFret = Format("%d", lFret);
    SIZE size;
    GetTextExtentPoint32A(hdc, sFret, &size);
    uint32_t const lAlign = SetTextAlign(hdc, TA_BOTTOM);
    SetBkMode(hdc, TRANSPARENT);
    ExtTextOutA(hdc, x - size.cx / 2, yString + size.cy / 2, sFret);
    SetTextAlign(hdc, lAlign);
    return 1;
}
} // namespace zarn

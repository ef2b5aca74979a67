// The marker follows the symbols as they stand now: an edit during a play may have moved them off their columns, and
// right-justified lines stand off them always.
#include "render/play_marker.h"

#include "core/text.h"
#include "render/geometry.h"
#include "render/tab_band.h"
#include "tab/tuning.h" // where the tablature ends

#include <algorithm>

namespace zarn
{
constexpr COLORREF markerColor = 0x8CE6FF; ///< a light amber
constexpr int32_t lTopLine = 10;           ///< diatonic positions on the treble staff
constexpr int32_t lBottomLine = 2;
constexpr int32_t lOverhang = 5; ///< rows beyond the outer lines
constexpr int32_t lTreble = 1;

/// The symbol nearest to a column, on its line and not behind it; null when there is none.
static Element const* SymbolAt(int32_t lStrX)
{
    Element const* pelNearest = nullptr;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        Element const* const pel = IsVisible(lStaff) ? FindAtOrBefore(lStrX, lStaff) : nullptr;
        if (pel && pel->lStrX >= LineStart(lStrX) && (!pelNearest || pel->lStrX > pelNearest->lStrX))
            pelNearest = pel;
    }
    return pelNearest;
}

RECT PlayMarker_Box(int32_t lStrX)
{
    int32_t x = 0;
    int32_t yTop = 0;
    int32_t yBottom = 0;
    Draw_Fold(lStrX, lBottomLine - lOverhang, HighestVisible(), lTreble, &x, &yBottom);
    if (bTabShowing)
        TabFold(lStrX, Tab_UsedStrings() + 1, HighestVisible(), &x, &yBottom);
    Draw_Fold(lStrX, lTopLine + lOverhang, aRowStaff[1], lTreble, &x, &yTop);
    if (Element const* const pel = SymbolAt(lStrX))
        x = pel->lX;
    int64_t const lHalfWidth = lBlobX * int64_t{3} / 4;
    return {Clamp32(x - lHalfWidth), yTop, Clamp32(x + lHalfWidth), yBottom};
}

void PlayMarker_Draw(HDC hdc, int32_t lStrX)
{
    HBRUSH const hBrush = CreateSolidBrush(markerColor);
    FillRect(hdc, PlayMarker_Box(lStrX), hBrush);
    DeleteObject(hBrush);
}
} // namespace zarn

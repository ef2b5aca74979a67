// How far below its place each kind of symbol draws. Paper has no scroll bar, so a line of music goes on the next page
// unless all of it is on this one: the foot of a clef, a stem that points down, words under the staff.
#include "render/page_foot.h"

#include "render/bar_glyphs.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/tab_band.h"
#include "tab/tuning.h" // where the tablature ends

#include <algorithm>

namespace zarn
{
/// Rows of a line of text. A font without a scale has a size of its own, which comes to fewer than these.
static int64_t TextRows()
{
    constexpr int32_t lWithoutScale = 4;
    return std::max<int64_t>(lWithoutScale, int64_t{lFontScale} * 4 / 100 + 1);
}

/// Rows, rounded up, from a symbol's place to its lowest stroke.
static int64_t RowsBelow(Element const* pel)
{
    constexpr int32_t lClefFoot = 8;
    constexpr int32_t lBelowHead = 5; // a slur, a tie, a mark
    constexpr int32_t lStem = 6;
    constexpr int32_t lBeamedStem = 12; // inner heads push a beam away
    constexpr int32_t lLongestRest = 5;
    constexpr int32_t lAccidental = 3;
    switch (pel->sort)
    {
    case CLEF:
        return lClefFoot;
    case NOTE:
        return pel->up ? lBelowHead : pel->beam ? lBeamedStem : lStem;
    case REST:
        return lLongestRest;
    case CHORD:
    case LYRICS:
    case TITLE:
    case TEXT:
    case ANNOT:
    case TIMESIG:
    case TEMPO:
    case INSTRUMENT:
    case TRANSPOSE:
    case VOLUME:
    case NEWLINE:
    case SPACE:
        return TextRows();
    default:
        return lAccidental;
    }
}

/// The last string, and half a fret number on it.
static bool TabReachesBelow(Element const* pel, int32_t lYFoot)
{
    if (!bTabShowing)
        return false;
    int32_t x = 0;
    int32_t yLastString = 0;
    TabFold(pel->lStrX, Tab_UsedStrings(), pel->lStaff, &x, &yLastString);
    return int64_t{yLastString} + RowsInPixels((TextRows() + 1) / 2) > lYFoot;
}

bool ReachesBelow(Element const* pel, int32_t lYFoot)
{
    constexpr int32_t lKeyBelowStaff = 3; // the lowest sign of a key stands on the bottom line
    int32_t x = 0;
    int32_t yBottomLine = 0;
    Draw_Fold(pel->lStrX, 2, pel->lStaff, 1, &x, &yBottomLine);
    return int64_t{yBottomLine} + RowsInPixels(lKeyBelowStaff) > lYFoot ||
           int64_t{pel->lY} + RowsInPixels(RowsBelow(pel)) > lYFoot || TabReachesBelow(pel, lYFoot);
}
} // namespace zarn

// First-time bars. A line that runs over the end of a line of music is drawn in pieces.
#include "render/first_time_bar.h"

#include "core/score.h"
#include "render/bar_glyphs.h"
#include "render/geometry.h"
#include "render/pages.h"
#include "render/reach.h"

#include <algorithm>

namespace zarn
{
static int32_t OnOneLine(HDC hdc, Element const* pel, Element const* pelEnd)
{
    int32_t const yTop = std::min(MinLY(pel, pelEnd), pel->lY);
    RepeatFirstLine(hdc, pel->lX, pelEnd->lX, yTop);
    return RepeatFirstHook(hdc, pel->lX, yTop);
}

/// The row of a note two steps above the staff's top line, on the line where pel stands.
static int32_t LineAboveStaff(Element const* pel)
{
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(pel->lStrX, 12, pel->lStaff, 1, &x, &y);
    return y;
}

static Element* EndOfFirstTime(Element* pel)
{
    for (int32_t lWalked = 0; pel && lWalked < lLongestReach; pel = Next(pel), ++lWalked)
        if (pel->sort == REPEATEND || pel->sort == REPEATENDSTART)
            return pel;
    return nullptr;
}

int32_t DrawFirstTimeBar(HDC hdc, Element* pel)
{
    Element* const pelEnd = EndOfFirstTime(pel);
    if (!pelEnd)
        return 0;
    if (LineStart(pelEnd->lStrX) == LineStart(pel->lStrX))
        return OnOneLine(hdc, pel, pelEnd);
    int32_t r = 0;
    Element* pelFrom = pel;
    Element* pelTo = LastOnLine(pel);
    for (;;)
    {
        int32_t const yTop = std::min(MinLY(pelFrom, Next(pelTo)), LineAboveStaff(pelFrom));
        bool const bHere = IsOnPage(pelFrom);
        if (bHere)
            r |= RepeatFirstLine(hdc, pelFrom->lX, pelTo->lX, yTop);
        if (bHere && pelFrom == pel)
            r |= RepeatFirstHook(hdc, pelFrom->lX, yTop);
        if (pelTo == pelEnd || pelTo->lStrX >= pelEnd->lStrX)
            return r;
        pelFrom = NextNote(Next(pelTo));
        if (!pelFrom || pelFrom->lStrX >= pelEnd->lStrX)
            return r;
        Element* const pelLast = LastOnLine(pelFrom);
        pelTo = pelLast->lStrX > pelEnd->lStrX ? pelEnd : pelLast;
    }
}
} // namespace zarn

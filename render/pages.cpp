// Pages.
//
// A page holds whole systems: it ends ahead of the first line of music that would reach below its foot. Each staff
// keeps its place from page to page, and only what a page shows is folded for it, with what its ties, slurs and
// first-time bars reach on the lines around; so all pages together cost one walk along the Score.
#include "render/pages.h"

#include "core/text.h"
#include "layout/right_justify.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/page_foot.h"
#include "render/reach.h"
#include "render/ruled_lines.h"
#include "render/ruling.h"
#include "render/staff_paint.h"

#include <algorithm>
#include <array>
#include <limits>

namespace zarn
{
namespace
{
constexpr int32_t lNoColumn = std::numeric_limits<int32_t>::max();

class PageLoop
{
public:
    PageLoop(PageSink& sink, PageFormat const& format) : sink(sink), format(format)
    {
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
            aPlace[lStaff].pel = IsVisible(lStaff) ? StaffFirst(lStaff) : nullptr;
        aLineBefore = aPlace;
    }

    int32_t Run()
    {
        int32_t lPage = 0;
        for (bool bMore = true; bMore;)
        {
            ++lPage;
            int32_t const lTo = FindEnd();
            bool const bWanted = !format.lOnlyPage || format.lOnlyPage == lPage;
            if (bWanted && !Draw(lPage, lTo))
                return lPage;
            bMore = lTo != lNoColumn && GoTo(lTo); // what stands at the very last column is out of a damaged file
            if (bMore)
                lScroll = Clamp32(lScroll + int64_t{SystemHeight()} * (LineOf(lTo) - LineOf(lFrom)));
            lFrom = lTo;
        }
        return lPage;
    }

private:
    static int64_t LineOf(int32_t lStrX) { return lStrX / lColsPerLine; }

    /// Folds the page, and gives the first column that isn't on it any more.
    int32_t FindEnd()
    {
        int32_t const lYFoot = lTopMarginPx + lPageHeight;
        int32_t lTo = lNoColumn;
        for (StaffPlace const& place : aPlace)
            for (StaffPlace at = place; at.pel && at.pel->lStrX < lTo; at.Step())
            {
                Draw_FoldElement(at.pel, at.ClefHere());
                if (at.pel->lStrX >= lFrom && ReachesBelow(at.pel, lYFoot))
                    lTo = LineStart(at.pel->lStrX);
            }
        return lTo > lFrom ? lTo : NextLineWithMusic();
    }

    /// A system taller than the page has a page of its own, and lines that hold nothing have none.
    [[nodiscard]] int32_t NextLineWithMusic() const
    {
        int32_t const lNext = NextLine(lFrom);
        int32_t lLeast = lNoColumn;
        for (StaffPlace const& place : aPlace)
        {
            StaffPlace at = place;
            while (at.pel && at.pel->lStrX < lNext)
                at.Step();
            if (at.pel)
                lLeast = std::min(lLeast, at.pel->lStrX);
        }
        return lLeast == lNoColumn ? lNoColumn : LineStart(lLeast);
    }

    bool Draw(int32_t lPage, int32_t lTo)
    {
        HDC const hdc = sink.StartPage(lPage);
        if (!hdc)
            return false;
        RuledLines_Reset();
        Font_Select(hdc);
        SelectObject(hdc, GetStockObject(BLACK_BRUSH));
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        {
            if (!IsVisible(lStaff))
                continue;
            FoldAround(lStaff, lTo);
            PaintStaff(hdc, nullptr, aPlace[lStaff], lFrom, lTo);
            if (!StaffFirst(lStaff))
                RuleLine(hdc, nullptr, 1);
        }
        sink.EndPage(hdc);
        return true;
    }

    /// What the page's symbols reach: they, the last line of notes ahead, the line behind, and what ties, slurs,
    /// first-time bars and beams go on to.
    void FoldAround(int32_t lStaff, int32_t lTo)
    {
        StaffPlace const first = aLineBefore[lStaff];
        int64_t const lLineBehind = int64_t{lTo} + lColsPerLine;
        OpenReach reach;
        StaffPlace end = aPlace[lStaff];
        for (int32_t lBehind = 0; end.pel; end.Step())
        {
            if (end.pel->lStrX >= lTo)
            {
                bool const bReached = end.pel->lStrX >= lLineBehind && !reach.IsOpen();
                if (bReached || ++lBehind > lLongestReach)
                    break;
            }
            reach.Pass(end.pel);
        }
        for (StaffPlace at = first; at.pel != end.pel; at.Step())
            Draw_FoldElement(at.pel, at.ClefHere());
        if (bRightJustified)
            RightJustifyLines(first.pel, first.lClef, end.pel);
    }

    /// Moves each staff on to lTo; true when something real is left.
    bool GoTo(int32_t lTo)
    {
        bool bMore = false;
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        {
            StaffPlace& place = aPlace[lStaff];
            StaffPlace line = place; // where the line that place stands on begins
            int32_t lSinceNote = 0;
            for (; place.pel && place.pel->lStrX < lTo; place.Step())
            {
                if (LineOf(place.pel->lStrX) != LineOf(line.pel->lStrX))
                    line = place;
                lSinceNote = place.pel->sort == NOTE ? 0 : lSinceNote + 1;
                if (lSinceNote == 0 || lSinceNote > lLongestReach)
                    aLineBefore[lStaff] = line;
            }
            bMore = bMore || IsAnythingLeft(place.pel);
        }
        return bMore;
    }

    using Places = std::array<StaffPlace, lStaffLists>;

    PageSink& sink;
    PageFormat const& format;
    Places aPlace;      ///< the first element of each staff that no page has shown yet
    Places aLineBefore; ///< the first one on the line of the last note ahead of it, which a tie may begin at
    int32_t lFrom = 0;  ///< the page's first column
};
} // namespace

int32_t DrawPages(PageSink& sink, PageFormat const& format)
{
    BeginPrintUnits(format.lWidth, format.lHeight, format.bStrong);
    Font_Renew();
    lScroll = 0;
    int32_t const cPages = PageLoop(sink, format).Run();
    EndPrintUnits();
    Font_Renew();
    return cPages;
}
} // namespace zarn

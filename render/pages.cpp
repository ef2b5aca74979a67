// Pages.
//
// A page holds whole systems: it ends ahead of the first line of music that would reach below its foot. Each staff
// keeps its place from page to page, and only what a page shows is folded for it, with what its ties, slurs and
// first-time bars reach on the lines around; so all pages together cost one walk along the Score.
#include "render/pages.h"

#include "core/text.h"
#include "layout/right_justify.h"
#include "render/first_time_bar.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/page_foot.h"
#include "render/reach.h"
#include "render/ruled_lines.h"
#include "render/ruling.h"
#include "render/staff_paint.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace zarn
{
namespace
{
/// Walks along the Score from page to page.
class PageWalk
{
public:
    PageWalk()
    {
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
            aPlace[lStaff].pel = IsVisible(lStaff) ? StaffFirst(lStaff) : nullptr;
        aLineBefore = aPlace;
        int64_t const lLine = FirstSystemShown();
        // Every page has the view's top for its own, so what it cuts would be lost on each of them.
        if (lScroll > lLine * SystemHeight() + lTopOffset)
            lScroll = Clamp32(lLine * SystemHeight());
        lFrom = Clamp32(lLine * lColsPerLine);
        GoTo(lFrom);
    }

    [[nodiscard]] int32_t Began() const { return lBegan; } ///< the first column of the page drawn last

    /// Draws the page, and gives where it ended.
    int32_t Page(HDC hdc)
    {
        int32_t const lTo = FindEnd();
        lPageBegin = lFrom;
        lPageEnd = lTo;
        if (hdc)
            Draw(hdc, lTo);
        lBegan = std::exchange(lFrom, lTo);
        // What stands at the very last column is out of a damaged file.
        return lTo != lEndOfScore && GoTo(lTo) ? lTo : lEndOfScore;
    }

private:
    static int64_t LineOf(int32_t lStrX) { return lStrX / lColsPerLine; }

    /// The first system, from 0, of whose staffs any line stands below the view's top.
    static int64_t FirstSystemShown()
    {
        int64_t const lSystem = SystemHeight();
        // Of the first one; odd leger settings don't bring it above the page.
        int64_t const lFoot = std::max<int64_t>(lTopOffset + lSystem - lExtraBetweenSystems - lLegersBelow, 1);
        return lSystem > 0 && lScroll >= lFoot ? (lScroll - lFoot) / lSystem + 1 : 0;
    }

    /// Folds the page, and gives the first column that isn't on it any more.
    int32_t FindEnd()
    {
        int32_t const lYFoot = lTopMarginPx + lPageHeight;
        int32_t lTo = lEndOfScore;
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
        int32_t lLeast = lEndOfScore;
        for (StaffPlace const& place : aPlace)
        {
            StaffPlace at = place;
            while (at.pel && at.pel->lStrX < lNext)
                at.Step();
            if (at.pel)
                lLeast = std::min(lLeast, at.pel->lStrX);
        }
        return lLeast == lEndOfScore ? lEndOfScore : LineStart(lLeast);
    }

    void Draw(HDC hdc, int32_t lTo)
    {
        RuledLines_Reset();
        Font_Select(hdc);
        hdc->defaultEm = screenEm * PaperScale(); // words have their columns by the screen's letters
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
        for (Element* const pel : aFirstTime)
            if (pel && !pel->fHidden)
                DrawFirstTimeBar(hdc, pel);
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
                if (place.pel->sort == REPEATFIRST)
                    aFirstTime[lStaff] = place.pel;
                else if (place.pel->sort == REPEATEND || place.pel->sort == REPEATENDSTART)
                    aFirstTime[lStaff] = nullptr;
            }
            bMore = bMore || IsAnythingLeft(place.pel);
        }
        return bMore;
    }

    using Places = std::array<StaffPlace, lStaffLists>;

    Places aPlace;      ///< the first element of each staff that no page has shown yet
    Places aLineBefore; ///< the first one on the line of the last note ahead of it, which a tie may begin at
    std::array<Element*, lStaffLists> aFirstTime = {}; ///< the first-time bar that goes on from the page before
    int32_t lFrom = 0;                                 ///< the page's first column
    int32_t lBegan = 0;                                ///< that of the page before
};

std::optional<PageWalk> pageWalk; ///< of the pages being drawn

int32_t RowOf(int32_t lStrX) { return Clamp32(int64_t{SystemHeight()} * (lStrX / lColsPerLine)); }
} // namespace

int32_t DrawPage(HDC hdc, bool fFirst)
{
    if (fFirst || !pageWalk)
        pageWalk.emplace();
    lPageEnd = pageWalk->Page(hdc);
    return lPageEnd;
}

static int32_t RunPages(PageSink& sink, int32_t lOnlyPage)
{
    int32_t lPage = 0;
    for (bool fFirst = true;; fFirst = false)
    {
        ++lPage;
        bool const bWanted = !lOnlyPage || lOnlyPage == lPage;
        HDC const hdc = bWanted ? sink.StartPage(lPage) : nullptr;
        if (bWanted && !hdc)
            return lPage;
        int32_t const lEnd = DrawPage(hdc, fFirst);
        int32_t const lPrevEnd = pageWalk->Began(); // where the page before ended, or the first one begins
        if (lEnd != lEndOfScore)
            lScroll = Clamp32(int64_t{lScroll} + RowOf(lEnd) - RowOf(lPrevEnd));
        if ((bWanted && !sink.EndPage(hdc)) || lEnd == lEndOfScore)
            return lPage;
    }
}

int32_t DrawPagesFromView(PageSink& sink, int32_t lOnlyPage)
{
    int32_t const cPages = RunPages(sink, lOnlyPage);
    lPageBegin = 0;
    lPageEnd = lEndOfScore;
    return cPages;
}

int32_t DrawPages(PageSink& sink, PageFormat const& format)
{
    BeginPrintUnits(format.lWidth, format.lHeight, format.bStrong);
    Font_BeginPrint();
    lScroll = 0;
    int32_t const cPages = DrawPagesFromView(sink, format.lOnlyPage);
    Font_EndPrint();
    EndPrintUnits();
    return cPages;
}
} // namespace zarn

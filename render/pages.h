/// The Score on pages of a given size: paper, PDF, pictures.
#pragma once
#include "platform/gdi.h"
#include "render/geometry.h"

#include <cstdint>

namespace zarn
{
constexpr int32_t lEndOfScore = 0x7FFFFFFF; ///< where the last page ends

// The columns of the page that is drawn, or was drawn last. Written by DrawPage.
inline int32_t lPageBegin = 0;         ///< the first one
inline int32_t lPageEnd = lEndOfScore; ///< the first one behind it, or lEndOfScore

/// False when the element is on another page than the one that is drawn; always true on the screen.
[[nodiscard]] inline bool IsOnPage(Element const* pel)
{
    return !bPrinting || (pel->lStrX >= lPageBegin && pel->lStrX < lPageEnd);
}

/// Where pages go.
class PageSink
{
public:
    virtual ~PageSink() = default;
    virtual HDC StartPage(int32_t lPage) = 0; ///< lPage from 1; null ends the job
    virtual bool EndPage(HDC hdc) = 0;        ///< false ends the job
};

struct PageFormat
{
    int32_t lWidth = 0; ///< device pixels
    int32_t lHeight = 0;
    bool bStrong = false;  ///< hair lines doubled, as paper needs them
    int32_t lOnlyPage = 0; ///< draw this page alone, from 1; 0 draws all
};

/// Draws the next page, or the first one, which begins with the system at the view's top; one that the top would cut
/// is shown whole, and lScroll moves up for it. A null hdc passes the page over. Print units are in force, and the
/// Score stays as it is from the first page to the last. Gives lPageEnd.
int32_t DrawPage(HDC hdc, bool fFirst);

/// The page loop, from the view's top: draws page after page, lScroll moving along. lOnlyPage as in PageFormat. Print
/// units are in force. Gives how many pages there are, or how many were begun when the sink ended the job.
int32_t DrawPagesFromView(PageSink& sink, int32_t lOnlyPage);

/// Draws the Score from its top, page after page; gives how many pages it has. Units, font and scroll are as before
/// afterwards.
int32_t DrawPages(PageSink& sink, PageFormat const& format);
} // namespace zarn

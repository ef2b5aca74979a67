/// The Score on pages of a given size: paper, PDF, pictures.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// Where pages go.
class PageSink
{
public:
    virtual ~PageSink() = default;
    virtual HDC StartPage(int32_t lPage) = 0; ///< lPage from 1; null ends the job
    virtual void EndPage(HDC hdc) = 0;
};

struct PageFormat
{
    int32_t lWidth = 0; ///< device pixels
    int32_t lHeight = 0;
    bool bStrong = false;  ///< hair lines doubled, as paper needs them
    int32_t lOnlyPage = 0; ///< draw this page alone, from 1; 0 draws all
};

/// Draws the Score from its top, page after page; gives how many pages it has. Units and scroll are as before
/// afterwards.
int32_t DrawPages(PageSink& sink, PageFormat const& format);
} // namespace zarn

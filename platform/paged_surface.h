/// A document of pages, drawn one after the other: PDF, SVG, a picture, paper.
#pragma once
#include "platform/gdi.h"

#include <string>

namespace zarn
{
/// Dropping it without Finish leaves nothing behind. Main thread.
class PagedSurface
{
public:
    virtual ~PagedSurface() = default;
    /// The next page, all white; it belongs to the document and is good until EndPage. Null when there can be none: the
    /// document holds one page only, or something failed before.
    virtual Surface* StartPage() = 0;
    virtual void EndPage() = 0;
    /// Ends the document and puts its bytes into sBytes, ready to be written to a file (paper is sent off instead, and
    /// sBytes stays empty). False when anything went wrong on the way; sBytes is then a sentence for the user.
    [[nodiscard]] virtual bool Finish(std::string& sBytes) = 0;
};
} // namespace zarn

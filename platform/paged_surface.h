/// A document of pages, drawn one after the other: PDF, SVG, a picture, paper.
#pragma once
#include "platform/gdi.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

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
    virtual bool EndPage() = 0; ///< false when the page isn't in the document
    /// Ends the document and puts its bytes into sBytes, ready to be written to a file (paper is sent off instead, and
    /// sBytes stays empty). False when anything went wrong on the way; sBytes is then a sentence for the user.
    [[nodiscard]] virtual bool Finish(std::string& sBytes) = 0;
};

/// A sheet of paper, in units of 1/300 inch, which are also the pixels of what is drawn on it.
struct Sheet
{
    SIZE size;
    RECT box; ///< what can be drawn on: printers don't reach the edges

    [[nodiscard]] SIZE BoxSize() const { return {box.right - box.left, box.bottom - box.top}; }
};

/// A sheet with five per cent of it left free on each side.
[[nodiscard]] constexpr Sheet SheetOf(SIZE size)
{
    SIZE const edge{size.cx / 20, size.cy / 20};
    return {size, {edge.cx, edge.cy, size.cx - edge.cx, size.cy - edge.cy}};
}

/// A hair line of one unit, doubled, is as wide on it as an engraved line.
constexpr Sheet sheetA4 = SheetOf({2480, 3508});

/// A printer of the host's.
class Printer
{
public:
    virtual ~Printer() = default;
    [[nodiscard]] virtual Sheet Paper() const = 0;
    /// Begins a job; null when there can be none. Finish hands it over, and asks goOn while it waits: false calls the
    /// job off.
    [[nodiscard]] virtual std::unique_ptr<PagedSurface> StartDoc(std::string_view sTitle,
                                                                 std::function<bool()> goOn) = 0;
};
} // namespace zarn

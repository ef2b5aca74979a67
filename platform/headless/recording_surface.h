/// A surface that lists what is drawn, a readable line for each call.
#pragma once
#include "platform/gdi.h"

#include <string>
#include <vector>

namespace zarn
{
/// "box 10,20 30,24", "line 0,0 10,0", "ellipse 1,2 9,8 pen 2 #ff0000 brush none", "polygon 0,0 4,0 4,4",
/// "text 10,31.5 em 13 bold \"Air\"", "fill 0,0 9,9 #ffffff". A black hair line and a black fill go without saying, and
/// so do colour black, stretch 1 and regular weight of a text; its numbers are rounded to hundredths.
class RecordingSurface : public Surface
{
public:
    explicit RecordingSurface(SIZE size) : size(size) {}
    SIZE Size() const override { return size; }
    void Line(POINT from, POINT to, Pen const& pen) override;
    void Box(RECT box, Pen const& pen, Brush const& brush) override;
    void Ellipse(RECT box, Pen const& pen, Brush const& brush) override;
    void Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush) override;
    void Text(double x, double baseline, std::string_view sText, TextStyle const& style) override;
    void Fill(RECT box, COLORREF color) override;

    [[nodiscard]] std::string All() const; ///< the lines, each with a line break

    SIZE size;
    std::vector<std::string> aLines;
};
} // namespace zarn

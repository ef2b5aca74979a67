// Drawing calls in words.
#include "platform/headless/recording_surface.h"

#include <cstdio>

namespace zarn
{
namespace
{
std::string Place(int32_t x, int32_t y) { return ' ' + std::to_string(x) + ',' + std::to_string(y); }

std::string Corners(RECT const& box) { return Place(box.left, box.top) + Place(box.right, box.bottom); }

std::string ColorName(COLORREF color)
{
    char s[16];
    std::snprintf(s, sizeof s, " #%02x%02x%02x", color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
    return s;
}

std::string PenWords(Pen const& pen)
{
    if (pen.bNull)
        return " pen none";
    if (pen.lWidth == 1 && pen.color == 0)
        return {};
    return " pen " + std::to_string(pen.lWidth) + ColorName(pen.color);
}

std::string BrushWords(Brush const& brush)
{
    if (brush.bNull)
        return " brush none";
    return brush.color == 0 ? std::string() : " brush" + ColorName(brush.color);
}

/// At most two decimals, and none that say nothing.
std::string Decimal(double x)
{
    char s[400];
    std::snprintf(s, sizeof s, "%.2f", x);
    std::string sNumber = s;
    sNumber.erase(sNumber.find_last_not_of('0') + 1);
    if (sNumber.back() == '.')
        sNumber.pop_back();
    return sNumber == "-0" ? "0" : sNumber;
}
} // namespace

void RecordingSurface::Line(POINT from, POINT to, Pen const& pen)
{
    aLines.push_back("line" + Place(from.x, from.y) + Place(to.x, to.y) + PenWords(pen));
}

void RecordingSurface::Box(RECT box, Pen const& pen, Brush const& brush)
{
    aLines.push_back("box" + Corners(box) + PenWords(pen) + BrushWords(brush));
}

void RecordingSurface::Ellipse(RECT box, Pen const& pen, Brush const& brush)
{
    aLines.push_back("ellipse" + Corners(box) + PenWords(pen) + BrushWords(brush));
}

void RecordingSurface::Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush)
{
    std::string s = "polygon";
    for (POINT const& point : points)
        s += Place(point.x, point.y);
    aLines.push_back(s + PenWords(pen) + BrushWords(brush));
}

void RecordingSurface::Text(double x, double baseline, std::string_view sText, TextStyle const& style)
{
    std::string s = "text " + Decimal(x) + ',' + Decimal(baseline) + " em " + Decimal(style.emPixels);
    if (std::string const sStretch = Decimal(style.stretch); sStretch != "1")
        s += " stretch " + sStretch;
    if (style.bBold)
        s += " bold";
    if (style.color != 0)
        s += ColorName(style.color);
    aLines.push_back(s + " \"" + std::string(sText) + '"');
}

void RecordingSurface::Fill(RECT box, COLORREF color) { aLines.push_back("fill" + Corners(box) + ColorName(color)); }

std::string RecordingSurface::All() const
{
    std::string s;
    for (std::string const& sLine : aLines)
        s += sLine + '\n';
    return s;
}
} // namespace zarn

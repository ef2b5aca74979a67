// Recording and playing.
#include "platform/page_record.h"

namespace zarn
{
void PageRecord::Line(POINT from, POINT to, Pen const& pen) { aCalls.emplace_back(LineCall{from, to, pen}); }

void PageRecord::Box(RECT box, Pen const& pen, Brush const& brush)
{
    aCalls.emplace_back(BoxCall{box, pen, brush, false});
}

void PageRecord::Ellipse(RECT box, Pen const& pen, Brush const& brush)
{
    aCalls.emplace_back(BoxCall{box, pen, brush, true});
}

void PageRecord::Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush)
{
    aCalls.emplace_back(PolygonCall{{points.begin(), points.end()}, pen, brush});
}

void PageRecord::Text(double x, double baseline, std::string_view sText, TextStyle const& style)
{
    aCalls.emplace_back(TextCall{x, baseline, std::string(sText), style});
}

void PageRecord::Fill(RECT box, COLORREF color) { aCalls.emplace_back(FillCall{box, color}); }

void PageRecord::Play(Surface& surface) const
{
    for (Call const& call : aCalls)
        std::visit([&surface](auto const& one) { Play(surface, one); }, call);
}

void PageRecord::Play(Surface& surface, LineCall const& call) { surface.Line(call.from, call.to, call.pen); }

void PageRecord::Play(Surface& surface, BoxCall const& call)
{
    if (call.bRound)
        surface.Ellipse(call.box, call.pen, call.brush);
    else
        surface.Box(call.box, call.pen, call.brush);
}

void PageRecord::Play(Surface& surface, PolygonCall const& call)
{
    surface.Polygon(call.aPoints, call.pen, call.brush);
}

void PageRecord::Play(Surface& surface, TextCall const& call)
{
    surface.Text(call.x, call.baseline, call.sText, call.style);
}

void PageRecord::Play(Surface& surface, FillCall const& call) { surface.Fill(call.box, call.color); }
} // namespace zarn

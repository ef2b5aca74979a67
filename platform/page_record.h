/// A page kept as its drawing calls, to be drawn again on another surface.
#pragma once
#include "platform/gdi.h"

#include <string>
#include <variant>
#include <vector>

namespace zarn
{
class PageRecord : public Surface
{
public:
    explicit PageRecord(SIZE size) : size(size) {}
    void Play(Surface& surface) const; ///< Draws it all, in order.

    SIZE Size() const override { return size; }
    void Line(POINT from, POINT to, Pen const& pen) override;
    void Box(RECT box, Pen const& pen, Brush const& brush) override;
    void Ellipse(RECT box, Pen const& pen, Brush const& brush) override;
    void Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush) override;
    void Text(double x, double baseline, std::string_view sText, TextStyle const& style) override;
    void Fill(RECT box, COLORREF color) override;

private:
    struct LineCall
    {
        POINT from, to;
        Pen pen;
    };
    struct BoxCall
    {
        RECT box;
        Pen pen;
        Brush brush;
        bool bRound;
    };
    struct PolygonCall
    {
        std::vector<POINT> aPoints;
        Pen pen;
        Brush brush;
    };
    struct TextCall
    {
        double x, baseline;
        std::string sText;
        TextStyle style;
    };
    struct FillCall
    {
        RECT box;
        COLORREF color;
    };
    using Call = std::variant<LineCall, BoxCall, PolygonCall, TextCall, FillCall>;

    static void Play(Surface& surface, LineCall const& call);
    static void Play(Surface& surface, BoxCall const& call);
    static void Play(Surface& surface, PolygonCall const& call);
    static void Play(Surface& surface, TextCall const& call);
    static void Play(Surface& surface, FillCall const& call);

    SIZE size;
    std::vector<Call> aCalls;
};
} // namespace zarn

/// SVG documents: pages of one size, stacked one under another.
#pragma once
#include "platform/paged_surface.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
/// Draws into text. Boxes and upright or level hair lines cover exactly their pixels; the rest lies on pixel centres.
/// What has no part on its page is left out, and what juts out is clipped.
class SvgDocument : public PagedSurface, private Surface
{
public:
    /// Pages of size.cx by size.cy pixels, both at least 1. The title may be empty; any bytes will do.
    SvgDocument(SIZE size, std::string_view sTitle);

    Surface* StartPage() override;
    bool EndPage() override;
    [[nodiscard]] bool Finish(std::string& sBytes) override; ///< never fails

private:
    enum class Run
    {
        NONE,
        FILLED, ///< boxes of one colour
        LINES   ///< lines of one pen
    };

    SIZE Size() const override { return size; }
    void Line(POINT from, POINT to, Pen const& pen) override;
    void Box(RECT box, Pen const& pen, Brush const& brush) override;
    void Ellipse(RECT box, Pen const& pen, Brush const& brush) override;
    void Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush) override;
    void Text(double x, double baseline, std::string_view sText, TextStyle const& style) override;
    void Fill(RECT box, COLORREF color) override;

    [[nodiscard]] bool IsOnPage(RECT const& box, int32_t lSlack) const;
    void GoOnWith(Run wanted, COLORREF color, int32_t lWidth);
    void EndRun();
    void Paint(Pen const& pen, Brush const& brush);
    void Color(char const* sAttribute, COLORREF color);
    void Number(int64_t l);
    void Halves(int64_t l);
    void Hundredths(double x);
    void Escaped(std::string_view sText);

    SIZE size;
    int64_t cPages = 0;
    std::string sTitle;
    std::string sBody;
    Run run = Run::NONE; ///< the path element that is still open
    COLORREF runColor = 0;
    int32_t lRunWidth = 0;
};
} // namespace zarn

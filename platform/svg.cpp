// The SVG writer: appends to one string.
//
// Boxes of one colour that follow each other are one path, and so are lines of one pen: a staff's lines, stems and bar
// lines take a dozen bytes each. All boxes run clockwise, so that where two overlap both are filled.
#include "platform/svg.h"

#include "platform/font_metrics.h"
#include "platform/utf8.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zarn
{
/// Pen and brush paint alike: the shape is one area.
static bool IsSolid(Pen const& pen, Brush const& brush)
{
    return !brush.bNull && (pen.bNull || (pen.lWidth == 1 && pen.color == brush.color));
}

SvgDocument::SvgDocument(SIZE size, std::string_view sTitle)
    : size{std::max(size.cx, 1), std::max(size.cy, 1)}, sTitle(sTitle)
{
}

Surface* SvgDocument::StartPage()
{
    sBody += "<g clip-path=\"url(#page)\"";
    if (cPages > 0)
    {
        sBody += " transform=\"translate(0 ";
        Number(cPages * size.cy);
        sBody += ")\"";
    }
    sBody += ">\n";
    ++cPages;
    Fill({0, 0, size.cx, size.cy}, 0xFFFFFF);
    return this;
}

bool SvgDocument::EndPage()
{
    EndRun();
    sBody += "</g>\n";
    return true;
}

bool SvgDocument::Finish(std::string& sBytes)
{
    std::string const sPages = std::move(sBody);
    std::string const sWidth = std::to_string(size.cx);
    std::string const sHeight = std::to_string(size.cy);
    std::string const sTotal = std::to_string(std::max<int64_t>(cPages, 1) * size.cy);
    sBody = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + sWidth +
            "\" height=\"" + sTotal + "\" viewBox=\"0 0 " + sWidth + ' ' + sTotal +
            "\" font-family=\"DejaVu Sans,sans-serif\" stroke-linecap=\"round\" stroke-linejoin=\"round\" "
            "xml:space=\"preserve\">\n<title>";
    Escaped(sTitle);
    sBody += "</title>\n<clipPath id=\"page\"><path d=\"M0 0h" + sWidth + 'v' + sHeight + "H0z\"/></clipPath>\n";
    sBody += sPages;
    sBody += "</svg>\n";
    sBytes = std::move(sBody);
    return true;
}

void SvgDocument::Line(POINT from, POINT to, Pen const& pen)
{
    RECT const around{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)};
    if (!IsOnPage(around, pen.lWidth))
        return;
    if (pen.lWidth == 1 && (from.x == to.x || from.y == to.y))
    {
        // One pixel deep; the end point isn't part of a line, whichever way it runs.
        RECT box = around;
        (from.x == to.x ? box.right : box.bottom) += 1;
        if (to.x < from.x)
            box = {box.left + 1, box.top, box.right + 1, box.bottom};
        if (to.y < from.y)
            box = {box.left, box.top + 1, box.right, box.bottom + 1};
        Fill(box, pen.color);
        return;
    }
    GoOnWith(Run::LINES, pen.color, pen.lWidth);
    sBody += 'M';
    Halves(2 * int64_t{from.x} + 1);
    sBody += ' ';
    Halves(2 * int64_t{from.y} + 1);
    sBody += 'l';
    Number(int64_t{to.x} - from.x);
    sBody += ' ';
    Number(int64_t{to.y} - from.y);
}

void SvgDocument::Box(RECT box, Pen const& pen, Brush const& brush)
{
    int64_t const lWidth = int64_t{box.right} - box.left - 1;
    int64_t const lHeight = int64_t{box.bottom} - box.top - 1;
    if (IsSolid(pen, brush) || (!pen.bNull && pen.lWidth == 1 && (lWidth == 0 || lHeight == 0)))
    {
        Fill(box, pen.bNull ? brush.color : pen.color);
        return;
    }
    if (!IsOnPage(box, pen.lWidth))
        return;
    EndRun();
    sBody += "<rect x=\"";
    Halves(2 * int64_t{box.left} + 1);
    sBody += "\" y=\"";
    Halves(2 * int64_t{box.top} + 1);
    sBody += "\" width=\"";
    Number(lWidth);
    sBody += "\" height=\"";
    Number(lHeight);
    sBody += "\" stroke-linejoin=\"miter\"";
    Paint(pen, brush);
    sBody += "/>\n";
}

void SvgDocument::Ellipse(RECT box, Pen const& pen, Brush const& brush)
{
    bool const bSolid = IsSolid(pen, brush);
    // An outline lies on the centres of the outermost pixels.
    int64_t const lWidth = int64_t{box.right} - box.left - (bSolid ? 0 : 1);
    int64_t const lHeight = int64_t{box.bottom} - box.top - (bSolid ? 0 : 1);
    if (lWidth == 0 || lHeight == 0)
    {
        Fill(box, pen.color);
        return;
    }
    if (!IsOnPage(box, pen.lWidth))
        return;
    EndRun();
    sBody += "<ellipse cx=\"";
    Halves(int64_t{box.left} + box.right);
    sBody += "\" cy=\"";
    Halves(int64_t{box.top} + box.bottom);
    sBody += "\" rx=\"";
    Halves(lWidth);
    sBody += "\" ry=\"";
    Halves(lHeight);
    sBody += '"';
    if (bSolid)
        Color("fill", brush.color);
    else
        Paint(pen, brush);
    sBody += "/>\n";
}

void SvgDocument::Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush)
{
    RECT around{points[0].x, points[0].y, points[0].x, points[0].y};
    for (POINT const& point : points)
        around = {std::min(around.left, point.x), std::min(around.top, point.y), std::max(around.right, point.x),
                  std::max(around.bottom, point.y)};
    if (!IsOnPage(around, pen.lWidth))
        return;
    EndRun();
    sBody += "<path";
    Paint(pen, brush);
    sBody += " d=\"M";
    int32_t const lHalf = pen.bNull ? 0 : 1;
    Halves(2 * int64_t{points[0].x} + lHalf);
    sBody += ' ';
    Halves(2 * int64_t{points[0].y} + lHalf);
    sBody += 'l';
    for (size_t l = 1; l < points.size(); ++l)
    {
        if (l > 1)
            sBody += ' ';
        Number(int64_t{points[l].x} - points[l - 1].x);
        sBody += ' ';
        Number(int64_t{points[l].y} - points[l - 1].y);
    }
    sBody += "z\"/>\n";
}

void SvgDocument::Text(double x, double baseline, std::string_view sText, TextStyle const& style)
{
    if (baseline + style.emPixels < 0 || baseline - style.emPixels > size.cy || x > size.cx)
        return;
    EndRun();
    bool const bStretched = std::abs(style.stretch - 1) > 1e-6;
    sBody += bStretched ? "<text transform=\"translate(" : "<text x=\"";
    Hundredths(x);
    sBody += bStretched ? " " : "\" y=\"";
    Hundredths(baseline);
    if (bStretched)
    {
        sBody += ") scale(";
        Hundredths(style.stretch);
        sBody += " 1)";
    }
    sBody += "\" font-size=\"";
    Hundredths(style.emPixels);
    sBody += '"';
    if (style.bBold)
        sBody += " font-weight=\"bold\"";
    Color("fill", style.color);
    sBody += '>';
    Escaped(sText);
    sBody += "</text>\n";
}

void SvgDocument::Fill(RECT box, COLORREF color)
{
    if (!IsOnPage(box, 0))
        return;
    GoOnWith(Run::FILLED, color, 0);
    int64_t const lWidth = int64_t{box.right} - box.left;
    sBody += 'M';
    Number(box.left);
    sBody += ' ';
    Number(box.top);
    sBody += 'h';
    Number(lWidth);
    sBody += 'v';
    Number(int64_t{box.bottom} - box.top);
    sBody += 'h';
    Number(-lWidth);
    sBody += 'z';
}

bool SvgDocument::IsOnPage(RECT const& box, int32_t lSlack) const
{
    int64_t const lWide = lSlack;
    return box.right + lWide >= 0 && box.left - lWide <= size.cx && box.bottom + lWide >= 0 &&
           box.top - lWide <= size.cy;
}

void SvgDocument::GoOnWith(Run wanted, COLORREF color, int32_t lWidth)
{
    if (run == wanted && runColor == color && lRunWidth == lWidth)
        return;
    EndRun();
    run = wanted;
    runColor = color;
    lRunWidth = lWidth;
    sBody += "<path";
    if (wanted == Run::LINES)
        Paint({.bNull = false, .lWidth = lWidth, .color = color}, {.bNull = true});
    else
        Color("fill", color);
    sBody += " d=\"";
}

void SvgDocument::EndRun()
{
    if (run != Run::NONE)
        sBody += "\"/>\n";
    run = Run::NONE;
}

void SvgDocument::Paint(Pen const& pen, Brush const& brush)
{
    if (brush.bNull)
        sBody += " fill=\"none\"";
    else
        Color("fill", brush.color);
    if (pen.bNull)
        return;
    if (pen.color == 0)
        sBody += " stroke=\"#000\"";
    else
        Color("stroke", pen.color);
    if (pen.lWidth == 1)
        return;
    sBody += " stroke-width=\"";
    Number(pen.lWidth);
    sBody += '"';
}

/// Black, which fills a shape that says nothing, is left out.
void SvgDocument::Color(char const* sAttribute, COLORREF color)
{
    if (color == 0)
        return;
    constexpr char const* sDigits = "0123456789abcdef";
    sBody += ' ';
    sBody += sAttribute;
    sBody += "=\"#";
    for (uint32_t const lByte : {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF})
    {
        sBody += sDigits[lByte >> 4];
        sBody += sDigits[lByte & 0xF];
    }
    sBody += '"';
}

void SvgDocument::Number(int64_t l)
{
    char aDigits[24];
    sBody.append(aDigits, std::to_chars(std::begin(aDigits), std::end(aDigits), l).ptr);
}

/// l / 2.
void SvgDocument::Halves(int64_t l)
{
    if (l == -1)
        sBody += '-'; // the one negative value whose whole part doesn't show its sign
    Number(l / 2);
    if (l % 2 != 0)
        sBody += ".5";
}

void SvgDocument::Hundredths(double x)
{
    constexpr double most = 1e9; // far beyond any page
    int64_t const l = std::llround(std::clamp(x, -most, most) * 100);
    if (l < 0)
        sBody += '-';
    int64_t const lAbs = std::abs(l);
    Number(lAbs / 100);
    if (lAbs % 100 == 0)
        return;
    sBody += '.';
    sBody += static_cast<char>('0' + lAbs % 100 / 10);
    if (lAbs % 10 != 0)
        sBody += static_cast<char>('0' + lAbs % 10);
}

/// What XML can't hold is dropped: control characters, and the two that are no characters.
void SvgDocument::Escaped(std::string_view sText)
{
    std::string const sUtf8 = Utf8OrLatin1(sText);
    for (size_t lAt = 0; lAt < sUtf8.size();)
    {
        size_t const lFrom = lAt;
        int32_t const lCharacter = Utf8_Next(sUtf8, lAt);
        if (lCharacter == '&')
            sBody += "&amp;";
        else if (lCharacter == '<')
            sBody += "&lt;";
        else if (lCharacter == '>')
            sBody += "&gt;";
        else if (!IsControlCharacter(lCharacter) && lCharacter != 0xFFFE && lCharacter != 0xFFFF)
            sBody.append(sUtf8, lFrom, lAt - lFrom);
    }
}
} // namespace zarn

#include "platform/svg.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace zarn;

namespace
{
constexpr Pen blackPen{};
constexpr Brush blackBrush{};

/// What one page of 100 by 50 holds behind its background.
template <typename DRAW>
std::string Drawn(DRAW draw)
{
    SvgDocument document({100, 50}, "");
    draw(*document.StartPage());
    document.EndPage();
    std::string s;
    EXPECT_TRUE(document.Finish(s));
    std::string const sBefore = "<path fill=\"#ffffff\" d=\"M0 0h100v50h-100z\"/>\n";
    size_t const lFrom = s.find(sBefore);
    size_t const lTo = s.rfind("</g>");
    if (lFrom == s.npos || lTo == s.npos)
        return "no page in " + s;
    return s.substr(lFrom + sBefore.size(), lTo - lFrom - sBefore.size());
}

/// Tags balanced, no bare < or & in text, no byte that XML forbids.
bool IsWellFormed(std::string_view s)
{
    std::vector<std::string> aOpen;
    for (size_t l = 0; l < s.size(); ++l)
    {
        if (static_cast<uint8_t>(s[l]) < 0x20 && s[l] != '\n')
            return false;
        if (s[l] == '&' && !s.substr(l).starts_with("&amp;") && !s.substr(l).starts_with("&lt;") &&
            !s.substr(l).starts_with("&gt;"))
            return false;
        if (s[l] == '>')
            return false;
        if (s[l] != '<')
            continue;
        size_t const lEnd = s.find('>', l);
        if (lEnd == s.npos)
            return false;
        std::string_view const sTag = s.substr(l + 1, lEnd - l - 1);
        if (std::count(sTag.begin(), sTag.end(), '"') % 2 != 0 || sTag.find('<') != sTag.npos)
            return false;
        if (sTag.starts_with('/'))
        {
            if (aOpen.empty() || aOpen.back() != sTag.substr(1))
                return false;
            aOpen.pop_back();
        }
        else if (!sTag.starts_with('?') && !sTag.ends_with('/'))
            aOpen.emplace_back(sTag.substr(0, sTag.find(' ')));
        l = lEnd;
    }
    return aOpen.empty();
}
} // namespace

TEST(Svg, ADocumentTellsItsSizeAndIsWhiteFirst)
{
    SvgDocument document({300, 200}, "Jig & Reel");
    document.StartPage();
    document.EndPage();
    std::string s;
    ASSERT_TRUE(document.Finish(s));
    EXPECT_TRUE(
        s.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
                      "width=\"300\" height=\"200\" viewBox=\"0 0 300 200\" font-family=\"DejaVu Sans,sans-serif\""))
        << s;
    EXPECT_NE(s.find("<title>Jig &amp; Reel</title>"), s.npos);
    EXPECT_NE(s.find("<path fill=\"#ffffff\" d=\"M0 0h300v200h-300z\"/>"), s.npos);
    EXPECT_TRUE(IsWellFormed(s)) << s;
}

TEST(Svg, PagesStandOneUnderAnother)
{
    SvgDocument document({300, 200}, "");
    for (int32_t lPage = 0; lPage < 3; ++lPage)
    {
        document.StartPage()->Fill({0, 0, 1, 1}, 0);
        document.EndPage();
    }
    std::string s;
    ASSERT_TRUE(document.Finish(s));
    EXPECT_NE(s.find("height=\"600\" viewBox=\"0 0 300 600\""), s.npos);
    EXPECT_NE(s.find("translate(0 200)"), s.npos);
    EXPECT_NE(s.find("translate(0 400)"), s.npos);
    size_t cBackgrounds = 0;
    for (size_t l = 0; (l = s.find("#ffffff", l)) != s.npos; ++l)
        ++cBackgrounds;
    EXPECT_EQ(cBackgrounds, 3u);
    EXPECT_TRUE(IsWellFormed(s)) << s;
}

TEST(Svg, ADocumentWithoutPagesIsStillOne)
{
    SvgDocument document({0, -5}, "");
    std::string s;
    ASSERT_TRUE(document.Finish(s));
    EXPECT_NE(s.find("viewBox=\"0 0 1 1\""), s.npos);
    EXPECT_TRUE(IsWellFormed(s)) << s;
}

TEST(Svg, ABoxCoversItsPixelsAndBoxesOfOneColourShareAPath)
{
    EXPECT_EQ(Drawn(
                  [](Surface& s)
                  {
                      s.Box({10, 20, 30, 24}, blackPen, blackBrush);
                      s.Box({1, 2, 3, 4}, {.bNull = true}, blackBrush);
                      s.Fill({5, 5, 6, 9}, 0);
                      s.Fill({5, 5, 6, 9}, 0x0000FF);
                  }),
              "<path d=\"M10 20h20v4h-20zM1 2h2v2h-2zM5 5h1v4h-1z\"/>\n"
              "<path fill=\"#ff0000\" d=\"M5 5h1v4h-1z\"/>\n");
}

TEST(Svg, AnOutlinedBoxLiesOnItsOutermostPixels)
{
    EXPECT_EQ(Drawn(
                  [](Surface& s)
                  {
                      s.Box({10, 20, 30, 24}, blackPen, {.color = 0xFFFFFF});
                      s.Box({10, 20, 11, 24}, blackPen, {.color = 0xFFFFFF});
                  }),
              "<rect x=\"10.5\" y=\"20.5\" width=\"19\" height=\"3\" stroke-linejoin=\"miter\" fill=\"#ffffff\" "
              "stroke=\"#000\"/>\n<path d=\"M10 20h1v4h-1z\"/>\n");
}

TEST(Svg, UprightAndLevelHairLinesAreBoxesWithoutTheirEndPoint)
{
    EXPECT_EQ(Drawn(
                  [](Surface& s)
                  {
                      s.Line({10, 20}, {15, 20}, blackPen);
                      s.Line({15, 20}, {10, 20}, blackPen);
                      s.Line({10, 20}, {10, 23}, blackPen);
                      s.Line({10, 23}, {10, 20}, blackPen);
                  }),
              "<path d=\"M10 20h5v1h-5zM11 20h5v1h-5zM10 20h1v3h-1zM10 21h1v3h-1z\"/>\n");
}

TEST(Svg, SlantedAndWideLinesAreStrokes)
{
    EXPECT_EQ(Drawn(
                  [](Surface& s)
                  {
                      s.Line({0, 0}, {5, -3}, blackPen);
                      s.Line({-1, -2}, {5, 3}, blackPen);
                      s.Line({1, 1}, {5, 1}, {.lWidth = 3, .color = 0xFF0000});
                  }),
              "<path fill=\"none\" stroke=\"#000\" d=\"M0.5 0.5l5 -3M-0.5 -1.5l6 5\"/>\n"
              "<path fill=\"none\" stroke=\"#0000ff\" stroke-width=\"3\" d=\"M1.5 1.5l4 0\"/>\n");
}

TEST(Svg, SolidEllipsesFillTheirBoxAndOpenOnesLieOnItsEdge)
{
    EXPECT_EQ(Drawn(
                  [](Surface& s)
                  {
                      s.Ellipse({10, 20, 30, 25}, blackPen, blackBrush);
                      s.Ellipse({10, 20, 30, 24}, {.lWidth = 2}, {.bNull = true});
                      s.Ellipse({10, 20, 11, 25}, blackPen, {.bNull = true});
                  }),
              "<ellipse cx=\"20\" cy=\"22.5\" rx=\"10\" ry=\"2.5\"/>\n"
              "<ellipse cx=\"20\" cy=\"22\" rx=\"9.5\" ry=\"1.5\" fill=\"none\" stroke=\"#000\" stroke-width=\"2\"/>\n"
              "<path d=\"M10 20h1v5h-1z\"/>\n");
}

TEST(Svg, PolygonsGoFromPointToPoint)
{
    POINT const aPoints[] = {{1, 2}, {5, 2}, {5, 6}};
    EXPECT_EQ(Drawn(
                  [&](Surface& s)
                  {
                      s.Polygon(aPoints, blackPen, blackBrush);
                      s.Polygon(aPoints, {.bNull = true}, {.color = 0xFF00});
                  }),
              "<path stroke=\"#000\" d=\"M1.5 2.5l4 0 0 4z\"/>\n<path fill=\"#00ff00\" d=\"M1 2l4 0 0 4z\"/>\n");
}

TEST(Svg, WhatLiesOffThePageIsLeftOut)
{
    POINT const aPoints[] = {{1, 200}, {5, 200}};
    EXPECT_EQ(Drawn(
                  [&](Surface& s)
                  {
                      s.Box({-20, 0, -10, 5}, blackPen, blackBrush);
                      s.Box({0, 60, 10, 70}, blackPen, {.bNull = true});
                      s.Ellipse({0, -20, 10, -10}, blackPen, blackBrush);
                      s.Line({0, 90}, {50, 80}, blackPen);
                      s.Polygon(aPoints, blackPen, blackBrush);
                      s.Text(0, 200, "Air", {.emPixels = 13});
                      s.Text(101, 20, "Air", {.emPixels = 13});
                  }),
              "");
}

TEST(Svg, TextHasItsPlaceSizeWeightStretchAndColour)
{
    EXPECT_EQ(Drawn(
                  [](Surface& s)
                  {
                      s.Text(10, 20.456, "Air", {.emPixels = 13});
                      s.Text(-1.5, 20, "Air", {.emPixels = 12.5, .stretch = 0.8, .bBold = true, .color = 0x0000FF});
                  }),
              "<text x=\"10\" y=\"20.46\" font-size=\"13\">Air</text>\n"
              "<text transform=\"translate(-1.5 20) scale(0.8 1)\" font-size=\"12.5\" font-weight=\"bold\" "
              "fill=\"#ff0000\">Air</text>\n");
}

TEST(Svg, AnyBytesMakeAWellFormedDocument)
{
    std::string sAll;
    for (int32_t l = 0; l < 256; ++l)
        sAll += static_cast<char>(l);
    struct
    {
        std::string_view sText;
        char const* sWritten;
    } const aCase[] = {{"<b>&amp;]]>\"'", "&lt;b&gt;&amp;amp;]]&gt;\"'"}, {"a\x01\x1F\x7F\tb", "ab"},
                       {"\xC2\x85x\xEF\xBF\xBE\xEF\xBF\xBF", "x"},        {"caf\xE9 <", "caf\xC3\xA9 &lt;"},
                       {std::string_view("nul\0here", 8), "nulhere"},     {"\xF0\x9D\x84\x9E", "\xF0\x9D\x84\x9E"}};
    for (auto const& c : aCase)
        EXPECT_EQ(Drawn([&](Surface& s) { s.Text(1, 20, c.sText, {.emPixels = 13}); }),
                  std::string("<text x=\"1\" y=\"20\" font-size=\"13\">") + c.sWritten + "</text>\n");

    SvgDocument document({100, 50}, sAll);
    document.StartPage()->Text(1, 20, sAll, {.emPixels = 13});
    document.EndPage();
    std::string s;
    ASSERT_TRUE(document.Finish(s));
    EXPECT_TRUE(IsWellFormed(s)) << s;
}

TEST(Svg, ExtremePlacesStayNumbers)
{
    constexpr int32_t lLeast = INT32_MIN;
    constexpr int32_t lMost = INT32_MAX;
    std::string const s = Drawn(
        [](Surface& s)
        {
            s.Box({lLeast, lLeast, lMost, lMost}, blackPen, blackBrush);
            s.Ellipse({lLeast, lLeast, lMost, lMost}, blackPen, {.bNull = true});
            s.Line({lLeast, lLeast}, {lMost, lMost}, blackPen);
            s.Text(-1e300, 10, "Air", {.emPixels = 1e300});
        });
    EXPECT_NE(s.find("M-2147483648 -2147483648h4294967295v4294967295h-4294967295z"), s.npos) << s;
    EXPECT_NE(s.find("l4294967295 4294967295"), s.npos) << s;
    EXPECT_NE(s.find("x=\"-1000000000\""), s.npos) << s;
}

// What strokes become in pixels.
#include "platform/desktop/qt_surface.h"

#include "platform/font_metrics.h"

#include <QImage>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace zarn
{
namespace
{
constexpr COLORREF black = 0;
constexpr COLORREF red = 0x0000FF;
Pen const blackPen{};
Brush const blackBrush{};
Brush const noBrush{.bNull = true};
Pen const noPen{.bNull = true};
constexpr double aScales[] = {1, 1.25, 1.5, 2};

/// A white picture of 100 by 100 pixels of the drawing, drawn on at a scale.
template <typename DRAW>
QImage Drawn(double scale, DRAW draw)
{
    int const side = static_cast<int>(std::ceil(100 * scale));
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QtSurface surface;
    EXPECT_TRUE(surface.Begin(image, {.size = {100, 100}, .scale = scale}));
    draw(surface);
    EXPECT_TRUE(surface.End());
    return image;
}

bool IsBlack(QImage const& image, int x, int y) { return image.pixel(x, y) == qRgb(0, 0, 0); }
bool IsWhite(QImage const& image, int x, int y) { return image.pixel(x, y) == qRgb(255, 255, 255); }

/// The box that holds all that isn't white; empty when there is nothing.
QRect Inked(QImage const& image)
{
    QRect inked;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!IsWhite(image, x, y))
                inked |= QRect(x, y, 1, 1);
    return inked;
}

int CountGrey(QImage const& image)
{
    int cGrey = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!IsWhite(image, x, y) && !IsBlack(image, x, y))
                ++cGrey;
    return cGrey;
}
} // namespace

TEST(QtSurface, ABoxCoversItsPixelsAndNoOthers)
{
    for (int32_t left = 3; left < 6; ++left)
        for (int32_t width = 1; width < 20; ++width)
            for (int32_t height = 1; height < 20; ++height)
                for (Pen const& pen : {blackPen, noPen})
                {
                    RECT const box{left, 7, left + width, 7 + height};
                    QImage const image = Drawn(1, [&](Surface& surface) { surface.Box(box, pen, blackBrush); });
                    ASSERT_EQ(Inked(image), QRect(left, 7, width, height));
                    ASSERT_EQ(CountGrey(image), 0);
                }
}

TEST(QtSurface, FiveStaffLinesAreEquallyThickAndCrispAtEveryScale)
{
    for (double const scale : aScales)
    {
        QImage const image = Drawn(scale,
                                   [](Surface& surface)
                                   {
                                       for (int32_t y = 11; y < 51; y += 8)
                                           surface.Box({5, y, 95, y + 1}, blackPen, blackBrush);
                                   });
        EXPECT_EQ(CountGrey(image), 0) << scale;
        int cRows = 0;
        for (int y = 0; y < image.height(); ++y)
            cRows += IsBlack(image, image.width() / 2, y);
        EXPECT_EQ(cRows, 5 * std::round(scale)) << scale;
    }
}

TEST(QtSurface, AHairLineIsAsThickAsAStaffLineAndItsEndBelongsToIt)
{
    for (double const scale : aScales)
    {
        QImage const level = Drawn(scale, [](Surface& surface) { surface.Line({10, 20}, {30, 20}, blackPen); });
        QImage const box = Drawn(scale, [](Surface& surface) { surface.Box({10, 20, 31, 21}, blackPen, blackBrush); });
        EXPECT_EQ(level, box) << scale;
        QImage const upright = Drawn(scale, [](Surface& surface) { surface.Line({20, 30}, {20, 10}, blackPen); });
        EXPECT_EQ(upright, Drawn(scale,
                                 [](Surface& surface) {
                                     surface.Box({20, 10, 21, 31}, blackPen, blackBrush);
                                 }))
            << scale;
    }
}

TEST(QtSurface, ASlantIsSmooth)
{
    QImage const image = Drawn(1, [](Surface& surface) { surface.Line({10, 10}, {60, 30}, blackPen); });
    EXPECT_GT(CountGrey(image), 20);
    EXPECT_TRUE(QRect(9, 9, 53, 23).contains(Inked(image)));
    EXPECT_TRUE(Inked(image).contains(QRect(10, 10, 51, 21)));
}

TEST(QtSurface, AFlatPolygonIsAHairLine)
{
    POINT const flat[] = {{10, 40}, {10, 40}, {30, 40}, {30, 40}};
    QImage const image = Drawn(1, [&](Surface& surface) { surface.Polygon(flat, blackPen, blackBrush); });
    EXPECT_EQ(Inked(image), QRect(10, 40, 21, 1));
    EXPECT_TRUE(IsBlack(image, 20, 40));
}

TEST(QtSurface, TheSmallestDotsCanBeSeen)
{
    for (int32_t width = 1; width <= 3; ++width)
        for (int32_t height = 1; height <= 3; ++height)
        {
            RECT const box{40, 40, 40 + width, 40 + height};
            QImage const image = Drawn(1, [&](Surface& surface) { surface.Ellipse(box, blackPen, blackBrush); });
            EXPECT_EQ(Inked(image), QRect(40, 40, width, height));
            EXPECT_TRUE(IsBlack(image, 40 + width / 2, 40 + height / 2)) << width << " by " << height;
        }
}

TEST(QtSurface, AHeadFillsItsBoxAtEveryScale)
{
    for (double const scale : {1.0, 2.0})
    {
        QImage const image = Drawn(scale,
                                   [](Surface& surface) {
                                       surface.Ellipse({20, 30, 32, 38}, blackPen, blackBrush);
                                   });
        int const lScale = static_cast<int>(scale);
        EXPECT_EQ(Inked(image), QRect(20 * lScale, 30 * lScale, 12 * lScale, 8 * lScale));
        EXPECT_TRUE(IsBlack(image, 26 * lScale, 34 * lScale));
    }
}

TEST(QtSurface, AnOpenHeadIsARingAsThickAsItsPen)
{
    Pen const wide{.lWidth = 3};
    QImage const image = Drawn(1, [&](Surface& surface) { surface.Ellipse({20, 20, 40, 40}, wide, noBrush); });
    EXPECT_TRUE(IsWhite(image, 30, 30));
    EXPECT_TRUE(IsBlack(image, 20, 30));
    EXPECT_TRUE(IsBlack(image, 30, 39));
    EXPECT_EQ(Inked(image), QRect(19, 19, 22, 22));
}

TEST(QtSurface, AFrameOfAnotherColourStandsInsideItsBox)
{
    Brush const redBrush{.color = red};
    for (double const scale : aScales)
    {
        QImage const image = Drawn(scale, [&](Surface& surface) { surface.Box({20, 20, 40, 30}, blackPen, redBrush); });
        EXPECT_TRUE(IsBlack(image, static_cast<int>(std::round(20 * scale)), static_cast<int>(25 * scale))) << scale;
        EXPECT_EQ(image.pixel(static_cast<int>(30 * scale), static_cast<int>(25 * scale)), qRgb(255, 0, 0)) << scale;
        EXPECT_EQ(Inked(image).width(), std::round(20 * scale)) << scale;
    }
    QImage const hollow = Drawn(1, [](Surface& surface) { surface.Box({20, 20, 40, 30}, blackPen, noBrush); });
    EXPECT_EQ(Inked(hollow), QRect(20, 20, 20, 10));
    EXPECT_TRUE(IsWhite(hollow, 30, 25));
    EXPECT_EQ(CountGrey(hollow), 0);
}

TEST(QtSurface, ColoursHaveRedInTheLowByte)
{
    QImage const image = Drawn(1, [](Surface& surface) { surface.Fill({0, 0, 100, 100}, 0x332211); });
    EXPECT_EQ(image.pixel(50, 50), qRgb(0x11, 0x22, 0x33));
}

TEST(QtSurface, CoordinatesFarOffThePageDrawWhatIsOnIt)
{
    constexpr int32_t far = INT32_MAX;
    QImage const image = Drawn(1,
                               [](Surface& surface)
                               {
                                   surface.Box({-far, 10, far, 12}, blackPen, blackBrush);
                                   surface.Box({far - 2, 10, far, 12}, blackPen, blackBrush);
                                   surface.Line({-far, 20}, {far, 20}, blackPen);
                                   surface.Ellipse({far - 10, far - 10, far, far}, blackPen, blackBrush);
                               });
    EXPECT_EQ(Inked(image), QRect(0, 10, 100, 11));
}

TEST(QtSurface, TextIsAsWideAsItMeasures)
{
    constexpr double em = 12;
    for (bool const bBold : {false, true})
        for (std::string_view const sText : {"Allegro ma non troppo", "HHHHHHHHHHHH", "AVAVAVAV To", "Mein Mädchen"})
            for (double const scale : {1.0, 2.0})
                for (double const stretch : {0.5, 1.0, 1.5})
                {
                    QImage image(1000, 100, QImage::Format_RGB32);
                    image.fill(Qt::white);
                    QtSurface surface;
                    ASSERT_TRUE(surface.Begin(image, {.size = {500, 50}, .scale = scale}));
                    // Two upright bars enclose the text, as wide as they measure themselves.
                    std::string const sBetween = "|" + std::string(sText) + "|";
                    surface.Text(10, 30, sBetween,
                                 {.emPixels = em, .stretch = stretch, .bBold = bBold, .color = black});
                    surface.End();
                    double const units = static_cast<double>(Face_Advance(sBetween, bBold));
                    double const bar = static_cast<double>(Face_Advance("|", bBold));
                    double const expected = (units - bar) * em / lUnitsPerEm * stretch * scale;
                    QRect const inked = Inked(image);
                    double const barInk = 0.3 * bar * em / lUnitsPerEm * stretch * scale;
                    EXPECT_NEAR(inked.width() - barInk, expected, scale + 1)
                        << sText << (bBold ? " bold" : "") << " scale " << scale << " stretch " << stretch;
                }
}

TEST(QtSurface, ABaselineStandsUnderTheLetters)
{
    QImage const image =
        Drawn(1, [](Surface& surface) { surface.Text(10, 60, "H", {.emPixels = 40, .bBold = true, .color = black}); });
    QRect const inked = Inked(image);
    EXPECT_NEAR(inked.bottom() + 1, 60, 1);
    EXPECT_NEAR(inked.height(), 0.729 * 40, 1.5); // the face's capitals
}
TEST(QtSurface, WhatItTouchedHoldsAllThatChanged)
{
    Pen const wide{.lWidth = 5};
    struct
    {
        char const* sWhat;
        std::function<void(QtSurface&)> draw;
    } const aCase[] = {
        {"slant",
         [&](QtSurface& s) {
             s.Line({40, 30}, {90, 71}, wide);
         }},
        {"level line",
         [](QtSurface& s) {
             s.Line({40, 30}, {90, 30}, Pen{});
         }},
        {"frame",
         [&](QtSurface& s) {
             s.Box({20, 20, 60, 50}, wide, Brush{.bNull = true});
         }},
        {"ring",
         [&](QtSurface& s) {
             s.Ellipse({20, 20, 60, 50}, wide, Brush{.bNull = true});
         }},
        {"dot",
         [](QtSurface& s) {
             s.Ellipse({20, 20, 22, 22}, Pen{}, Brush{});
         }},
        {"head",
         [](QtSurface& s) {
             s.Ellipse({20, 20, 60, 50}, Pen{}, Brush{});
         }},
        {"polygon",
         [](QtSurface& s)
         {
             POINT const aPoints[] = {{30, 30}, {80, 35}, {50, 80}};
             s.Polygon(aPoints, Pen{}, Brush{});
         }},
        {"text", [](QtSurface& s) { s.Text(20, 60, "Jgy\xC3\x84", {.emPixels = 20, .bBold = true}); }},
        {"off the surface",
         [](QtSurface& s) {
             s.Line({-500, 30}, {INT32_MAX, 30}, Pen{});
         }},
    };
    for (double const scale : aScales)
        for (auto const& c : aCase)
        {
            QRect touched;
            QImage const image = Drawn(scale,
                                       [&](QtSurface& surface)
                                       {
                                           EXPECT_TRUE(surface.TakeTouched().isEmpty());
                                           c.draw(surface);
                                           touched = surface.TakeTouched();
                                           EXPECT_TRUE(surface.TakeTouched().isEmpty()) << "it was taken";
                                       });
            QRect const inked = Inked(image);
            QRectF const onDevice(QPointF(touched.topLeft()) * scale, QSizeF(touched.size()) * scale);
            EXPECT_FALSE(inked.isEmpty()) << c.sWhat;
            EXPECT_TRUE(onDevice.contains(QRectF(inked))) << c.sWhat << " at " << scale;
        }
}
} // namespace zarn

#include "platform/gdi.h"

#include "platform/font_metrics.h"
#include "platform/headless/recording_surface.h"

#include <gtest/gtest.h>

#include <limits>

using namespace zarn;

namespace
{
class Gdi : public testing::Test
{
protected:
    RecordingSurface surface{{600, 400}};
    DeviceContext context{.pSurface = &surface};
    HDC hdc = &context;
    int32_t cObjectsBefore = cGdiObjects;

    void TearDown() override { EXPECT_EQ(cGdiObjects, cObjectsBefore) << "objects made and not deleted"; }
};
} // namespace

TEST_F(Gdi, AFreshContextHasABlackPenAndAWhiteBrush)
{
    EXPECT_TRUE(Rectangle(hdc, 1, 2, 3, 4));
    EXPECT_EQ(surface.All(), "box 1,2 3,4 brush #ffffff\n");
}

TEST_F(Gdi, StockObjectsAreTheFiveThatAreNamed)
{
    EXPECT_EQ(GetStockObject(WHITE_BRUSH)->brush.color, 0xFFFFFFu);
    EXPECT_EQ(GetStockObject(BLACK_BRUSH)->brush.color, 0u);
    EXPECT_TRUE(GetStockObject(NULL_BRUSH)->brush.bNull);
    EXPECT_TRUE(GetStockObject(NULL_PEN)->pen.bNull);
    EXPECT_EQ(GetStockObject(BLACK_PEN)->pen.lWidth, 1);
    EXPECT_EQ(GetStockObject(1), nullptr);
    for (HGDIOBJ const hStock : {GetStockObject(BLACK_PEN), GetStockObject(NULL_BRUSH), HGDIOBJ{nullptr}})
        DeleteObject(hStock);
    EXPECT_EQ(GetStockObject(BLACK_PEN)->kind, GdiObject::PEN) << "stock objects outlive their deletion";
}

TEST_F(Gdi, SelectingGivesWhatWasSelectedBefore)
{
    HPEN const hRed = CreatePen(PS_SOLID, 2, 255);
    EXPECT_EQ(SelectObject(hdc, hRed), GetStockObject(BLACK_PEN));
    EXPECT_EQ(SelectObject(hdc, GetStockObject(BLACK_BRUSH)), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(SelectObject(hdc, GetStockObject(NULL_PEN)), hRed);
    EXPECT_EQ(SelectObject(hdc, nullptr), nullptr);
    EXPECT_EQ(context.hPen, GetStockObject(NULL_PEN)) << "null changes nothing";

    HFONT const hFont = CreateFontA(20, 0, 700);
    HGDIOBJ const hBefore = SelectObject(hdc, hFont);
    ASSERT_NE(hBefore, nullptr);
    EXPECT_EQ(SelectObject(hdc, hBefore), hFont);
    EXPECT_TRUE(ExtTextOutA(hdc, 0, 0, "a"));
    EXPECT_EQ(surface.All(), "text 0,12.07 em 13 \"a\"\n") << "the font that stood there first is back";
    DeleteObject(hFont);
    DeleteObject(hRed);
}

TEST_F(Gdi, ObjectsCanBeMadeToFail)
{
    cGdiObjectsLeft = 1;
    HFONT const hFirst = CreateFontA(20, 0, 400);
    EXPECT_NE(hFirst, nullptr);
    EXPECT_EQ(CreateFontA(20, 0, 400), nullptr);
    HBRUSH const hThird = CreateSolidBrush(0);
    EXPECT_NE(hThird, nullptr) << "one failure, not a run of them";
    DeleteObject(hFirst);
    DeleteObject(hThird);
}

TEST_F(Gdi, LinesGoOnFromTheCurrentPosition)
{
    MoveToEx(hdc, 1, 2);
    LineTo(hdc, 10, 2);
    LineTo(hdc, 10, 2); // no way at all
    LineTo(hdc, 10, 20);
    SelectObject(hdc, GetStockObject(NULL_PEN));
    LineTo(hdc, 30, 30); // moves without drawing
    SelectObject(hdc, GetStockObject(BLACK_PEN));
    LineTo(hdc, 31, 31);
    EXPECT_EQ(surface.All(), "line 1,2 10,2\nline 10,2 10,20\nline 30,30 31,31\n");
}

TEST_F(Gdi, ABoxWithItsBottomAboveItsTopIsPutStraight)
{
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    Rectangle(hdc, 10, 30, 50, 20); // the rest that sits on its line
    Ellipse(hdc, 9, 9, 1, 1);
    EXPECT_EQ(surface.All(), "box 10,20 50,30\nellipse 1,1 9,9\n");
}

TEST_F(Gdi, AnEmptyBoxDrawsNothing)
{
    EXPECT_TRUE(Rectangle(hdc, 10, 20, 10, 30));
    EXPECT_TRUE(Ellipse(hdc, 10, 20, 30, 20));
    EXPECT_TRUE(FillRect(hdc, {5, 5, 5, 9}, GetStockObject(BLACK_BRUSH)));
    EXPECT_TRUE(surface.aLines.empty());
}

TEST_F(Gdi, WithoutAPenABoxLosesTheEdgeThatThePenWouldHaveDrawn)
{
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    SelectObject(hdc, GetStockObject(NULL_PEN));
    Rectangle(hdc, 0, 0, 10, 10);
    Rectangle(hdc, 0, 0, 1, 10); // the edge was all there was
    SelectObject(hdc, GetStockObject(NULL_BRUSH));
    Rectangle(hdc, 0, 0, 10, 10);
    EXPECT_EQ(surface.All(), "box 0,0 9,9 pen none\n");
}

TEST_F(Gdi, PolygonsNeedTwoPoints)
{
    POINT const aPoints[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    EXPECT_TRUE(Polygon(hdc, aPoints, 4));
    EXPECT_FALSE(Polygon(hdc, aPoints, 1));
    EXPECT_FALSE(Polygon(hdc, nullptr, 4));
    EXPECT_EQ(surface.All(), "polygon 0,0 4,0 4,4 0,4\n");
}

TEST_F(Gdi, FillingTakesABrushAndNoPen)
{
    HBRUSH const hBlue = CreateSolidBrush(0xFF0000);
    EXPECT_TRUE(FillRect(hdc, {0, 0, 5, 6}, hBlue));
    EXPECT_FALSE(FillRect(hdc, {0, 0, 5, 6}, nullptr));
    EXPECT_EQ(surface.All(), "fill 0,0 5,6 #0000ff\n");
    DeleteObject(hBlue);
}

TEST_F(Gdi, TheFontsHeightIsOfTheCellOrOfTheEmOrTheSurfacesOwn)
{
    struct
    {
        int32_t lHeight;
        double em;
    } const aCase[] = {{2384, 2048}, {5, 5.0 * 2048 / 2384}, {-2048, 2048}, {-5, 5}, {4, 13}, {0, 13}, {-4, 13}};
    for (auto const& c : aCase)
    {
        HFONT const hFont = CreateFontA(c.lHeight, 0, 700);
        SelectObject(hdc, hFont);
        SIZE size;
        ASSERT_TRUE(GetTextExtentPoint32A(hdc, "AAAAAAAAAA", &size));
        EXPECT_NEAR(size.cx, c.em * 15850 / 2048, 0.51) << c.lHeight;
        EXPECT_NEAR(size.cy, c.em * 2384 / 2048, 0.51) << c.lHeight;
        DeleteObject(hFont);
    }
}

TEST_F(Gdi, AFontsWidthStretchesTheAverageLetterToIt)
{
    HFONT const hFont = CreateFontA(-100, 200, 700);
    SelectObject(hdc, hFont);
    SIZE size;
    ASSERT_TRUE(GetTextExtentPoint32A(hdc, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", &size));
    EXPECT_NEAR(size.cx, 52 * 200, 5);
    DeleteObject(hFont);
}

TEST_F(Gdi, TextIsDrawnWhereItsCornerStands)
{
    HFONT const hFont = CreateFontA(-2048, 0, 400);
    SelectObject(hdc, hFont);
    SetTextColor(hdc, 255);
    ExtTextOutA(hdc, 7, 100, "Air");
    EXPECT_EQ(SetTextAlign(hdc, TA_BOTTOM), TA_TOP);
    EXPECT_EQ(GetTextAlign(hdc), TA_BOTTOM);
    ExtTextOutA(hdc, 7, 2000, "Air");
    EXPECT_EQ(surface.All(), "text 7,2001 em 2048 #ff0000 \"Air\"\ntext 7,1517 em 2048 #ff0000 \"Air\"\n");
    DeleteObject(hFont);
}

TEST_F(Gdi, TextReachesTheSurfaceAsUtf8WithoutControlCharacters)
{
    EXPECT_TRUE(ExtTextOutA(hdc, 0, 0, "caf\xE9\r\n"));
    EXPECT_TRUE(ExtTextOutA(hdc, 0, 0, "\t"));
    EXPECT_TRUE(ExtTextOutA(hdc, 0, 0, ""));
    EXPECT_EQ(surface.All(), "text 0,12.07 em 13 \"caf\xC3\xA9\"\n");
}

TEST_F(Gdi, WithoutASurfaceEverythingFails)
{
    DeviceContext nowhere;
    SIZE size;
    for (HDC const h : {HDC{nullptr}, &nowhere})
    {
        EXPECT_FALSE(LineTo(h, 1, 1));
        EXPECT_FALSE(Rectangle(h, 0, 0, 2, 2));
        EXPECT_FALSE(Ellipse(h, 0, 0, 2, 2));
        EXPECT_FALSE(ExtTextOutA(h, 0, 0, "a"));
        EXPECT_FALSE(GetTextExtentPoint32A(h, "a", &size));
        EXPECT_EQ(GetDeviceCaps(h, HORZRES), 0);
    }
    EXPECT_FALSE(MoveToEx(nullptr, 1, 1));
    EXPECT_EQ(SelectObject(nullptr, GetStockObject(BLACK_PEN)), nullptr);
}

TEST_F(Gdi, TheDevicesSizeIsTheSurfaces)
{
    EXPECT_EQ(GetDeviceCaps(hdc, HORZRES), 600);
    EXPECT_EQ(GetDeviceCaps(hdc, VERTRES), 400);
    EXPECT_EQ(GetDeviceCaps(hdc, 1), 0);
}

TEST_F(Gdi, AnExtentBeyondAllBoundsStaysInRange)
{
    HFONT const hFont = CreateFontA(std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(), 400);
    SelectObject(hdc, hFont);
    SIZE size;
    EXPECT_TRUE(GetTextExtentPoint32A(hdc, "AAAA", &size));
    EXPECT_EQ(size.cx, std::numeric_limits<int32_t>::max());
    EXPECT_EQ(size.cy, std::numeric_limits<int32_t>::max());
    DeleteObject(hFont);
}

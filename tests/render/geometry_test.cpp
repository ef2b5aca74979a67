#include "render/geometry.h"

#include "core/messages.h"
#include "layout/place.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

#include <random>

namespace zarn
{
namespace
{
class Geometry : public test::LayoutFixture
{
protected:
    static POINT Fold(int32_t lStrX, int32_t lDiaPitch, int32_t lStaff = 1, int32_t lClef = 1)
    {
        POINT at;
        Draw_Fold(lStrX, lDiaPitch, lStaff, lClef, &at.x, &at.y);
        return at;
    }
};

TEST_F(Geometry, UnitsAreRoundedPixelsOfTheGrid)
{
    EXPECT_EQ(xunit, 8);
    EXPECT_EQ(yunit, 7); // (60 + 800) / 120
    EXPECT_EQ(lBlobX, 14);
    EXPECT_EQ(lBlobY, 12);
    EXPECT_EQ(lStemLength, 31);
    int32_t lX = 0;
    int32_t lY = 0;
    GetUnits(&lX, &lY);
    EXPECT_EQ(lX, 8);
    EXPECT_EQ(lY, 7);
}

TEST_F(Geometry, ThePensAreAsThickAsAStemAndFour)
{
    EXPECT_EQ(hpenBlack->pen.lWidth, 2);
    SetCursorScale(20);
    EXPECT_EQ(hpenRed->pen.lWidth, 35 / 8);
    EXPECT_EQ(hpenBlack->pen.color, 0U);
    EXPECT_EQ(hpenRed->pen.color, 255U);
    EXPECT_EQ(hpenBlue->pen.color, 0xFF0000U);
    EXPECT_EQ(hpenGreen->pen.color, 0xFF00U);
    EXPECT_EQ(hpenStock, GetStockObject(BLACK_PEN));
}

TEST_F(Geometry, RenewingThePensLosesNone)
{
    int32_t const cBefore = cGdiObjects;
    SetUnits();
    SetUnits();
    EXPECT_EQ(cGdiObjects, cBefore);
    Geometry_Free();
    EXPECT_EQ(cGdiObjects, cBefore - 4);
    EXPECT_EQ(hpenBlack, nullptr);
    SetUnits();
}

TEST_F(Geometry, AWindowOnePixelWideHasUnitsOfOne)
{
    SetWindowUnits({0, 0, 1, 1});
    EXPECT_EQ(lPageWidth, 1);
    EXPECT_EQ(xunit, 1);
    EXPECT_EQ(yunit, 1);
    EXPECT_EQ(lBlobX, 1);
    EXPECT_EQ(lBlobY, 1);
}

TEST_F(Geometry, MarginsTakeTheirPartOfTheWindow)
{
    lMarginLeft = 10;
    lMarginRight = 5;
    lMarginTop = 20;
    lMarginBottom = 1;
    SetWindowUnits({0, 0, 1000, 500});
    EXPECT_EQ(lPageWidth, 850);
    EXPECT_EQ(lPageHeight, 395);
    EXPECT_EQ(lLeftMarginPx, 100);
    EXPECT_EQ(lTopMarginPx, 100);
}

TEST_F(Geometry, TheLastColumnOfALineAndTheFirstOfTheNext)
{
    EXPECT_EQ(Fold(149, 2).x, (1200 * 149 + 76) / 150);
    EXPECT_EQ(Fold(150, 2).x, 76 / 150);
    EXPECT_EQ(LineOfColumn(149), 1);
    EXPECT_EQ(LineOfColumn(150), 1);
    EXPECT_EQ(LineOfColumn(151), 2);
    EXPECT_EQ(LineOfColumn(300), 2);
    EXPECT_EQ(LineOfColumn(-5), 1);
    EXPECT_EQ(LineStart(149), 0);
    EXPECT_EQ(LineStart(150), 150);
    EXPECT_EQ(NextLine(149), 150);
    EXPECT_EQ(NextLine(150), 300);
}

TEST_F(Geometry, LineOfColumnCountsAsSubtractingDoes)
{
    for (int32_t lCols : {1, 7, 150})
    {
        lColsPerLine = lCols;
        for (int32_t lStrX = -3; lStrX < 500; ++lStrX)
        {
            int32_t lLine = 1;
            for (int32_t lRest = lStrX; lRest > lCols; lRest -= lCols)
                ++lLine;
            EXPECT_EQ(LineOfColumn(lStrX), lStrX <= lCols ? 1 : lLine) << lStrX << " of " << lCols;
        }
    }
}

TEST_F(Geometry, EachClefFoldsItsBottomLineToTheSameRow)
{
    // 16 rows below the top of the band (8 kept free, 4 spaces), 8 above the first system, 800 pixels for 120 rows.
    int32_t const lBottomLineY = (8 + 16) * 800 / 120;
    EXPECT_EQ(Fold(0, 2, 1, 1).y, lBottomLineY);
    EXPECT_EQ(Fold(0, -4, 1, 2).y, lBottomLineY);
    EXPECT_EQ(Fold(0, -10, 1, 3).y, lBottomLineY);
    EXPECT_EQ(Fold(0, -6, 1, 4).y, lBottomLineY);
}

TEST_F(Geometry, ABadClefIsToldAndLeavesThePitchOut)
{
    EXPECT_EQ(Fold(0, 2, 1, 5).y, 8 * 800 / 120);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Draw_Fold called with bad lClef value"});
    Serious_Rearm();
    int32_t l[3] = {7, 7, 7};
    Draw_Straighten(10, 10, &l[0], &l[1], &l[2], 0);
    EXPECT_EQ(process.user.Messages().back(), "Draw_Straighten called with bad lClef value");
    EXPECT_EQ(l[1], 7);
}

TEST_F(Geometry, TheSecondSystemStandsASystemHeightLower)
{
    SetStaffCount(2);
    EXPECT_EQ(SystemHeight(), 2 * 27 + 5);
    EXPECT_EQ(Fold(150, 2).y, (8 + 59 + 16) * 800 / 120);
    EXPECT_EQ(Fold(0, 2, 2).y, (8 + 27 + 16) * 800 / 120);
    bTabShowing = true;
    EXPECT_EQ(SystemHeight(), 4 * 27 + 5);
}

TEST_F(Geometry, StraightenFindsWhatFoldPlaced)
{
    SetStaffCount(3);
    lScroll = 11;
    struct
    {
        int32_t lStrX, lDiaPitch, lStaff, lClef;
    } const aCase[] = {{0, 2, 1, 1}, {77, 8, 2, 1}, {149, -3, 3, 3}, {200, 0, 1, 2}, {460, -8, 2, 4}};
    for (auto const& c : aCase)
    {
        POINT const at = Fold(c.lStrX, c.lDiaPitch, c.lStaff, c.lClef);
        int32_t lStrX = 0;
        int32_t lDiaPitch = 0;
        int32_t lStaff = 0;
        Draw_Straighten(at.x, at.y, &lStrX, &lDiaPitch, &lStaff, c.lClef);
        EXPECT_EQ(lStrX, c.lStrX);
        EXPECT_EQ(lDiaPitch, c.lDiaPitch);
        EXPECT_EQ(lStaff, c.lStaff);
    }
}

TEST_F(Geometry, AClickBelowTheLastBandFallsToTheLastBand)
{
    bTabShowing = true;
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(0, (8 + 27 + 10) * 800 / 120, &lStrX, &lDiaPitch, &lStaff, 1);
    EXPECT_EQ(lStaff, 1);
    EXPECT_EQ(lDiaPitch, 18 - 37);
}

TEST_F(Geometry, ScrollNeverGoesAboveTheTop)
{
    ScrollPages(2);
    EXPECT_EQ(lScroll, 64);
    ScrollLines(-1);
    EXPECT_EQ(lScroll, 37);
    ScrollPages(-5);
    EXPECT_EQ(lScroll, 0);
    lScroll = -9;
    ScrollPages(0);
    EXPECT_EQ(lScroll, 0);
}

TEST_F(Geometry, NoStaffHeightIsToldAndScrollsNothing)
{
    lScroll = 5;
    lStaffHeight = 0;
    ScrollLines(3);
    EXPECT_EQ(lScroll, 5);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Duff staff size"});
}

TEST_F(Geometry, ScrollBottomIsTheFootOfTheBand)
{
    lScroll = 10;
    int32_t lY = 0;
    int32_t lRows = 0;
    ScrollBottom(310, 1, &lY, &lRows);
    EXPECT_EQ(lY, (8 - 10 + 2 * 32 + 10 + 8 + 9) * 800 / 120);
    EXPECT_EQ(lRows, 10 + lY / 7);
}

TEST_F(Geometry, OffPageLeavesFiveHundredPixelsAround)
{
    lTopMarginPx = 20;
    EXPECT_FALSE(OffPage(1320));
    EXPECT_TRUE(OffPage(1321));
    EXPECT_FALSE(OffPage(-520));
    EXPECT_TRUE(OffPage(-521));
    bNoClip = true;
    EXPECT_FALSE(OffPage(99999));
    bNoClip = false;
    bDrawingCursor = true;
    EXPECT_FALSE(OffPage(-99999));
}

TEST_F(Geometry, InitTakesTheStoredSpacing)
{
    process.settings.values["LineSpacing"] = 90;
    process.settings.values["ColSpacing"] = 70;
    process.settings.values["LegersAbove"] = 3;
    process.settings.values["LegersBelow"] = 4;
    lScroll = 9;
    ToggleStaff(2);
    Geometry_Init();
    EXPECT_EQ(lColsPerLine, 90);
    EXPECT_EQ(lRowsPerPage, 70);
    EXPECT_EQ(lStaffHeight, 15);
    EXPECT_EQ(lScroll, 0);
    EXPECT_EQ(lStaffCount, 1);
    EXPECT_EQ(VisibleCount(), 1);
}

TEST_F(Geometry, StoredSpacingOutOfRangeIsMadeSafe)
{
    process.settings.values["LineSpacing"] = 0;
    process.settings.values["ColSpacing"] = 10001;
    Geometry_Init();
    EXPECT_EQ(lColsPerLine, 1);
    EXPECT_EQ(lRowsPerPage, 120);
}

TEST_F(Geometry, ColumnsBelowOneCountAsOne)
{
    lColsPerLine = 0;
    lRowsPerPage = -4;
    EXPECT_EQ(LineStart(7), 7);
    SetUnits();
    EXPECT_EQ(lColsPerLine, 1);
    EXPECT_EQ(lRowsPerPage, 1);
}

TEST_F(Geometry, PaperKeepsTheScreensAspectAndItsLines)
{
    test::Write(1, "clef:1 x:30 n0/48");
    lMarginLeft = 10;
    SetWindowUnits({0, 0, 1200, 800});
    ReGrid();
    int32_t const lXOnScreen = test::At(1, 1)->lX;
    lScroll = 3;
    BeginPrintUnits(4000, 6000, true);
    EXPECT_TRUE(bPrinting);
    EXPECT_TRUE(bPrintScale);
    EXPECT_EQ(lPageWidth, 3600);
    EXPECT_EQ(lLeftMarginPx, 400);
    EXPECT_EQ(lColsPerLine, 150);
    EXPECT_EQ(lRowsPerPage, 6000 * 1080 * 120 / (3600 * 800));
    EXPECT_EQ(test::At(1, 1)->lX, 400 + (3600 * 30 + 76) / 150);
    lScroll = 1000;
    EndPrintUnits();
    EXPECT_FALSE(bPrinting);
    EXPECT_FALSE(bPrintScale);
    EXPECT_EQ(lRowsPerPage, 120);
    EXPECT_EQ(lPageWidth, 1080);
    EXPECT_EQ(lScroll, 3);
    EXPECT_EQ(test::At(1, 1)->lX, lXOnScreen);
}

TEST_F(Geometry, ACursorScaleMakesAColumnAndARowThatManyPixels)
{
    SetCursorScale(6);
    EXPECT_EQ(xunit, 6);
    EXPECT_EQ(yunit, 6);
    EXPECT_EQ(lPageWidth, 900);
    EXPECT_EQ(lPageHeight, 720);
}

TEST_F(Geometry, AnyNumberFoldsAndStraightensWithoutHarm)
{
    std::mt19937 random(5);
    auto const Any = [&]
    {
        int32_t const aEnds[] = {INT32_MIN, -1, 0, 1, INT32_MAX};
        return random() % 2 ? static_cast<int32_t>(random()) : aEnds[random() % 5];
    };
    for (int n = 0; n < 20000; ++n)
    {
        lMarginLeft = Any();
        lMarginRight = Any();
        lMarginTop = Any();
        lMarginBottom = Any();
        lLegersAbove = Any();
        lExtraBetweenSystems = Any();
        lStaffHeight = Any();
        lScroll = Any();
        lTopOffset = Any();
        lStaffCount = static_cast<int32_t>(random() % 10) - 1;
        SetWindowUnits({Any(), Any(), Any(), Any()});
        POINT const at = Fold(Any(), Any(), Any(), 1 + static_cast<int32_t>(random() % 4));
        int32_t l[3];
        Draw_Straighten(at.x, at.y, &l[0], &l[1], &l[2], 1);
        ASSERT_GE(l[2], 0);
        ASSERT_LE(l[2], 8);
        Draw_Straighten(Any(), Any(), &l[0], &l[1], &l[2], 3);
        ScrollBottom(Any(), Any(), &l[0], &l[1]);
        ScrollPages(Any());
        ScrollLines(Any());
        ASSERT_GE(lScroll, 0);
        BeginPrintUnits(Any(), Any(), false);
        EndPrintUnits();
    }
}

TEST_F(Geometry, AMarginWithoutMeasureLeavesRoomForASymbol)
{
    lMarginTop = lMarginLeft = -2'000'000'000;
    SetWindowUnits({0, 0, 1200, 800});
    EXPECT_EQ(lPageHeight, 1'000'000);
    EXPECT_EQ(lPageWidth, 1'000'000);
    EXPECT_EQ(lTopMarginPx, -1'000'000);
    POINT const at = Fold(2'000'000'000, -2'000'000'000, 1, 1);
    EXPECT_EQ(at.y, 1'000'000'000);
    lMarginTop = lMarginLeft = 0;
}
} // namespace
} // namespace zarn

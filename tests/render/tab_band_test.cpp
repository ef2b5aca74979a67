#include "render/tab_band.h"

#include "render/geometry.h"
#include "support/scripted_process.h"
#include "tab/tuning.h"

#include <gtest/gtest.h>

namespace zarn::test
{
namespace
{
struct TabBand : ::testing::Test
{
    ScriptedProcess process;

    TabBand()
    {
        SetWindowUnits({0, 0, 1200, 800}); // a row is 800 / 120 pixels, yunit 7
        bTabShowing = true;
    }
    static POINT Fold(int32_t lStrX, int32_t lString)
    {
        POINT place;
        TabFold(lStrX, lString, 1, &place.x, &place.y);
        return place;
    }
    static int32_t StringAt(POINT place)
    {
        int32_t lStrX = 0;
        int32_t lString = 0;
        int32_t lStaff = 0;
        TabStraighten(place.x, place.y, &lStrX, &lString, &lStaff);
        return lString;
    }
};
constexpr int32_t lBandPixels = 7 * 27;
} // namespace

TEST_F(TabBand, StringOneStandsOneBandBelowTheTopLineOfTheStaff)
{
    EXPECT_EQ(Fold(0, 1).y, (8 + 8) * 800 / 120 + lBandPixels);
    EXPECT_EQ(Fold(0, 6).y, (8 + 8 + 10) * 800 / 120 + lBandPixels);
    EXPECT_EQ(Fold(149, 1).x, 149 * 1200 / 150);
}

TEST_F(TabBand, TheNextLineStandsADoubledSystemLower)
{
    EXPECT_EQ(SystemHeight(), 2 * 27 + 5);
    EXPECT_EQ(Fold(150, 1).y, (8 + 8 + 59) * 800 / 120 + lBandPixels);
    EXPECT_EQ(Fold(150, 1).x, 0);
}

TEST_F(TabBand, StraightenFindsTheColumnAndTheStringThatFoldPlaced)
{
    SetWindowUnits({0, 0, 1193, 811});
    lTopMarginPx = 31;
    lLeftMarginPx = 17;
    lScroll = 4;
    for (int32_t const lStrX : {0, 1, 77, 149, 150, 301, 1000})
        for (int32_t lString = 1; lString <= 6; ++lString)
        {
            POINT const place = Fold(lStrX, lString);
            int32_t lColumn = 0;
            int32_t lFound = 0;
            int32_t lStaff = 0;
            TabStraighten(place.x, place.y, &lColumn, &lFound, &lStaff);
            EXPECT_EQ(lColumn, lStrX);
            EXPECT_EQ(lFound, lString);
            EXPECT_EQ(lStaff, 1);
            EXPECT_TRUE(OnTablature(place.x, place.y)) << lStrX << ' ' << lString;
        }
}

TEST_F(TabBand, AboveAndBelowTheStringsTheNearestOneIsFound)
{
    EXPECT_EQ(StringAt({100, Fold(0, 1).y - 14}), 1);
    EXPECT_EQ(StringAt({100, Fold(0, 6).y + 14}), 6);
    lStrings = 4;
    EXPECT_EQ(StringAt({100, Fold(0, 6).y}), 4);
    lStrings = 0;
    EXPECT_EQ(StringAt({100, Fold(0, 1).y}), 0) << "there is none";
}

TEST_F(TabBand, ThePlaceIsOnTheTablatureFromTheFirstStringToTheLast)
{
    POINT const first = Fold(10, 1);
    POINT const last = Fold(10, 6);
    EXPECT_TRUE(OnTablature(first.x, first.y));
    EXPECT_TRUE(OnTablature(last.x, last.y));
    EXPECT_TRUE(OnTablature(-500, first.y)) << "how far to the left doesn't matter";
    EXPECT_FALSE(OnTablature(first.x, first.y - 7));
    EXPECT_FALSE(OnTablature(last.x, last.y + 7));
    EXPECT_FALSE(OnTablature(first.x, first.y - lBandPixels)) << "the staff";
    lStrings = 1;
    EXPECT_TRUE(OnTablature(first.x, first.y));
    EXPECT_FALSE(OnTablature(first.x, first.y + 14));
    lStrings = 0;
    EXPECT_FALSE(OnTablature(first.x, first.y));
    lStrings = 6;
    bTabShowing = false;
    EXPECT_FALSE(OnTablature(first.x, first.y)) << "hidden";
}

TEST_F(TabBand, ASecondStaffHidesTheTablature)
{
    ToggleStaff(2);
    EXPECT_FALSE(bTabShowing);
    ToggleStaff(2);
    bTabShowing = true;
    SetStaffCount(1);
    EXPECT_TRUE(bTabShowing);
    SetStaffCount(3);
    EXPECT_FALSE(bTabShowing);
}

TEST_F(TabBand, PlacesBeyondAllScoresStayInRange)
{
    lColsPerLine = 1;
    lScroll = INT32_MAX;
    for (int32_t const l : {INT32_MIN, -1, 0, 1, INT32_MAX})
    {
        POINT place;
        TabFold(l, l, l, &place.x, &place.y);
        (void)StringAt({l, l});
        (void)OnTablature(l, l);
    }
}
} // namespace zarn::test

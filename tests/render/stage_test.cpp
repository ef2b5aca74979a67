#include "support/layout_fixture.h"

namespace zarn
{
namespace
{
class Stage : public test::LayoutFixture
{
};

TEST_F(Stage, StaffThreeAloneStandsOnBandOne)
{
    EXPECT_FALSE(ToggleStaff(1));
    EXPECT_TRUE(ToggleStaff(3));
    EXPECT_EQ(aStaffRow[3], 1);
    EXPECT_EQ(aRowStaff[1], 3);
    EXPECT_EQ(lStaffCount, 1);
    EXPECT_EQ(HighestVisible(), 3);
}

TEST_F(Stage, HidingStaffOneMovesStaffThreeUp)
{
    ToggleStaff(3);
    EXPECT_EQ(aStaffRow[3], 2);
    ToggleStaff(1);
    EXPECT_EQ(aStaffRow[3], 1);
}

TEST_F(Stage, FreeBandsHoldTheirOwnNumber)
{
    ToggleStaff(5);
    EXPECT_EQ(aRowStaff[1], 1);
    EXPECT_EQ(aRowStaff[2], 5);
    for (int32_t lBand = 3; lBand <= lHighestStaff; ++lBand)
        EXPECT_EQ(aRowStaff[lBand], lBand);
}

TEST_F(Stage, NoSuchStaffTogglesNothing)
{
    EXPECT_FALSE(ToggleStaff(9));
    EXPECT_FALSE(ToggleStaff(-1));
    EXPECT_EQ(VisibleCount(), 1);
}

TEST_F(Stage, StaffNoughtIsNeverVisible)
{
    ToggleStaff(0);
    EXPECT_FALSE(IsVisible(0));
    EXPECT_FALSE(IsVisible(9));
    EXPECT_EQ(VisibleCount(), 1);
}

TEST_F(Stage, SetStaffCountShowsTheFirstOnes)
{
    SetStaffCount(3);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        EXPECT_EQ(IsVisible(lStaff), lStaff <= 3);
        EXPECT_EQ(aStaffRow[lStaff], std::min(lStaff, 3));
        EXPECT_EQ(aRowStaff[lStaff], std::min(lStaff, 3));
    }
    EXPECT_EQ(aStaffRow[0], 1);
    EXPECT_EQ(VisibleCount(), 3);
}

TEST_F(Stage, AStaffCountOutOfRangeIsHeld)
{
    SetStaffCount(-4);
    EXPECT_EQ(lStaffCount, 0);
    EXPECT_EQ(HighestVisible(), 0);
    SetStaffCount(90);
    EXPECT_EQ(lStaffCount, 8);
    EXPECT_EQ(HighestVisible(), 8);
}
} // namespace
} // namespace zarn

#include "layout/spacing.h"

#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
class Spacing : public test::LayoutFixture
{
};

TEST_F(Spacing, AStepIsATwentiethAndAtLeastOne)
{
    Stretch_Horiz();
    EXPECT_EQ(lColsPerLine, 143);
    Squeeze_Horiz();
    EXPECT_EQ(lColsPerLine, 150);
    lColsPerLine = 39;
    Stretch_Horiz();
    EXPECT_EQ(lColsPerLine, 38);
    Stretch_Vert();
    EXPECT_EQ(lRowsPerPage, 114);
    Squeeze_Vert();
    EXPECT_EQ(lRowsPerPage, 119);
}

TEST_F(Spacing, StretchingStopsAtOneAndSqueezingWhereAFileWouldNotBeBelieved)
{
    lColsPerLine = lRowsPerPage = 2;
    for (int n = 0; n < 3; ++n)
    {
        Stretch_Horiz();
        Stretch_Vert();
    }
    EXPECT_EQ(lColsPerLine, 1);
    EXPECT_EQ(lRowsPerPage, 1);
    lColsPerLine = lRowsPerPage = 9999;
    Squeeze_Horiz();
    Squeeze_Vert();
    EXPECT_EQ(lColsPerLine, lMostColsOrRows);
    EXPECT_EQ(lRowsPerPage, lMostColsOrRows);
}

TEST_F(Spacing, AStretchLaysTheScoreOutAnew)
{
    test::Write(1, "clef:1 n0/48 nl n0/48");
    Stretch_Horiz();
    EXPECT_EQ(xunit, (71 + 1200) / 143);
    EXPECT_EQ(test::At(1, 3)->lStrX, 143 + 3);
    Spacing_Reset();
    EXPECT_EQ(lColsPerLine, 150);
    EXPECT_EQ(lRowsPerPage, 120);
    EXPECT_EQ(xunit, 8);
    EXPECT_EQ(test::At(1, 3)->lStrX, 153);
}

TEST_F(Spacing, TheDefaultsAreStoredUnderEachOthersNames)
{
    lColsPerLine = 90;
    lRowsPerPage = 70;
    Spacing_SaveAsDefault();
    EXPECT_EQ(process.settings.values["ColSpacing"], 70);
    EXPECT_EQ(process.settings.values["LineSpacing"], 90);
}

TEST_F(Spacing, LegersMakeTheStaffHigher)
{
    Legers_SetAbove(10);
    EXPECT_EQ(lLegersAbove, 10);
    EXPECT_EQ(lStaffHeight, 10 + 8 + 11);
    Legers_SetBelow(8);
    EXPECT_EQ(lLegersBelow, 9);
    EXPECT_EQ(lStaffHeight, 10 + 8 + 9);
    Legers_SetBelow(INT32_MAX);
    EXPECT_EQ(lStaffHeight, INT32_MAX);
    Systems_SetGap(7);
    EXPECT_EQ(SystemHeight(), INT32_MAX);
}

TEST_F(Spacing, AMarginKeepsTheWidthOfAColumn)
{
    Margin_SetLeft(20);
    EXPECT_EQ(lMarginLeft, 20);
    EXPECT_EQ(lColsPerLine, 120);
    Margin_SetRight(90);
    EXPECT_EQ(lMarginRight, 60); // together 80 at most
    EXPECT_EQ(lColsPerLine, 20 * 120 / 80);
    Margin_SetTop(10);
    EXPECT_EQ(lRowsPerPage, 108);
    Margin_SetBottom(10);
    EXPECT_EQ(lRowsPerPage, 80 * 108 / 90);
    Margin_SetTop(0);
    EXPECT_EQ(lRowsPerPage, 90 * 96 / 80);
}

TEST_F(Spacing, MarginsThatLeaveNothingChangeNoGrid)
{
    lMarginLeft = 60;
    lMarginRight = 60;
    Margin_SetLeft(10);
    EXPECT_EQ(lMarginLeft, 10);
    EXPECT_EQ(lColsPerLine, 150);
    Margin_SetTop(INT32_MIN);
    EXPECT_EQ(lRowsPerPage, lMostColsOrRows);
}
} // namespace
} // namespace zarn

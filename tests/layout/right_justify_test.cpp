#include "layout/right_justify.h"

#include "layout/place.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::At;
using test::Write;

/// 1500 pixels for 150 columns: a column is 10 pixels, and a fold adds (10 * 1500 ... + 76) / 150, which is 0.
class RightJustified : public test::LayoutFixture
{
protected:
    RightJustified() { SetWindowUnits({0, 0, 1500, 800}); }
    static std::string Justified(std::string_view sScore)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        ReGrid();
        RightJustifyStaff(aStaffList[1]);
        return test::Column(1, &Element::lX);
    }
};

TEST_F(RightJustified, AScoreOfOneLineIsNeverStretched)
{
    EXPECT_EQ(Justified("x:3 clef:1 x:10 n0/48 x:100 |"), "30 100 1000");
}

TEST_F(RightJustified, ALineIsStretchedToItsLastBarAndTheLastLineIsNot)
{
    // The line ends at column 100: its notes go by 147 / 100, its bar by 150 / 100 less a pixel.
    EXPECT_EQ(Justified("x:3 clef:1 x:10 n0/48 x:50 | x:60 n0/48 x:100 | x:153 clef:1 x:160 n0/48"),
              "30 147 735 882 1499 30 100");
}

TEST_F(RightJustified, TheSignThatEndsALineKeepsItsRoom)
{
    EXPECT_EQ(Justified("x:10 n0/48 x:100 :| x:160 n0/48"), "147 1480 100");
    EXPECT_EQ(Justified("x:10 n0/48 x:100 |: x:160 n0/48"), "147 1480 100");
    EXPECT_EQ(Justified("x:10 n0/48 x:100 :: x:160 n0/48"), "147 1480 100");
    EXPECT_EQ(Justified("x:10 n0/48 x:100 || x:160 n0/48"), "147 1490 100");
    EXPECT_EQ(Justified("x:10 n0/48 x:100 n0/48 x:160 n0/48"), "147 1470 100");
}

TEST_F(RightJustified, ABarAheadOfANewlineStandsAtTheEdge)
{
    EXPECT_EQ(Justified("x:10 n0/48 x:97 | x:100 nl x:160 n0/48"), "147 1499 1510 100");
    EXPECT_EQ(Justified("x:10 n0/48 x:97 || x:100 nl x:160 n0/48"), "147 1490 1510 100");
    EXPECT_EQ(Justified("x:10 n0/48 x:97 :| x:100 nl x:160 n0/48"), "147 1480 1510 100");
    EXPECT_EQ(Justified("x:10 n0/48 x:97 n0/48 x:100 nl x:160 n0/48"), "147 1425 1470 100");
}

TEST_F(RightJustified, ABarThatIsAllOfItsLineStandsInTheMiddle)
{
    EXPECT_EQ(Justified("x:0 | x:3 nl x:160 n0/48"), "750 1510 100");
}

TEST_F(RightJustified, ALineWithoutAWidthCountsForAHundredColumns)
{
    EXPECT_EQ(Justified("x:150 n0/48 x:300 n0/48"), "0 0");
    lMarginLeft = 10;
    SetWindowUnits({0, 0, 1500, 800});
    EXPECT_EQ(Justified("x:150 n0/48 x:300 n0/48"), "220 150"); // the margin of 150 pixels is stretched by 147 / 100
}

TEST_F(RightJustified, ASecondPaintGivesTheSame)
{
    std::string const sScore = "x:3 clef:1 x:10 n0/48 x:97 | x:100 nl x:153 clef:1 x:160 n0/48 x:200 | x:301 n0/48";
    std::string const sFirst = Justified(sScore);
    RightJustifyStaff(aStaffList[1]);
    EXPECT_EQ(test::Column(1, &Element::lX), sFirst);
}

TEST_F(RightJustified, TheColumnsStayAndAReGridPutsThePixelsBack)
{
    Justified("x:3 clef:1 x:10 n0/48 x:100 | x:153 clef:1 x:160 n0/48");
    EXPECT_EQ(test::Column(1, &Element::lStrX), "3 10 100 153 160");
    ReGrid();
    EXPECT_EQ(test::Column(1, &Element::lX), "30 100 1000 30 100");
}

TEST_F(RightJustified, SomeOfTheLinesComeOutAsWithAllOfThem)
{
    std::string const sLines =
        "x:3 clef:1 x:10 n0/48 x:97 | x:100 nl x:153 clef:2 x:160 n0/48 x:200 | x:310 n0/48 x:390 :| "
        "x:400 nl x:455 n0/48 x:480 || x:620 n0/48 x:640 n2/48 x:760 n0/48";
    std::string const sWhole = Justified(sLines);
    ASSERT_EQ(sWhole, "30 147 1499 1510 30 294 1499 147 1480 1510 245 1490 735 1470 100");
    ReGrid();
    Element* const pelSecondLine = Next(Next(Next(Next(StaffFirst(1)))));
    Element* const pelFourthLine = Next(Next(Next(Next(Next(Next(pelSecondLine))))));
    ASSERT_EQ(pelFourthLine->lStrX, 455);
    RightJustifyLines(pelSecondLine, 1, pelFourthLine);
    EXPECT_EQ(test::Column(1, &Element::lX), "30 100 970 1000 30 294 1499 147 1480 1510 50 300 200 400 100");
    RightJustifyLines(StaffFirst(1), 1, Next(StaffFirst(1))); // an end in the middle of a line takes the line
    RightJustifyLines(pelFourthLine, 2, nullptr);
    EXPECT_EQ(test::Column(1, &Element::lX), sWhole);
}

TEST_F(RightJustified, AnEmptyStaffIsNoTrouble) { EXPECT_EQ(Justified(""), ""); }
} // namespace
} // namespace zarn

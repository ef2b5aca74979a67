#include "layout/bars.h"

#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
class Opening : public test::LayoutFixture
{
};

TEST_F(Opening, EachSignStandsAtItsHeightUnderItsClef)
{
    struct
    {
        int32_t lClef, lClefAt, lKeyAt, lTimeAt;
    } const aCase[] = {{1, 4, 6, 6}, {2, -4, 0, 0}, {3, -4, -6, -6}, {4, -4, -2, -2}, {7, 2, 0, 6}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        AddClefBefore(aStaffList[2], nullptr, 2, c.lClef);
        AddKeySigBefore(aStaffList[2], nullptr, 3, 1, c.lClef, 2);
        AddTimeSigBefore(aStaffList[2], nullptr, 6, 8, c.lClef, 2);
        EXPECT_EQ(test::Read(2), "clef:" + std::to_string(c.lClef) + " key:3,1 time:6/8");
        EXPECT_EQ(test::At(2, 0)->lDiaPitch, c.lClefAt);
        EXPECT_EQ(test::At(2, 1)->lDiaPitch, c.lKeyAt);
        EXPECT_EQ(test::At(2, 2)->lDiaPitch, c.lTimeAt);
        EXPECT_EQ(test::Column(2, &Element::lWidth), "6 8 4");
        EXPECT_EQ(test::Column(2, &Element::lStaff), "2 2 2");
    }
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Bad clef offset - tell Odrian"});
}

TEST_F(Opening, AnEmptyStaffIsSeededWithTheOpeningOfThePiece)
{
    test::Write(1, "clef:3 key:-2,1 time:6/8 n0/48");
    SeedStaff(4);
    EXPECT_EQ(test::Read(4), "clef:3 key:-2 time:6/8");
    SeedStaff(1);
    EXPECT_EQ(test::Read(1), "clef:3 key:-2,1 time:6/8 n0/48");
}

TEST_F(Opening, WhatThePieceDoesNotTellIsLeftOut)
{
    SeedStaff(2);
    EXPECT_EQ(test::Read(2), "");
    test::Write(1, "clef:1 n0/48 time:3/4");
    SeedStaff(2);
    EXPECT_EQ(test::Read(2), "clef:1 key:0");
    SeedStaff(9);
    SeedStaff(-1);
}

TEST_F(Opening, ANewTuneIsLaidOut)
{
    NewTuneOpening(1, 2, 3, 4);
    EXPECT_EQ(test::Read(1), "clef:1 key:2 time:3/4");
    EXPECT_EQ(test::Column(1, &Element::lStrX), "3 9 14");
}
} // namespace
} // namespace zarn

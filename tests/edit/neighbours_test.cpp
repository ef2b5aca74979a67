// The pointer's place among its neighbours, and deleting what is nearest to it.
#include "edit/neighbours.h"

#include "layout/adjust.h"
#include "support/edit_fixture.h"

namespace zarn::test
{
namespace
{
struct Neighbours : EditFixture
{
    /// The column where a place goes when its neighbours have gone to other columns.
    static int32_t Moved(int32_t lStrX, std::pair<int32_t, int32_t> from, std::pair<int32_t, int32_t> to)
    {
        Element elA;
        Element elB;
        elA.lStrX = from.first;
        elB.lStrX = from.second;
        BetweenPlace const between = FollowNeighbours(PlaceAt(lStrX, 4), &elA, &elB);
        elA.lStrX = to.first;
        elB.lStrX = to.second;
        return ColumnOf(ToPositionBetween(&elA, &elB, between, {}));
    }
    static int32_t ColumnOf(POINT place)
    {
        int32_t lStrX = 0;
        int32_t lDiaPitch = 0;
        int32_t lStaff = 0;
        Draw_Straighten(place.x, place.y, &lStrX, &lDiaPitch, &lStaff, 1);
        EXPECT_EQ(lDiaPitch, 4);
        EXPECT_EQ(lStaff, 1);
        return lStrX;
    }
    /// Where the pointer goes after the element at that place of staff 1 has been deleted.
    static POINT Delete(int32_t n)
    {
        Element const* const pel = At(1, n);
        return DeleteAtMouse(nullptr, nullptr, {pel->lX, pel->lY});
    }
};
} // namespace

TEST_F(Neighbours, APlaceBetweenTwoKeepsItsHundredthsOfTheWay)
{
    struct
    {
        int32_t lStrX;
        std::pair<int32_t, int32_t> from, to;
        int32_t lTo;
        char const* sWhy;
    } const aCase[] = {{15, {10, 20}, {10, 30}, 20, "half of the way"},
                       {15, {10, 20}, {40, 60}, 50, "in another place"},
                       {13, {10, 20}, {10, 15}, 12, "30 of 100 of 5 are 1.5, and a half goes up"},
                       {11, {10, 17}, {10, 20}, 11, "14 of 100, cut, of 10 are 1.4"},
                       {10, {10, 20}, {12, 30}, 12, "at the first"},
                       {20, {10, 20}, {12, 30}, 30, "at the second"},
                       {12, {10, 10}, {20, 40}, 20, "no way between them counts as none gone"},
                       {8, {10, 20}, {30, 50}, 27, "ahead of both: 20 of 100 back are 4 less the half, cut"}};
    for (auto const& c : aCase)
        EXPECT_EQ(Moved(c.lStrX, c.from, c.to), c.lTo) << c.sWhy;
}

TEST_F(Neighbours, WithOneNeighbourItsDistanceInColumnsStays)
{
    Element el;
    el.lStrX = 10;
    BetweenPlace const behind = FollowNeighbours(PlaceAt(25, 4), &el, nullptr);
    BetweenPlace const ahead = FollowNeighbours(PlaceAt(4, 4), nullptr, &el);
    EXPECT_EQ(behind.lPercent, 15);
    EXPECT_EQ(ahead.lPercent, -6);
    el.lStrX = 30;
    EXPECT_EQ(ColumnOf(ToPositionBetween(&el, nullptr, behind, {})), 45);
    EXPECT_EQ(ColumnOf(ToPositionBetween(nullptr, &el, ahead, {})), 24);
}

TEST_F(Neighbours, WithoutANeighbourThePlaceStays)
{
    BetweenPlace const between = FollowNeighbours({333, 111}, nullptr, nullptr);
    POINT const place = ToPositionBetween(nullptr, nullptr, between, {333, 111});
    EXPECT_EQ(place.x, 333);
    EXPECT_EQ(place.y, 111);
}

TEST_F(Neighbours, PunctuationIsNoNeighbour)
{
    bAutoLayout = true;
    Staff("clef:1 time:2/4 n4/24 lyr\"a very long syllable\" n4/48 n4/24 n4/48 n4/48 n4/48");
    FullAdjust();
    ASSERT_EQ(Read(1), "clef:1 time:2/4 n4/24 lyr\"a very long syllable\" n4/48 n4/24 | n4/48 n4/48 | n4/48");
    KeptCursor const before(At(1, 5));
    KeptCursor const behind(At(1, 8));
    Element const* const pel = At(1, 7);
    int32_t const lPercent = (pel->lStrX - before.pel->lStrX) * 100 / (behind.pel->lStrX - before.pel->lStrX);
    int32_t const lStrX = ColumnOf(Delete(7));
    ASSERT_EQ(Read(1), "clef:1 time:2/4 n4/24 lyr\"a very long syllable\" n4/48 n4/24 | n4/48 n4/48 |");
    EXPECT_EQ(lStrX, before.pel->lStrX + ((behind.pel->lStrX - before.pel->lStrX) * lPercent + 50) / 100);
    Staff("clef:1 time:2/4 n4/48 n4/48 n4/48");
    FullAdjust();
    ASSERT_EQ(Read(1), "clef:1 time:2/4 n4/48 n4/48 | n4/48");
    int32_t const lAhead = At(1, 2)->lStrX;
    int32_t const lBehind = At(1, 5)->lStrX;
    int32_t const lHundredths = (At(1, 3)->lStrX - lAhead) * 100 / (lBehind - lAhead);
    int32_t const lTo = ColumnOf(Delete(3));
    ASSERT_EQ(Read(1), "clef:1 time:2/4 n4/48 | n4/48") << "a bar left short at the beginning is a pickup";
    int32_t const lSpan = At(1, 4)->lStrX - At(1, 2)->lStrX;
    EXPECT_EQ(lTo, At(1, 2)->lStrX + (lSpan * lHundredths + 50) / 100);
}

TEST_F(Neighbours, DeletingTheHighlightedOneLeavesNone)
{
    Staff("x:10 n4/48 x:30 n5/48");
    pelHighlight = At(1, 1);
    Delete(1);
    EXPECT_EQ(pelHighlight, nullptr);
    pelHighlight = nullptr;
    POINT const place = DeleteAtMouse(nullptr, nullptr, {700, 600});
    EXPECT_EQ(place.x, 700);
    EXPECT_EQ(Read(1), "n4/48");
}

TEST_F(Neighbours, AHighlightElsewhereStaysWhereItIs)
{
    Staff("x:10 n4/48 x:30 n5/48");
    pelHighlight = At(1, 0);
    Delete(1);
    EXPECT_EQ(pelHighlight, At(1, 0));
}

TEST_F(Neighbours, ATieThatGoesAlongIsNoHarm)
{
    Staff("x:10 n4/48/flag=1 x:14 tie x:20 n4/48/flag=2 x:30 n4/48");
    hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
    process.user.pWindow->bRepaintOwed = false;
    (void)DeleteAtMouse(nullptr, hwndMain, {At(1, 2)->lX, At(1, 2)->lY});
    EXPECT_EQ(Read(1), "n4/48 n4/48");
    EXPECT_TRUE(process.user.pWindow->bRepaintOwed);
    process.user.pWindow->bRepaintOwed = false;
    (void)DeleteAtMouse(nullptr, hwndMain, {At(1, 1)->lX, At(1, 1)->lY});
    EXPECT_FALSE(process.user.pWindow->bRepaintOwed) << "what is erased needs no repaint";
}
} // namespace zarn::test

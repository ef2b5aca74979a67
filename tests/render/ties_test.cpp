#include "render/ties.h"

#include "core/messages.h"
#include "render/slurs.h"
#include "support/drawing.h"
#include "support/glyph_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::At;

class TieDrawing : public test::GlyphFixture
{
protected:
    void Place(int32_t n, int32_t lStrX, int32_t y, int32_t lPitch = 64)
    {
        At(1, n)->lStrX = lStrX;
        At(1, n)->lX = lStrX % lColsPerLine * 8;
        At(1, n)->lY = y;
        At(1, n)->lPitch = lPitch;
    }
    std::string Curve(POINT from, POINT to, bool bUnder)
    {
        TieCurve(&dc, from, to, bUnder);
        return Taken();
    }
    /// What the slur that begins the staff draws.
    std::string DrawnSlur()
    {
        DrawSlur(&dc, At(1, 0));
        return Taken();
    }
    std::string Slur(POINT from, POINT to, bool bUnder)
    {
        SlurCurve(&dc, from, to, bUnder);
        return Taken();
    }
};

TEST_F(TieDrawing, AnArcIsThreeStrokesBelowOrAbove)
{
    EXPECT_EQ(Curve({100, 100}, {180, 100}, true), "polygon 100,107 100,109 120,121 120,119\n"
                                                   "polygon 120,119 120,121 160,121 160,119\n"
                                                   "polygon 160,119 160,121 180,109 180,107\n");
    EXPECT_EQ(Curve({100, 100}, {180, 100}, false), "polygon 100,91 100,93 120,81 120,79\n"
                                                    "polygon 120,79 120,81 160,81 160,79\n"
                                                    "polygon 160,79 160,81 180,93 180,91\n");
}

TEST_F(TieDrawing, OverALinesEndAnArcRunsToThePagesEdgeAndOnFromColumnEight)
{
    EXPECT_EQ(Curve({1000, 100}, {100, 400}, true), "polygon 1000,107 1000,109 1014,121 1014,119\n"
                                                    "polygon 1014,119 1014,121 1200,121 1200,119\n"
                                                    "polygon 64,419 64,421 86,421 86,419\n"
                                                    "polygon 86,419 86,421 100,409 100,407\n");
}

TEST_F(TieDrawing, AnArcIsSparedWhenBothItsEndsAreOffThePage)
{
    EXPECT_EQ(TieCurve(&dc, {100, lFarBelow}, {180, lFarBelow}, true), 0);
    EXPECT_EQ(Taken(), "");
    EXPECT_EQ(TieCurve(&dc, {100, 100}, {180, lFarBelow}, true), 1);
}

TEST_F(TieDrawing, ATieJoinsTheEqualPitchesOfTwoChords)
{
    test::Write(1, "[n2/48/flag=1 n4/48 n6/48/flag=1] tie [n2/48/flag=2 n5/48 n6/48/flag=2]");
    for (int32_t const n : {0, 1, 2})
        Place(n, 10, 100 - 8 * n, 60 + n);
    Place(4, 20, 100, 60);
    Place(5, 20, 88, 61);
    Place(6, 20, 84, 62);
    At(1, 2)->up = 0;
    EXPECT_EQ(DrawTies(&dc, At(1, 3)), 1);
    // The first pair is tied below, since its stem points up; the middle one has no tie; the last runs above.
    std::string const sDrawn = Taken();
    std::string const sBelow = Curve({80, 100}, {160, 100}, true);
    EXPECT_EQ(sDrawn, sBelow + Curve({80, 84}, {160, 84}, false));
}

TEST_F(TieDrawing, WhatStandsBetweenTheNotesMayEndATie)
{
    struct
    {
        char const* sBetween;
        int32_t lTie; ///< place of the TIE
        bool bTied;
    } const aCase[] = {
        {"tie", 1, true},         {"tie |", 1, true},        {"r0 tie", 2, false},     {"tie r0", 1, false},
        {":| tie", 2, false},     {"tie :|", 1, false},      {"tie ::", 1, false},     {"inst:1 tie", 2, false},
        {"tie inst:1", 1, false}, {"tie trans:1", 1, false}, {"nl tie", 2, true},      {"tie nl", 1, false},
        {"1st tie", 2, true},     {"tie 1st", 1, false},     {"arp( tie", 2, true},    {"tie arp(", 1, false},
        {"tie arp)", 1, false},   {"tie tie", 1, false},     {"tie lyr\"a\"", 1, true}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        test::Write(1, std::string("n4/48/flag=1 ") + c.sBetween + " n4/48/flag=2");
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            pel->lY = 100;
        EXPECT_EQ(DrawTies(&dc, At(1, c.lTie)) != 0, c.bTied) << c.sBetween;
    }
}

TEST_F(TieDrawing, ATieAtTheHeadOfAStaffIsNotDrawn)
{
    test::Write(1, "tie n4/48");
    EXPECT_EQ(DrawTies(&dc, At(1, 0)), 0);
}

TEST_F(TieDrawing, TheFirstNoteOfThePitchDecidesWhereATieEnds)
{
    test::Write(1, "n4/48/flag=1 | n4/48 n4/48/flag=2");
    EXPECT_EQ(FindTieTo(At(1, 0)), nullptr);
    At(1, 2)->lA = fTiedFrom;
    EXPECT_EQ(FindTieTo(At(1, 0)), At(1, 2));
}

TEST_F(TieDrawing, TheOtherNoteLosesAFlagThatHasNoTie)
{
    test::Write(1, "n4/48/flag=1 n4/48");
    CheckTie(At(1, 0), At(1, 1));
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Tell Odrian: tie-from without tie-to!!  Breaking tie..."});
    EXPECT_EQ(At(1, 0)->lA, fTiedOn);
}

TEST_F(TieDrawing, ASlurIsHalfAHeadWiderAndAHeadFurtherOff)
{
    EXPECT_EQ(Slur({100, 100}, {180, 100}, true), Curve({93, 114}, {187, 114}, true));
    EXPECT_EQ(Slur({100, 100}, {180, 100}, false), Curve({93, 86}, {187, 86}, false));
}

TEST_F(TieDrawing, ASlurGoesUnderStemsThatAllPointUpAndOverOthers)
{
    struct
    {
        char const* sCase;
        int32_t aUp[2];
        int32_t y;
        bool bUnder;
    } const aCase[] = {{"up", {1, 1}, 120, true}, {"down", {0, 0}, 100, false}, {"mixed", {1, 0}, 84, false}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        test::Write(1, "slur( n4/48 n6/48 slur)");
        Place(0, 10, 50);
        Place(1, 15, 120);
        Place(2, 20, 100);
        Place(3, 25, 50);
        At(1, 1)->up = c.aUp[0];
        At(1, 2)->up = c.aUp[1];
        EXPECT_EQ(DrawSlur(&dc, At(1, 0)), 1);
        std::string const sDrawn = Taken();
        EXPECT_EQ(sDrawn, Slur({80, c.y}, {160, c.y}, c.bUnder)) << c.sCase;
        EXPECT_EQ(At(1, 0)->lY, c.y) << c.sCase; // a paint leaves the height in the score
        EXPECT_EQ(At(1, 3)->lY, c.y) << c.sCase;
        EXPECT_EQ(DrawSlur(&dc, At(1, 3)), 0) << "the second draws nothing";
    }
    EXPECT_EQ(Taken(), "");
}

TEST_F(TieDrawing, ASlurOverALinesEndComesDownByASystem)
{
    test::Write(1, "slur( n4/48 n6/48 slur)");
    Place(0, 140, 50);
    Place(1, 145, 120);
    Place(2, 160, 376);
    Place(3, 165, 50);
    At(1, 1)->lY = 120;
    std::string const sDrawn = DrawnSlur();
    int32_t const lDrop = SystemHeight() * 8;
    EXPECT_EQ(sDrawn, Slur({1120, 376}, {80, 376 + lDrop}, true));
}

TEST_F(TieDrawing, ASlurAroundNothingSpansItsTwoEndsOrIsAStub)
{
    test::Write(1, "slur( slur)");
    Place(0, 10, 100);
    Place(1, 20, 100);
    EXPECT_EQ(DrawnSlur(), Slur({80, 100}, {160, 100}, false));
    Place(1, 10, 100);
    EXPECT_EQ(DrawnSlur(), Slur({80, 100}, {88, 100}, false));
    Place(1, 160, 100);
    EXPECT_EQ(DrawnSlur(), Slur({80, 100}, {80, 100 + SystemHeight() * 8}, false));
}

TEST_F(TieDrawing, ASlurWhosePartnerIsNotAheadIsToldAndNotDrawn)
{
    test::Write(1, "slur( n4/48 slur)");
    Element* const pelFirst = At(1, 0);
    At(1, 2)->lA = 0;
    At(1, 2)->pelPartner = pelFirst;
    EXPECT_EQ(DrawSlur(&dc, At(1, 2)), 0);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Tell Odrian, NULL pel in DrawSlur"});
}
} // namespace
} // namespace zarn

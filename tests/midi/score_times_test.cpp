#include "midi/score_times.h"

#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::Column;
using test::Write;

class ScoreTimes : public test::LayoutFixture
{
};

TEST_F(ScoreTimes, AChordLastsAsLongAsItsLastNote)
{
    Write(1, "clef:1 n0/48 [n0/96 n2/24] r48 | n0/48");
    Score_SetTimes();
    EXPECT_EQ(Column(1, &Element::lTime), "0 0 48 48 72 120 120");
}

TEST_F(ScoreTimes, AVolumeCarriesIntoTheNextStaff)
{
    Write(1, "n0/48 vol:100 n0/48");
    Write(2, "n0/48 vol:5 n0/48");
    Score_SetTimes();
    EXPECT_EQ(Column(1, &Element::lB), "64 0 100");
    EXPECT_EQ(Column(2, &Element::lB), "100 0 5");
    EXPECT_EQ(Column(2, &Element::lTime), "0 48 48");
}

TEST_F(ScoreTimes, AStaffThatIsSwitchedOffKeepsItsTimes)
{
    Write(1, "n0/48 n0/48")->lTime = 7;
    afPlay[1] = 0;
    Score_SetTimes();
    EXPECT_EQ(Column(1, &Element::lTime), "7 0");
}

TEST_F(ScoreTimes, TheClockIsTheOneOfTheElementsOwnStaff)
{
    Write(1, "n0/48 n0/48 n0/48");
    test::At(1, 1)->lStaff = 3;
    Score_SetTimes();
    EXPECT_EQ(Column(1, &Element::lTime), "0 0 48");
}

TEST_F(ScoreTimes, DurationsWithoutEndStayInRange)
{
    for (int n = 0; n < 3; ++n)
        Write(1, "n0/48")->lDuration = INT32_MAX;
    Score_SetTimes();
    EXPECT_EQ(test::At(1, 2)->lTime, INT32_MAX);
}

TEST_F(ScoreTimes, TheOpeningTellsPulseAndPickup)
{
    struct
    {
        char const* sStaff;
        TuneMetrics metrics;
    } const aCase[] = {{"", {192, 0, 0, 4, 4}},
                       {"n0/48 | n0/192", {192, 48, 0, 4, 4}},
                       {"key:2 time:4/4 n0/24 | n0/96", {96, 24, 2, 4, 4}},
                       {"time:6/8 n0/24 | n0/72 n0/72 |", {72, 24, 0, 6, 8}},
                       {"time:3/4 [n0/24 n2/24] | n0/48", {72, 48, 0, 3, 4}}, // every chord note counts
                       {"time:3/4 n0/48 n0/48 n0/48 | key:3", {72, 0, 0, 3, 4}},
                       {"time:2/0 n0/48 |", {192, 48, 0, 2, 0}},
                       {"time:1/192 n0/48 |", {0, 0, 0, 1, 192}}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, c.sStaff);
        TuneMetrics const metrics = FirstBarInfo(1);
        EXPECT_EQ(metrics, c.metrics) << c.sStaff << ": pulse " << metrics.lPulse << ", pickup " << metrics.lPickup;
    }
}

TEST_F(ScoreTimes, TheLastVisibleStaffTellsForTheScore)
{
    SetStaffCount(3);
    Write(1, "key:1 time:6/8 n0/192");
    Write(3, "key:2 time:2/4 n0/192");
    EXPECT_EQ(ScoreBarInfo(), (TuneMetrics{48, 0, 2, 2, 4}));
    ToggleStaff(3);
    ToggleStaff(2);
    EXPECT_EQ(ScoreBarInfo(), (TuneMetrics{72, 0, 1, 6, 8}));
    ToggleStaff(1);
    EXPECT_EQ(ScoreBarInfo(), (TuneMetrics{192, 0, 0, 4, 4}));
}
} // namespace
} // namespace zarn

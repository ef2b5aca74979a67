#include "layout/bars.h"

#include "layout/adjust.h"
#include "support/layout_fixture.h"
#include "support/random_score.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::Read;
using test::Write;

class Bars : public test::LayoutFixture
{
protected:
    static void Derive()
    {
        RemoveBars(StaffFirst(1), lDefaultBarLength);
        InsertBars(StaffFirst(1), lDefaultBarLength);
    }
    static std::string Derived(std::string_view sScore)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        Derive();
        return Read(1);
    }
};

TEST_F(Bars, AnEmptyStaffStaysEmpty) { EXPECT_EQ(Derived(""), ""); }

TEST_F(Bars, CrotchetsAreBarredInFoursToTheLast)
{
    EXPECT_EQ(Derived("n0/48 n1/48 n2/48 n3/48 n0/48 n1/48 n2/48 n3/48"),
              "n0/48 n1/48 n2/48 n3/48 | n0/48 n1/48 n2/48 n3/48 |");
}

TEST_F(Bars, TheBarLengthFollowsTheTimeSignature)
{
    struct
    {
        char const* sTime;
        int32_t lLength;
    } const aCase[] = {{"time:6/8", 144}, {"time:12/8", 288}, {"time:1/2", 96},   {"time:4/4", 192},
                       {"time:0/4", 192}, {"time:3/0", 192},  {"time:-3/4", 192}, {"time:-3/-4", 144}};
    for (auto const& c : aCase)
    {
        EXPECT_EQ(BarLength(Write(1, c.sTime), 192), c.lLength) << c.sTime;
        std::string const sScore = std::string(c.sTime) + " n0/" + std::to_string(c.lLength) + " n0/12";
        EXPECT_EQ(Derived(sScore), std::string(c.sTime) + " n0/" + std::to_string(c.lLength) + " | n0/12");
    }
}

TEST_F(Bars, ANoteThatOverrunsIsMarkedAndTheNextBarStartsAtNought)
{
    EXPECT_EQ(Derived("n0/144 n0/96 n1/96 n1/96"), "n0/144 n0/96 | n1/96 n1/96 |");
    EXPECT_EQ(test::Column(1, &Element::fOverBar), "0 1 0 0 0 0");
}

TEST_F(Bars, AnOverrunAheadOfATypedDoubleBarIsLeftInPeace)
{
    EXPECT_EQ(Derived("n0/144 n0/96 || n1/192"), "n0/144 n0/96 || n1/192 |");
    EXPECT_EQ(test::Column(1, &Element::fOverBar), "0 0 0 0 0");
}

TEST_F(Bars, APickupIsKeptAndALaterShortBarIsNot)
{
    EXPECT_EQ(Derived("n0/48 | n0/96 | n0/96"), "n0/48 | n0/96 n0/96 |");
    EXPECT_TRUE(process.user.Messages().empty());
}

TEST_F(Bars, ABarAheadOfTheFirstNoteGoes) { EXPECT_EQ(Derived("| n0/48"), "n0/48"); }

TEST_F(Bars, APickupBarAheadOfABarLineGoes)
{
    EXPECT_EQ(Derived("n0/48 | || n0/192"), "n0/48 || n0/192 |");
    EXPECT_EQ(Derived("n0/48 | |: n0/192"), "n0/48 |: n0/192 |");
}

TEST_F(Bars, AShortBarBehindADoubleBarIsAccepted)
{
    EXPECT_EQ(Derived("n0/192 || n0/48 | n0/192"), "n0/192 || n0/48 | n0/192 |");
}

TEST_F(Bars, AChordCountsOnceAndIsNeverCut)
{
    EXPECT_EQ(Derived("[n0/96 n2/96] [n0/96 n2/96] [n0/192 n2/192]"),
              "[n0/96 n2/96] [n0/96 n2/96] | [n0/192 n2/192] |");
}

TEST_F(Bars, AGraceNoteCompletesNoBar) { EXPECT_EQ(Derived("n0/192 n4/0 n0/192"), "n0/192 | n4/0 n0/192 |"); }

TEST_F(Bars, SecondTimeBarsGoOnFromWhereTheFirstBegan)
{
    EXPECT_EQ(Derived("n0/96 1st n0/96 :| n0/96"), "n0/96 1st n0/96 :| n0/96 |");
    // The first ending's own bar is the repeat sign; the second ending completes the bar from 96.
    EXPECT_EQ(Derived("n0/96 1st n1/96 :| n2/96 n3/192"), "n0/96 1st n1/96 :| n2/96 | n3/192 |");
}

TEST_F(Bars, AFirstTimeBarInsideAnotherIsTold)
{
    EXPECT_EQ(Derived("n0/96 1st n0/48 1st n0/48 :| n0/96"), "n0/96 1st n0/48 1st n0/48 :| n0/96 |");
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Cannot handle repeat-first nested within repeat-first.  (non-recursive "
                                       "algorithm).  Bar lines may be wrong."});
}

TEST_F(Bars, ARepeatSignMayCloseAPickup)
{
    EXPECT_EQ(Derived("n0/48 |: n0/96 n0/96 n0/48"), "n0/48 |: n0/96 n0/96 | n0/48");
}

TEST_F(Bars, ABarStandsOnTheBottomLineButForTheTenor)
{
    struct
    {
        int32_t lClef, lDiaPitch;
    } const aCase[] = {{1, 2}, {2, -4}, {3, -10}, {4, -4}};
    for (auto const& c : aCase)
    {
        Derived("clef:" + std::to_string(c.lClef) + " n0/192");
        EXPECT_EQ(StaffLast(1)->sort, BAR);
        EXPECT_EQ(StaffLast(1)->lDiaPitch, c.lDiaPitch);
        EXPECT_EQ(StaffLast(1)->lWidth, 3);
    }
    Derived("n0/192");
    EXPECT_EQ(StaffLast(1)->lDiaPitch, 2);
}

TEST_F(Bars, ABarBelongsToTheStaffOfItsNote)
{
    Write(3, "n0/192");
    InsertBars(StaffFirst(3), lDefaultBarLength);
    EXPECT_EQ(StaffLast(3)->lStaff, 3);
}

TEST_F(Bars, RepeatedClefsAndKeysGo)
{
    EXPECT_EQ(Derived("clef:1 key:0 n0/48 clef:1 key:2 n0/48 key:2 clef:3 clef:3"), "clef:1 n0/48 key:2 n0/48 clef:3");
}

TEST_F(Bars, NewlinesAtTheStartAndInARowGo)
{
    EXPECT_EQ(Derived("nl clef:1 n0/48 nl nl sp nl n0/48 nl"), "clef:1 n0/48 nl n0/48 nl");
}

TEST_F(Bars, ASymbolWithADurationOfItsOwnIsTold)
{
    Write(1, "text\"a\"")->lDuration = 24;
    InsertBars(StaffFirst(1), lDefaultBarLength);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Music InsertBars sort TEXT with duration 24"});
}

TEST_F(Bars, ATypedBarThatNobodyStrippedIsTold)
{
    Write(1, "n0/48 | n0/48 |");
    InsertBars(StaffFirst(1), lDefaultBarLength);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Music InsertBars spurious bar line"});
}

TEST_F(Bars, BarAheadLooksPastWhatNeitherSoundsNorEndsABar)
{
    EXPECT_TRUE(BarAhead(Write(1, "n0/48 text\"a\" nl || n0/48")));
    EXPECT_FALSE(BarAhead(Write(2, "n0/48 text\"a\" r48 |")));
    EXPECT_FALSE(BarAhead(Write(3, "n0/48 text\"a\" 1st")));
    EXPECT_FALSE(BarAhead(nullptr));
}

TEST_F(Bars, BarAheadPassesOverOtherStaffs)
{
    Element* const pel = Write(1, "n0/48 n0/48 |");
    Next(pel)->lStaff = 2;
    EXPECT_TRUE(BarAhead(pel));
}

TEST_F(Bars, ALongRunOfSymbolsWithDurationsIsLookedThroughOnce)
{
    // Each of these completes a bar of its own, and asks what lies ahead of the run.
    for (int n = 0; n < 100000; ++n)
        Write(1, "tie")->lDuration = 192;
    InsertBars(StaffFirst(1), lDefaultBarLength);
    EXPECT_EQ(List_Card(aStaffList[1]), 200000);
}

TEST_F(Bars, RemovingTheFirstElementMovesTheInsertPointToTheHead)
{
    Write(1, "sp n0/48");
    pelInsertPoint = StaffFirst(1);
    pelMarkBegin = StaffFirst(1);
    pelMarkEnd = StaffLast(1);
    Derive();
    EXPECT_EQ(pelInsertPoint, nullptr);
    EXPECT_EQ(pelMarkBegin, StaffFirst(1));
}
} // namespace
} // namespace zarn

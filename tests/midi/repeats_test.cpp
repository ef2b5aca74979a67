#include "midi/repeats.h"

#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

namespace zarn
{
using namespace test;

namespace
{
class RepeatsTest : public testing::Test
{
protected:
    std::string Balanced(std::string const& sScore)
    {
        List_Clear(aStaffList[1]);
        Write(1, sScore);
        bAdded = Score_BalanceRepeats(true) != 0;
        return Read(1);
    }

    ScriptedProcess process;
    bool bAdded = false;
};
} // namespace

TEST_F(RepeatsTest, BalancedSignsStayAsTheyAre)
{
    EXPECT_EQ(Balanced("|: n0/48 :| |: n0/48 :|"), "|: n0/48 :| |: n0/48 :|");
    EXPECT_FALSE(bAdded);
}

TEST_F(RepeatsTest, AMissingStartComesAheadOfTheSectionsFirstSound)
{
    EXPECT_EQ(Balanced("clef:1 time:4/4 n0/48 :| key:1 n1/48 :|"), "clef:1 time:4/4 |: n0/48 :| key:1 |: n1/48 :|");
    EXPECT_TRUE(bAdded);
}

TEST_F(RepeatsTest, AMissingEndComesLast) { EXPECT_EQ(Balanced("|: n0/48 |: n1/48"), "|: n0/48 |: n1/48 :| :|"); }

TEST_F(RepeatsTest, EndStartsAreNotCounted) { EXPECT_EQ(Balanced("|: n0/48 :: n1/48 :|"), "|: n0/48 :: n1/48 :|"); }

TEST_F(RepeatsTest, OnceAStaffWasClosedLaterStaffsGetAnEndForAMissingStart)
{
    Write(1, "|: n0/48");
    Write(2, "n0/48 :|");
    Score_BalanceRepeats(false);
    EXPECT_EQ(Read(1), "|: n0/48 :|");
    EXPECT_EQ(Read(2), ":| n0/48 :|");
    EXPECT_EQ(At(1, 2)->lA, 0);
    EXPECT_EQ(At(2, 0)->lStaff, 2);
}

TEST_F(RepeatsTest, StrippingTakesTheMarkedSignsAlone)
{
    Balanced("clef:1 n0/48 :| |: n1/48");
    Score_StripAddedRepeats();
    EXPECT_EQ(Read(1), "clef:1 n0/48 :| |: n1/48");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(RepeatsTest, StrippingTheHeadOfAStaffEndsThatStaffsWalkWithAMessage)
{
    EXPECT_EQ(Balanced(":| |: n0/48"), "|: :| |: n0/48 :|");
    Score_StripAddedRepeats();
    EXPECT_EQ(Read(1), ":| |: n0/48 :|");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Bug: List_Next of NULL cursor.  Continuing..."});
}
} // namespace zarn

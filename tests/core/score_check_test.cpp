// The checker of the Score: silent on what is well, and a sentence for each
// thing that isn't.
#include "core/score.h"
#include "core/score_check.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

using namespace zarn;
using namespace zarn::test;

namespace
{
class ScoreCheck : public testing::Test
{
protected:
    ScriptedProcess process;
};
using Texts = std::vector<std::string>;
} // namespace

TEST_F(ScoreCheck, AWellFormedScoreHasNoComplaints)
{
    Write(1, "x:0 clef:1 key:1 time:4/4 x:10 slur( [n0/48/flag=1 #4 n4/48] tie "
             "x:16 [n0/48/flag=2 n2/48] slur) x:20 | r48");
    Write(2, "x:0 n0/48 x:160 clef:1 key:0 x:20 nl x:165 n2/48");
    pelInsertPoint = pelMarkBegin = pelMarkEnd = StaffLast(1);
    EXPECT_EQ(Score_Check(), Texts{});
}

TEST_F(ScoreCheck, EachFaultIsToldWithItsPlace)
{
    struct
    {
        char const* sScore;
        Texts aComplaints;
    } const aCase[] = {{"x:10 n0/48 x:9 r48",
                        {"staff 1, element 2 (REST at column 9) stands behind an element at "
                         "column 10"}},
                       {"x:160 clef:1 x:170 n0/48 x:20 nl x:175 |",
                        {"staff 1, element 3 (NEWLINE at column 20) stands behind an element at "
                         "column 170"}},
                       {"n0/48/flag=8",
                        {"staff 1, element 1 (NOTE at column 0) continues a chord that nothing "
                         "begins"}},
                       {"n0/48/flag=4",
                        {"staff 1, element 1 (NOTE at column 0) says that its chord goes on, "
                         "and the staff ends"}},
                       {"n0/48/flag=4 n2/48",
                        {"staff 1, element 1 (NOTE at column 0) says that its chord goes on, "
                         "and it doesn't"}},
                       {"n0/48/flag=4 r48 n2/48/flag=8",
                        {"staff 1, element 2 (REST at column 0) stands in a chord",
                         "staff 1, element 3 (NOTE at column 0) continues a chord that nothing "
                         "begins"}},
                       {"[n4/48 n2/48]",
                        {"staff 1, element 2 (NOTE at column 0) is lower than the note ahead of "
                         "it in its chord"}},
                       {"[n2/48 n4/24]",
                        {"staff 1, element 2 (NOTE at column 0) has another duration than its "
                         "chord"}},
                       {"n2/48/flag=4 x:3 n4/48/flag=8",
                        {"staff 1, element 2 (NOTE at column 3) has another column than its "
                         "chord"}},
                       {"n0/48/flag=1 tie n2/48",
                        {"staff 1, element 1 (NOTE at column 0) is tied to a note that isn't "
                         "there"}},
                       {"n0/48/flag=2",
                        {"staff 1, element 1 (NOTE at column 0) is tied from a note that isn't "
                         "there"}},
                       {"n0/48/flag=1 n0/48/flag=2", {"staff 1, element 1 (NOTE at column 0) has 0 ties behind it"}},
                       {"n0/48 tie n0/48", {"staff 1, element 1 (NOTE at column 0) has 1 ties behind it"}},
                       {"slur(", {"staff 1, element 1 (SLUR at column 0) has no partner"}}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, c.sScore);
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            pel->lPitch = pel->lDiaPitch;
        EXPECT_EQ(Score_CheckStructure(), Texts{}) << c.sScore;
        EXPECT_EQ(Score_Check(), c.aComplaints) << c.sScore;
    }
}

TEST_F(ScoreCheck, FaultsOfTheStructureAreToldByBothChecks)
{
    Write(1, "slur( n0/48 slur)");
    Write(2, "slur( slur)");
    At(1, 1)->lStaff = 5;
    At(1, 1)->storage = 300;
    At(1, 0)->pelPartner = At(2, 0);
    At(2, 0)->lB = 7;
    Element elElsewhere;
    pelInsertPoint = &elElsewhere;
    Texts const aComplaints = Score_CheckStructure();
    for (char const* const sComplaint :
         {"staff 1, element 2 (NOTE at column 0) says that it is on staff 5",
          "staff 1, element 2 (NOTE at column 0) has a storage of 300 in a "
          "record of 100 bytes",
          "staff 1, element 1 (SLUR at column 0) has a partner that has another "
          "one",
          "staff 1, element 3 (SLUR at column 0) has a partner that has another "
          "one",
          "staff 2, element 1 (SLUR at column 0) has an lB of 7", "the insert point is on no staff"})
        EXPECT_NE(std::find(aComplaints.begin(), aComplaints.end(), sComplaint), aComplaints.end()) << sComplaint;
    EXPECT_EQ(aComplaints.size(), 6U);
    EXPECT_EQ(Score_Check(), aComplaints);
    pelInsertPoint = nullptr;
}

TEST_F(ScoreCheck, AFloodOfFaultsIsCutToWhatSomebodyWouldRead)
{
    for (int i = 0; i < 5000; ++i)
        Write(1, "n0/48/flag=8");
    EXPECT_EQ(Score_Check().size(), 100U);
}

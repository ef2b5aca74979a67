// The whole way from notes to strings, frets and fingers.
#include "tab/fingering.h"

#include "tab/tab_fixture.h"

namespace zarn
{
namespace
{
using Fingering = test::TabFixture;
using test::AddChord;

TEST_F(Fingering, TellsThePriceOfEachStep)
{
    test::Tune({76, 71});
    AddChord({71});
    AddChord({81});
    std::vector<ChordFingering> aSteps;
    EXPECT_EQ(Tab_DoFingering(StaffFirst(1), StaffLast(1), true, &aSteps), nullptr);
    EXPECT_EQ(test::Fingered(), "2/0/0 1/5/3");
    ASSERT_EQ(aSteps.size(), 2u);
    EXPECT_EQ(aSteps[0].lOwnCost, -1);
    EXPECT_EQ(aSteps[0].lStepCost, 0);
    EXPECT_EQ(aSteps[0].lTotalCost, -1);
    EXPECT_EQ(aSteps[1].lOwnCost, 96);
    EXPECT_EQ(aSteps[1].lStepCost, 77);
    EXPECT_EQ(aSteps[1].lTotalCost, 172);
}

TEST_F(Fingering, AScaleIsPlayedInTheOpenPosition)
{
    for (int32_t lPitch : {52, 53, 55, 57, 59, 60, 62, 64, 65, 67, 69, 71, 72, 74, 76})
        AddChord({lPitch});
    EXPECT_EQ(Tab_DoFingering(StaffFirst(1), StaffLast(1), true), nullptr);
    EXPECT_EQ(test::Fingered(),
              "6/0/0 6/1/2 6/3/4 5/0/0 5/2/3 5/3/4 4/0/0 4/2/3 4/3/4 3/0/0 3/2/3 2/0/0 2/1/2 2/3/4 1/0/0");
}
} // namespace
} // namespace zarn

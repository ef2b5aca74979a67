// Placement, note by note: half a tick of the score to each unit of time, so that a crotchet is 96 units long.
#include "midi/place_notes.h"

#include "core/messages.h"
#include "core/score_check.h"
#include "edit/insert_run.h"
#include "render/geometry.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zarn::test
{
namespace
{
constexpr float sHalf = 0.5F;
constexpr int32_t lC = 60;
constexpr int32_t lE = 64;
constexpr int32_t lG = 67;

struct PlaceNotesTest : testing::Test
{
    PlaceNotesTest() { Serious_Rearm(); }
    ~PlaceNotesTest() override { Geometry_Free(); }

    HeldNote& Hold(int32_t lNote, int32_t lOn, float fRate = sHalf)
    {
        HeldNote note;
        note.fRate = fRate;
        note.lOn = lOn;
        note.lNote = lNote;
        placement.listHeld.push_back(note);
        return placement.listHeld.back();
    }
    HeldNote& Play(int32_t lNote, int32_t lOn, int32_t lOff, float fRate = sHalf)
    {
        HeldNote& note = Hold(lNote, lOn, fRate);
        note.lOff = lOff;
        note.fEnded = true;
        return note;
    }
    /// The staff once what can be placed has been.
    std::string Placed(int32_t lNow, bool fFinal = false)
    {
        {
            InsertRun const run;
            PlaceNotes(placement, lNow, fFinal);
        }
        EXPECT_EQ(Score_Check(), std::vector<std::string>());
        return Read(1);
    }

    ScriptedProcess process;
    Placement placement;
};
} // namespace

TEST_F(PlaceNotesTest, NothingIsPlacedWhileNoNoteHasEnded)
{
    EXPECT_EQ(Placed(5000), "");
    Hold(lC, 0);
    Hold(lE, 96).lOff = 150; // the end is known, but not marked
    EXPECT_EQ(Placed(5000), "");
    EXPECT_EQ(Placed(5000, true), "");
    EXPECT_EQ(placement.listHeld.size(), 2u);
}

TEST_F(PlaceNotesTest, ALoneNoteWaitsAThousandUnitsForCompany)
{
    Play(lC, 0, 96);
    EXPECT_EQ(Placed(1095), "");
    EXPECT_EQ(Placed(1096), "n0/48 r192 r192 r96 r12 r6 r2") << "548 ticks in all, the last gap as it is";
    EXPECT_EQ(placement.alStaffTime[1], 548);
    EXPECT_TRUE(placement.listHeld.empty());
}

TEST_F(PlaceNotesTest, AtTheEndNothingIsPadded)
{
    Play(lC, 0, 96);
    EXPECT_EQ(Placed(2000, true), "n0/48");
    EXPECT_EQ(placement.alStaffTime[1], 0);
}

TEST_F(PlaceNotesTest, ADetachedNoteIsDrawnOutToTheNextUnlessThreeQuartersAreMissing)
{
    struct
    {
        int32_t lOff;
        char const* sStaff;
    } const aCase[] = {{192, "n0/96"}, {96, "n0/96"}, {49, "n0/96"}, {48, "n0/24 r48 r24"}, {24, "n0/12 r48 r24 r12"}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        placement = Placement{};
        Play(lC, 0, c.lOff);
        Hold(lE, 192);
        EXPECT_EQ(Placed(192), c.sStaff) << c.lOff;
        EXPECT_EQ(placement.alStaffTime[1], 96) << c.lOff;
    }
}

TEST_F(PlaceNotesTest, ANoteWhoseEndLiesAheadIsCutHereAndNotTied)
{
    Play(lC, 0, 96);
    Play(lE, 0, 200);
    Hold(lG, 96);
    EXPECT_EQ(Placed(96), "[n0/48 n2/48]");
    EXPECT_EQ(placement.listHeld.size(), 1u);
}

TEST_F(PlaceNotesTest, ANoteThatIsHeldIsSplitAndTied)
{
    Play(lC, 0, 96);
    Hold(lE, 0);
    Hold(lG, 96);
    EXPECT_EQ(Placed(96), "[n0/48 n2/48]");
    ASSERT_EQ(placement.listHeld.size(), 2u);
    EXPECT_EQ(placement.listHeld[0].lOn, 96);
    EXPECT_TRUE(placement.listHeld[0].fTied);
    for (HeldNote& note : placement.listHeld)
    {
        note.fEnded = true;
        note.lOff = 192;
    }
    Hold(lC, 192);
    EXPECT_EQ(Placed(192), "[n0/48 n2/48/flag=1] tie [n2/48/flag=2 n4/48]");
    EXPECT_EQ(placement.alStaffTime[1], 96);
}

TEST_F(PlaceNotesTest, NotesBelongTogetherWithinSixTicksOfTheFirst)
{
    Hold(lC, 0);
    Play(lE, 3, 99);
    EXPECT_EQ(Placed(2000), "") << "three units late is out of the window";
    placement = Placement{};
    Hold(lC, 0);
    Play(lE, 2, 98);
    Hold(lG, 98);
    EXPECT_EQ(Placed(98), "[n0/48 n2/48] r1") << "98 units are 49 ticks";
    EXPECT_EQ(placement.listHeld.front().lOn, 98);
}

TEST_F(PlaceNotesTest, TheWindowIsMeasuredAtTheSpeedOfTheFirstInLine)
{
    Hold(lC, 0, 0.1F); // one unit
    Play(lE, 2, 98);
    Hold(lG, 98);
    EXPECT_EQ(Placed(98), "");
}

TEST_F(PlaceNotesTest, ANoteOfFourTicksBesideALongerOneIsAGraceNote)
{
    Play(lC, 0, 8);
    Play(lE, 0, 96);
    Hold(lG, 96);
    EXPECT_EQ(Placed(96), "n0/0 n2/48");
}

TEST_F(PlaceNotesTest, ANoteLongerThanFourTicksJoinsTheChord)
{
    Play(lC, 0, 9);
    Play(lE, 0, 96);
    Hold(lG, 96);
    EXPECT_EQ(Placed(96), "n0/0");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"All notes in a chord must have same duration"});
}

TEST_F(PlaceNotesTest, AShortNoteByItselfHasTheChordWindowsLengthAndAllStaffsWait)
{
    Play(lC, 0, 3);
    Hold(lE, 96);
    // Seven staffs get their rests on the staff of the insert point.
    EXPECT_EQ(Placed(96), "n0/6 r6 r6 r6 r6 r6 r6 r6");
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        EXPECT_EQ(placement.alStaffTime[lStaff], 6) << lStaff;
    EXPECT_EQ(placement.alStaffTime[0], 0);
}

TEST_F(PlaceNotesTest, AShortNoteCloseToTheNextIsDrawnOutToIt)
{
    Play(lC, 0, 2, 2.0F);
    Hold(lE, 7, 2.0F);
    EXPECT_EQ(Placed(7), "n0/12 r12 r12 r12 r12 r12 r12 r12");
}

TEST_F(PlaceNotesTest, AShortNoteWithNoTimeBehindItIsAGraceNote)
{
    Play(lC, 0, 2, 2.0F);
    Hold(lE, 3, 2.0F);
    EXPECT_EQ(Placed(3), "n0/0");
}

TEST_F(PlaceNotesTest, ANotesStaffOnlyKeepsTheTime)
{
    Play(lC, 0, 2, 2.0F).lStaff = 3;
    Hold(lE, 7, 2.0F);
    EXPECT_EQ(Placed(7), "n0/12 r12 r12 r12 r12 r12 r12 r12");
    EXPECT_EQ(placement.alStaffTime[3], 12);
}

TEST_F(PlaceNotesTest, PaddingGoesByTheMeanOfTheSpeeds)
{
    Play(lC, 0, 96, 0.5F);
    Play(lE, 0, 48, 1.0F);
    Hold(lG, 192);
    // The second is no minim and is left out, but its speed counts: (0.5 + 1) / 2 * 192 = 144 ticks.
    EXPECT_EQ(Placed(192), "n0/96 r48");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"All notes in a chord must have same duration"});
}

TEST_F(PlaceNotesTest, EverySemitoneHasItsPlaceAndBlackKeysAreSharps)
{
    char const* const aName[] = {"n0/48",    "#0 n0/48", "n1/48",    "#1 n1/48", "n2/48",    "n3/48",
                                 "#3 n3/48", "n4/48",    "#4 n4/48", "n5/48",    "#5 n5/48", "n6/48"};
    for (int32_t l = 0; l < 12; ++l)
    {
        Score_EmptyStaffs();
        placement = Placement{};
        Play(lC + l, 0, 96);
        EXPECT_EQ(Placed(2000, true), aName[l]) << l;
    }
    Score_EmptyStaffs();
    placement = Placement{};
    Play(0, 0, 96);
    EXPECT_EQ(Placed(2000, true), "n-35/48");
}
} // namespace zarn::test

#include "render/beam_groups.h"

#include "core/messages.h"
#include "layout/adjust.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Write;

class BeamGroups : public test::LayoutFixture
{
protected:
    /// The beams that the metre gives, a digit for each note and a dot for what is none.
    static std::string Beams(std::string_view sScore)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        AutoBeam(StaffFirst(1));
        std::string s;
        for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
            s += pel->sort == NOTE ? static_cast<char>('0' + pel->beam) : '.';
        return s;
    }
};

TEST_F(BeamGroups, FourInABarBreaksAtEachHalfBar)
{
    EXPECT_EQ(Beams("n0/24 n0/24"), "12");
    EXPECT_EQ(Beams("n0/24 n0/24 n0/24 n0/24 n0/24 n0/24"), "133212");
    EXPECT_EQ(Beams("time:2/2 n0/24 n0/24 n0/24 n0/24 n0/24 n0/24"), ".133212");
    EXPECT_EQ(Beams("time:4/4 r24 n0/24 n0/24 n0/24 n0/24 n0/24"), "..13212");
}

TEST_F(BeamGroups, OtherSimpleMetresBreakAtEachCrotchet)
{
    EXPECT_EQ(Beams("time:3/4 n0/24 n0/24 n0/24 n0/24"), ".1212");
    EXPECT_EQ(Beams("time:2/4 n0/24 n0/24 n0/24 n0/24"), ".1212");
    EXPECT_EQ(Beams("time:5/4 n0/24 n0/24 n0/24 n0/24"), ".1212");
}

TEST_F(BeamGroups, CompoundMetresBreakAtEachDottedCrotchet)
{
    EXPECT_EQ(Beams("time:6/8 n0/24 n0/24 n0/24 n0/24 n0/24 n0/24"), ".132132");
    EXPECT_EQ(Beams("time:9/8 n0/24 n0/24 n0/24 n0/24 n0/24 n0/24"), ".132132");
    EXPECT_EQ(Beams("time:12/8 n0/24 n0/24 n0/24 n0/24"), ".1212"); // has no entry: crotchets
}

TEST_F(BeamGroups, ALoneQuaverKeepsItsFlagAndItsStem)
{
    EXPECT_EQ(Beams("n0/48 n9/24 n0/48"), "000");
    EXPECT_EQ(At(1, 1)->up, 0);
}

TEST_F(BeamGroups, AFinishedTripletEndsItsGroup)
{
    EXPECT_EQ(Beams("n0/16 n0/16 n0/16 n0/16 n0/16 n0/16"), "132132");
    EXPECT_EQ(Beams("n0/16 n0/16 n0/16 n0/24 n0/24"), "13212");
}

TEST_F(BeamGroups, DottedAndPlainNotesShareABeamAndTripletsDoNot)
{
    EXPECT_TRUE(SameFamily(24, 12));
    EXPECT_TRUE(SameFamily(36, 12));
    EXPECT_TRUE(SameFamily(12, 36));
    EXPECT_FALSE(SameFamily(24, 16));
    EXPECT_FALSE(SameFamily(36, 16));
    EXPECT_TRUE(SameFamily(8, 16));
    EXPECT_EQ(Beams("n0/18 n0/6 n0/16 n0/24"), "1200");
}

TEST_F(BeamGroups, GraceNotesNeitherJoinNorBreak) { EXPECT_EQ(Beams("n0/24 n5/0 n0/24"), "102"); }

TEST_F(BeamGroups, SignsThatABeamPassesOverAndSignsThatEndIt)
{
    EXPECT_EQ(Beams("n0/24 #0 sp chord\"a\" lyr\"b\" tie inst:1 vol:2 title\"c\" n0/24"), "1........2");
    EXPECT_EQ(Beams("n0/24 r0 n0/24"), "0.0");
    EXPECT_EQ(Beams("n0/24 nl n0/24"), "0.0");
    EXPECT_EQ(Beams("n0/24 tempo:90 n0/24"), "0.0");
    EXPECT_EQ(Beams("n0/24 clef:1 n0/24"), "0.0");
    EXPECT_EQ(Beams("n0/24 up n0/24"), "0.0");
}

TEST_F(BeamGroups, SecondTimeBarsCountFromWhereTheFirstBegan)
{
    EXPECT_EQ(Beams("n0/48 1st n0/24 n0/24 :| n0/24 n0/24 n0/24"), "0.12.120");
}

TEST_F(BeamGroups, ARepeatSignClosesAPickupOnce)
{
    EXPECT_EQ(Beams("n0/24 |: n0/24 n0/24 n0/24 n0/24 n0/24"), "0.13320");
    EXPECT_EQ(Beams("n0/24 | n0/24 |: n0/24 n0/24 n0/24 n0/24"), "0.0.1320");
}

TEST_F(BeamGroups, ASwitchTurnsThemOff)
{
    bBeamQuavers = false;
    EXPECT_EQ(Beams("n0/24 n0/24"), "00");
}

TEST_F(BeamGroups, AllNotesOfAChordHoldTheSameBeam)
{
    EXPECT_EQ(Beams("[n0/24 n2/24] [n0/24 #1 n2/24] [n0/24 n2/24]"), "113.322");
    EXPECT_EQ(Beams("[n0/24 n2/24] n0/48"), "000"); // one chord is no group
}

TEST_F(BeamGroups, TheMeanPitchChoosesTheStemsInsideTheStaff)
{
    Beams("clef:1 n2/24 n10/24 n6/24 n6/24");
    EXPECT_EQ(Column(1, &Element::up), "1 1 1 1 1");
    Beams("clef:1 n2/24 n10/24 n6/24 n7/24");
    EXPECT_EQ(Column(1, &Element::up), "1 0 0 0 0");
}

TEST_F(BeamGroups, TheFurtherNoteOutsideChoosesTheStems)
{
    Beams("clef:1 n0/24 n11/24");
    EXPECT_EQ(At(1, 1)->up, 1);
    Beams("clef:1 n12/24 n1/24");
    EXPECT_EQ(At(1, 1)->up, 0);
    Beams("clef:1 n0/24 n12/24");
    EXPECT_EQ(At(1, 1)->up, 1);
    Beams("clef:1 n0/24 n13/24");
    EXPECT_EQ(At(1, 1)->up, 0);
    Beams("clef:3 n-9/24 n0/24");
    EXPECT_EQ(At(1, 1)->up, 0);
    Beams("clef:2 n0/24 n0/24");
    EXPECT_EQ(At(1, 1)->up, 1);
    Beams("clef:4 n1/24 n0/24");
    EXPECT_EQ(At(1, 1)->up, 0);
    Beams("clef:4 n-1/24 n0/24");
    EXPECT_EQ(At(1, 1)->up, 1);
}

TEST_F(BeamGroups, SetBeamGroupFindsItsClefAndTakesTheRestOfItsLastChord)
{
    Write(1, "clef:3 n-6/24 [n-8/24 n0/24]");
    SetBeamGroup(At(1, 1), At(1, 2));
    EXPECT_EQ(Column(1, &Element::beam), "0 1 2 2");
    EXPECT_EQ(Column(1, &Element::up), "1 0 0 0");
    SetBeamGroup(nullptr, At(1, 1));
    SetBeamGroup(At(1, 1), nullptr);
}

TEST_F(BeamGroups, SameChordGoesForwardAndPastWhatIsNoNote)
{
    Write(1, "[n0/24 #2 n2/24] n0/24");
    EXPECT_TRUE(SameChord(At(1, 0), At(1, 2)));
    EXPECT_FALSE(SameChord(At(1, 2), At(1, 0)));
    EXPECT_FALSE(SameChord(At(1, 0), At(1, 3)));
    EXPECT_FALSE(SameChord(nullptr, At(1, 0)));
}

TEST_F(BeamGroups, AChordWithoutAFirstNoteGetsNoBeam)
{
    Write(1, "r48 n0/24/flag=8");
    SetChordBeam(At(1, 1), BEAM_INSIDE);
    EXPECT_EQ(At(1, 1)->beam, 0);
}

TEST_F(BeamGroups, TheNextBeamableStandsAtTheStemsEndOfItsChord)
{
    Write(1, "n0/24 text\"a\" tie n5/0 [n0/24 n2/24] n0/48 n0/24 | n0/24");
    EXPECT_EQ(NextBeamable(At(1, 0), true), At(1, 5)); // stems up: the highest note
    EXPECT_EQ(NextBeamable(At(1, 0), false), At(1, 5));
    At(1, 4)->up = At(1, 5)->up = 0;
    EXPECT_EQ(NextBeamable(At(1, 0), true), At(1, 4));
    EXPECT_EQ(NextBeamable(At(1, 5), true), nullptr);
    EXPECT_EQ(NextBeamable(At(1, 7), true), nullptr);
    EXPECT_EQ(NextBeamable(At(1, 9), true), nullptr);
}

TEST_F(BeamGroups, TheEndOfASetIsFoundOrMended)
{
    Write(1, "n0/24 n0/24 n0/24 | n0/24");
    At(1, 0)->beam = BEAM_FIRST;
    At(1, 1)->beam = BEAM_INSIDE;
    At(1, 2)->beam = BEAM_LAST;
    EXPECT_EQ(EndOfBeamSet(At(1, 0)), At(1, 2));
    EXPECT_EQ(LongestInSet(At(1, 0)), 24);
    At(1, 2)->beam = BEAM_INSIDE;
    EXPECT_EQ(EndOfBeamSet(At(1, 0)), At(1, 2));
    EXPECT_EQ(At(1, 2)->beam, BEAM_LAST);
    At(1, 1)->beam = BEAM_NONE;
    EXPECT_EQ(EndOfBeamSet(At(1, 0)), nullptr);
    EXPECT_EQ(At(1, 0)->beam, BEAM_NONE);
}

TEST_F(BeamGroups, AskingForTheEndOfNoSetIsTold)
{
    Write(1, "n0/24 |");
    struct
    {
        Element* pel;
        char const* sMessage;
    } const aCase[] = {{nullptr, "EndOfBeamSet called for NULL note!  Tell Odrian."},
                       {At(1, 1), "EndOfBeamSet called for non-note!  Tell Odrian."},
                       {At(1, 0), "EndOfBeamSet called for non-BEAMSTART note!  Tell Odrian."}};
    for (auto const& c : aCase)
    {
        Serious_Rearm();
        EXPECT_EQ(EndOfBeamSet(c.pel), nullptr);
        EXPECT_EQ(process.user.Messages().back(), c.sMessage);
    }
}

TEST_F(BeamGroups, TheLongestOfASetCountsItsLastAndNoMore)
{
    Write(1, "n0/12 n0/6 n0/18 n0/24");
    At(1, 2)->beam = BEAM_LAST;
    EXPECT_EQ(LongestInSet(At(1, 0)), 18);
    EXPECT_EQ(LongestInSet(nullptr), 0);
}

TEST_F(BeamGroups, ASetThatRunsOverALinesEndFallsBackToFlags)
{
    Beams("n0/24 [n0/24 n2/24] n0/24");
    At(1, 3)->lStrX = 150;
    BeamCheck(aStaffList[1]);
    EXPECT_EQ(Column(1, &Element::beam), "0 0 0 0");
    EXPECT_TRUE(process.user.Messages().empty());
}

TEST_F(BeamGroups, ASetThatLacksItsEndIsUndoneAndTold)
{
    Beams("n0/24 [n0/24 n2/24] n0/24 |");
    At(1, 3)->beam = BEAM_INSIDE;
    BeamCheck(aStaffList[1]);
    EXPECT_EQ(Column(1, &Element::beam), "0 0 0 0 0");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"missing beam-to note!  Fixing..."});
}

TEST_F(BeamGroups, AHundredThousandDamagedChordNotesAreBeamedInTime)
{
    Write(1, "time:30000/1 n0/12/flag=4");
    for (int n = 0; n < 100000; ++n)
        Write(1, n % 3 ? "n0/12/flag=8" : "tempo:90 n0/12/flag=8");
    FullAdjust();
    EXPECT_EQ(StaffFirst(1)->sort, CLEF);
}
} // namespace
} // namespace zarn

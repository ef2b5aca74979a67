// A note at the column of others: who joins whom, and which ties a new note cuts.
#include "support/edit_fixture.h"

namespace zarn::test
{
namespace
{
struct AddChord : EditFixture
{
    AddChord() { CurrentSymbol_SetNote(48); }

    /// The staff after a click there.
    static std::string Clicked(std::string_view sScore, int32_t lStrX, int32_t lDiaPitch)
    {
        Staff(sScore);
        Click(lStrX, lDiaPitch);
        return Read(1);
    }
};
} // namespace

TEST_F(AddChord, ANoteJoinsFromAboveFromBelowAndBetween)
{
    EXPECT_EQ(Clicked("x:20 [n2/48 n6/48]", 20, 8), "[n2/48 n6/48 n8/48]");
    EXPECT_EQ(Clicked("x:20 [n2/48 n6/48]", 20, 0), "[n0/48 n2/48 n6/48]");
    EXPECT_EQ(Clicked("x:20 [n2/48 n6/48]", 20, 4), "[n2/48 n4/48 n6/48]");
    EXPECT_EQ(Column(1, &Element::lA), "4 12 8");
}

TEST_F(AddChord, ANoteThatJoinsTakesTheStemOfTheNoteItJoins)
{
    Staff("x:20 n4/48");
    At(1, 0)->up = 0;
    EXPECT_EQ(Click(20, 2)->up, 0);
    EXPECT_EQ(Click(20, 9)->up, 0);
    Staff("x:20 n9/48");
    At(1, 0)->up = 1;
    EXPECT_EQ(Click(20, 12)->up, 1);
}

TEST_F(AddChord, OnlyTheSameLengthWithoutDotOrTripletJoins)
{
    struct
    {
        char const* sChord;
        int32_t lDuration;
        bool bJoins;
    } const aCase[] = {{"x:20 n4/48", 48, true},  {"x:20 n4/72", 48, true},   {"x:20 n4/32", 48, true},
                       {"x:20 n4/72", 72, true},  {"x:20 n4/48", 72, false},  {"x:20 n4/48", 32, false},
                       {"x:20 n4/72", 24, false}, {"x:20 n4/144", 96, true},  {"x:20 n4/16", 24, true},
                       {"x:20 n4/36", 24, true},  {"x:20 n4/192", 96, false}, {"x:20 n4/0", 48, false}};
    for (auto const& c : aCase)
        for (int32_t const lDiaPitch : {2, 7})
        {
            Staff(c.sChord);
            CurrentSymbol_SetNote(c.lDuration);
            Element const* const pel = Click(20, lDiaPitch);
            int32_t const lLength = At(1, 0) == pel ? At(1, 1)->lDuration : At(1, 0)->lDuration;
            bool const bMovedOn = lDiaPitch == 2; // one that stays above is linked behind, at the same column
            EXPECT_EQ((pel->lA & fChordBits) != 0, c.bJoins) << c.sChord << " and " << c.lDuration;
            EXPECT_EQ(pel->lDuration, c.bJoins ? lLength : c.lDuration) << c.sChord << " and " << c.lDuration;
            EXPECT_EQ(pel->lStrX, !c.bJoins && bMovedOn ? 21 : 20) << c.sChord << " and " << c.lDuration;
        }
    EXPECT_TRUE(TakeMessages().empty());
}

TEST_F(AddChord, ANoteThatMovesOnGoesAheadOfTheFirstAtItsNewColumnOrBehind)
{
    EXPECT_EQ(Clicked("x:20 n4/48 x:21 n5/48 x:22 n6/48", 20, 4), "n4/48 n4/48 n5/48 n6/48");
    EXPECT_EQ(Column(1, &Element::lStrX), "20 21 21 22");
    EXPECT_EQ(Clicked("x:20 [n4/48 n6/48] x:22 n6/48", 20, 4), "[n4/48 n6/48] n4/48 n6/48");
    EXPECT_EQ(Column(1, &Element::lStrX), "20 20 21 22");
    EXPECT_EQ(Clicked("x:20 n4/48", 20, 4), "n4/48 n4/48");
    EXPECT_EQ(Clicked("x:20 n4/72", 20, 4), "n4/72 n4/48") << "at the same height no dot is taken over";
}

TEST_F(AddChord, ARestDoesNotJoinAndIsNotJoined)
{
    EXPECT_EQ(Clicked("x:20 r48", 20, 4), "n4/48 r48");
    CurrentSymbol_SetRest(48);
    EXPECT_EQ(Clicked("x:20 n4/48", 20, 4), "r48 n4/48");
    EXPECT_EQ(Column(1, &Element::lA), "0 0");
}

// The heights are compared ahead of the clef's offset: the click as it shows under a treble clef against what stands on
// the staff. Scores that have been entered so keep their look when they are entered again.
TEST_F(AddChord, UnderAnotherClefThePitchOfTheClickIsComparedAsInTreble)
{
    EXPECT_EQ(Clicked("x:5 clef:3 x:20 n-8/48", 20, 4), "clef:3 [n-8/48 n-8/48]");
    EXPECT_EQ(Clicked("x:5 clef:2 x:20 n1/48", 20, 1), "clef:2 n1/48 n-5/48");
}

TEST_F(AddChord, AtTheHeightOfAnUpperNoteItIsFlaggedByTheNoteAheadAndMovesOn)
{
    Staff("x:20 [n2/48 n4/48]");
    Element const* const pel = Click(20, 4);
    EXPECT_EQ(pel, StaffLast(1));
    EXPECT_EQ(Column(1, &Element::lA), "4 8 8");
    EXPECT_EQ(Column(1, &Element::lStrX), "20 20 21");
}

TEST_F(AddChord, ANoteBetweenCutsTheTiesOfTheWholeChordsOnBothSides)
{
    EXPECT_EQ(Clicked("x:10 [n2/48/flag=1 n4/48/flag=1] x:14 tie x:20 [n2/48/flag=2 n4/48/flag=2]", 16, 7),
              "[n2/48 n4/48] n7/48 [n2/48 n4/48]");
}

TEST_F(AddChord, ANoteBetweenLeavesTheTiesFurtherOut)
{
    EXPECT_EQ(Clicked("x:10 n4/48/flag=1 x:14 tie x:20 n4/48/flag=3 x:24 tie x:30 n4/48/flag=3 x:34 tie "
                      "x:40 n4/48/flag=2",
                      25, 7),
              "n4/48/flag=1 tie n4/48/flag=2 n7/48 n4/48/flag=1 tie n4/48/flag=2");
}

TEST_F(AddChord, ATieStaysWhenNoNoteBehindWasTied)
{
    EXPECT_EQ(Clicked("x:10 n4/48/flag=1 x:14 tie x:30 n4/48", 20, 7), "n4/48 tie n7/48 n4/48");
    EXPECT_EQ(Clicked("x:10 n4/48 x:14 tie x:30 n4/48/flag=2", 20, 7), "n4/48 tie n7/48 n4/48");
}

TEST_F(AddChord, ATieOverABarIsCutToo)
{
    EXPECT_EQ(Clicked("x:10 n4/48/flag=1 x:14 | x:16 tie x:20 n4/48/flag=2", 12, 7), "n4/48 n7/48 | n4/48");
}

TEST_F(AddChord, CursorsOnATieThatIsCutStepOff)
{
    Staff("x:10 n4/48/flag=1 x:14 tie x:20 n4/48/flag=2");
    pelInsertPoint = pelMarkBegin = pelMarkEnd = pelHighlight = At(1, 1);
    Click(16, 7);
    EXPECT_EQ(Read(1), "n4/48 n7/48 n4/48");
    EXPECT_EQ(pelInsertPoint, At(1, 0));
    EXPECT_EQ(pelMarkBegin, At(1, 1));
    EXPECT_EQ(pelHighlight, nullptr);
}
} // namespace zarn::test

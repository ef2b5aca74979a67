#include "layout/place.h"

#include "layout/adjust.h"
#include "layout/element_width.h"
#include "layout/merge.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;
using test::Write;

class Placing : public test::LayoutFixture
{
protected:
    static std::string Columns(int32_t lStaff) { return Column(lStaff, &Element::lStrX); }
};

TEST_F(Placing, OneStaffPacksItsSymbolsToTheLeft)
{
    Write(1, "clef:1 key:2 time:4/4 n0/48 #3 n3/48 r96 |");
    Place();
    // clef 6, key 5, time 4, crotchets 4 with room for a flag, sharp 2, rest 4.
    EXPECT_EQ(Columns(1), "3 9 14 18 22 24 28 32");
    EXPECT_EQ(Column(1, &Element::lWidth), "6 5 4 4 2 4 4 3");
}

TEST_F(Placing, AStaffThatOpensWithNoClefGetsATrebleClef)
{
    Write(1, "n0/48")->inx = 17;
    Place();
    EXPECT_EQ(Read(1), "clef:1 n0/48");
    EXPECT_EQ(At(1, 0)->inx, -17);
    EXPECT_EQ(At(1, 0)->lDiaPitch, 4);
    EXPECT_EQ(Columns(1), "3 9");
}

TEST_F(Placing, TheFirstClefsWidthIsRefreshed)
{
    Write(1, "clef:1 n0/48")->lWidth = 99;
    Place();
    EXPECT_EQ(Columns(1), "3 9");
}

TEST_F(Placing, AnEmptyStaffBesideAFullOneTakesNoPart)
{
    SetStaffCount(2);
    Write(1, "clef:1 n0/48 n0/48");
    Place();
    EXPECT_EQ(Columns(1), "3 9 13");
    EXPECT_EQ(Read(2), "");
}

TEST_F(Placing, AStaffWithOnlyAClefIsGivenNothingMore)
{
    Write(1, "clef:3");
    Place();
    EXPECT_EQ(Columns(1), "3");
}

TEST_F(Placing, EqualRhythmTakesTheRightMostPositionOfEachColumn)
{
    SetStaffCount(2);
    Write(1, "clef:1 n0/48 #1 n1/48 n0/48");
    Write(2, "clef:3 key:3 n-9/48 n-9/48 b-9 n-9/48");
    Place();
    EXPECT_EQ(Columns(1), "3 15 19 21 27");
    EXPECT_EQ(Columns(2), "3 9 15 21 25 27");
}

TEST_F(Placing, AGapOpensAheadOfTheAnchorsRun)
{
    SetStaffCount(2);
    Write(1, "clef:1 n0/48 #0 n0/48");
    Write(2, "clef:1 n9/24 n9/24 n9/24 n9/24");
    for (int32_t n = 1; n <= 4; ++n)
        At(2, n)->up = 1;
    Place();
    // Quavers of 3 columns at 9, 12, 15; the second crotchet, with its sharp, meets the third quaver at 15.
    EXPECT_EQ(Columns(1), "3 9 13 15");
    EXPECT_EQ(Columns(2), "3 9 12 15 18");
}

TEST_F(Placing, NotesOfAChordShareTheirColumnAndAnAccidentalInsideEndsIt)
{
    Write(1, "clef:1 [n0/48 n2/48 n4/96] [n0/48 #2 n2/48]");
    Place();
    EXPECT_EQ(Columns(1), "3 9 9 9 14 14 16");
    EXPECT_EQ(Column(1, &Element::lWidth), "6 0 0 5 0 2 4");
}

TEST_F(Placing, WhilePlacingAChordLastsAsLongAsItsShortestNote)
{
    Write(1, "clef:1 [n0/48 n2/24 n4/96] text\"a\" n0/48");
    TempPlace(StaffFirst(1), nullptr);
    EXPECT_EQ(Column(1, &Element::lTime), "0 0 0 0 24 24");
}

TEST_F(Placing, AClefInTheStaffStandsThreeColumnsIn)
{
    Write(1, "clef:1 n0/48 clef:3 n0/48");
    Place();
    EXPECT_EQ(Columns(1), "3 9 16 22");
}

TEST_F(Placing, ALyricTakesItsNotesColumnAndKeepsTheNextWordClear)
{
    Write(1, "clef:1 lyr\"gloria\" n0/48 lyr\"tu\" n0/48");
    Place();
    int32_t const lSecond = 9 + TextColumns("gloria");
    EXPECT_EQ(At(1, 1)->lStrX, 9);
    EXPECT_EQ(At(1, 2)->lStrX, 9);
    EXPECT_EQ(At(1, 3)->lStrX, lSecond);
    EXPECT_EQ(At(1, 4)->lStrX, lSecond);
    EXPECT_EQ(At(1, 1)->lWidth, 0);
}

TEST_F(Placing, AHarmonyAndALyricShareOneColumn)
{
    Write(1, "clef:1 chord\"Am7\" lyr\"ky\" [n0/48 n2/48] chord\"G\" n0/48");
    Place();
    EXPECT_EQ(At(1, 1)->lStrX, 9);
    EXPECT_EQ(At(1, 2)->lStrX, 9);
    EXPECT_EQ(At(1, 3)->lStrX, 9);
    EXPECT_EQ(At(1, 5)->lStrX, 9 + TextColumns("Am7"));
    EXPECT_EQ(At(1, 6)->lStrX, At(1, 5)->lStrX);
}

TEST_F(Placing, AnAccidentalBehindALyricMakesTheLyricTheAnchor)
{
    Write(1, "clef:1 lyr\"ky\" #0 n0/48");
    Place();
    EXPECT_EQ(Columns(1), "3 9 9 11");
}

TEST_F(Placing, TwoLyricsInARowStandBehindEachOther)
{
    Write(1, "clef:1 lyr\"ky\" lyr\"rie\" n0/48");
    Place();
    int32_t const lSecond = 9 + TextColumns("ky");
    EXPECT_EQ(Columns(1), "3 9 " + std::to_string(lSecond) + " " + std::to_string(lSecond));
}

TEST_F(Placing, TheNextAnchorIsTheNoteOfAWordOrTheWordItself)
{
    struct
    {
        char const* sStaff;
        int32_t lAnchor; // index; -1 for none
    } const aCase[] = {{"text\"a\" n0/48", 1},
                       {"[n0/48 n2/48]", 1},
                       {"key:1 clef:1 tie", -1},
                       {"lyr\"a\" n0/48", 1},
                       {"lyr\"a\" chord\"b\" [n0/48 n2/48]", 3},
                       {"lyr\"a\" #1 n1/48", 0},
                       {"lyr\"a\" lyr\"b\" n1/48", 0},
                       {"lyr\"a\" chord\"b\" chord\"c\" n1/48", 1},
                       {"lyr\"a\" r48", 1},
                       {"lyr\"a\" |", 0},
                       {"text\"x\" lyr\"a\"", -1},
                       {"||", 0},
                       {"::", 0},
                       {"time:3/4", 0},
                       {"nl", 0},
                       {"1st n0/48", 1}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Element* const pelFirst = Write(1, c.sStaff);
        EXPECT_EQ(NextAnchor(pelFirst), c.lAnchor < 0 ? nullptr : At(1, c.lAnchor)) << c.sStaff;
    }
    EXPECT_EQ(NextAnchor(nullptr), nullptr);
}

TEST_F(Placing, AWordsColumnRaisesItsHarmonysNote)
{
    Write(1, "x:5 text\"t\" lyr\"a\" x:9 chord\"b\" x:2 n0/48");
    NextAnchor(StaffFirst(1));
    EXPECT_EQ(Columns(1), "5 9 9 9");
}

TEST_F(Placing, TheMasterIsTheEarliestThenANewlineThenTheRightMost)
{
    SetStaffCount(3);
    Write(1, "x:5 n0/48");
    Write(2, "x:9 n0/48");
    Write(3, "x:1 nl");
    Merge merge;
    EXPECT_EQ(MasterElement(merge), 0);
    merge.apelNext[1] = StaffFirst(1);
    EXPECT_EQ(MasterElement(merge), 1);
    merge.apelNext[2] = StaffFirst(2);
    EXPECT_EQ(MasterElement(merge), 2);
    merge.apelNext[3] = StaffFirst(3);
    EXPECT_EQ(MasterElement(merge), 3);
    merge.apelNext[1]->lTime = -1;
    EXPECT_EQ(MasterElement(merge), 1);
}

TEST_F(Placing, AMasterThatIsNoneIsTold)
{
    Merge merge;
    PlaceOthers(merge, MasterElement(merge));
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"PlaceOthers called with NULL pel"});
}

TEST_F(Placing, ANewlineCarriesOnToTheNextLineBehindClefAndKey)
{
    Write(1, "clef:3 key:2 n0/48 nl n0/48");
    Place();
    EXPECT_EQ(Read(1), "clef:3 key:2 n0/48 nl clef:3 key:2 n0/48");
    EXPECT_EQ(Columns(1), "3 9 14 18 153 159 164");
    EXPECT_EQ(At(1, 3)->lWidth, 150 - 18);
    EXPECT_EQ(At(1, 5)->lDiaPitch, -6);
}

TEST_F(Placing, ALineThatStartsWithAClefOrHasItsKeyIsNotGivenAnother)
{
    Write(1, "clef:1 n0/48 nl clef:3 n0/48");
    Place();
    EXPECT_EQ(Read(1), "clef:1 n0/48 nl clef:3 n0/48");
    Score_EmptyStaffs();
    Write(1, "clef:1 n0/48 nl title\"a\" key:1 n0/48");
    Place();
    EXPECT_EQ(Read(1), "clef:1 n0/48 nl clef:1 title\"a\" key:1 n0/48");
}

TEST_F(Placing, ANewlineBehindAnotherSymbolIsRestartedAheadOfItself)
{
    Write(1, "clef:1 n0/48 text\"a\" nl n0/48");
    Place();
    EXPECT_EQ(Read(1), "clef:1 n0/48 text\"a\" clef:1 key:0 nl n0/48");
}

TEST_F(Placing, ANewlineOnOneStaffRestartsThatStaffAlone)
{
    SetStaffCount(2);
    Write(1, "clef:1 n0/48 nl n0/48");
    Write(2, "clef:1 n0/48 n0/48");
    Place();
    EXPECT_EQ(Read(1), "clef:1 n0/48 nl clef:1 key:0 n0/48");
    EXPECT_EQ(Read(2), "clef:1 n0/48 n0/48");
    // Staff 2's second note meets the NEWLINE, which comes first at its time.
    EXPECT_EQ(Columns(2), "3 9 13");
}

TEST_F(Placing, ABarThatWouldStraddleMovesToTheNextLine)
{
    lColsPerLine = 30;
    Write(1, "clef:1 key:1 n0/96 n0/96 | n0/96 n1/96 | n2/96 n0/96 |");
    Place();
    // The bar lines would stand at 23, 36 and 49, and the third then at 66, behind a line's start at 30 and at 60.
    EXPECT_EQ(Read(1), "clef:1 key:1 n0/96 n0/96 | clef:1 key:1 n0/96 n1/96 | clef:1 key:1 n2/96 n0/96 |");
    EXPECT_EQ(Columns(1), "3 9 13 18 23 33 39 43 48 53 63 69 73 78 83");
}

TEST_F(Placing, BarsRunOverTheLineWhenNobodyKeepsThemTogether)
{
    lColsPerLine = 30;
    bKeepBarsTogether = false;
    Write(1, "clef:1 n0/96 n0/96 | n0/96 n0/96 | n0/96 n0/96 |");
    Place();
    EXPECT_EQ(Columns(1), "3 9 14 19 22 27 32 35 40 45");
}

TEST_F(Placing, ABarWiderThanALineSpillsOnce)
{
    lColsPerLine = 15;
    Write(1, "clef:1 n0/192 | n0/48 n0/48 n0/48 n0/48 n0/48 n0/48 | n0/48");
    Place();
    EXPECT_EQ(Read(1), "clef:1 n0/192 | clef:1 key:0 n0/48 n0/48 n0/48 n0/48 n0/48 n0/48 | n0/48");
    EXPECT_EQ(Columns(1), "3 9 15 33 39 42 46 50 54 58 62 66 69");
}

TEST_F(Placing, ASpillTakesAlongEachStaffWhoseBarStandsAtTheSameColumn)
{
    SetStaffCount(2);
    lColsPerLine = 30;
    Write(1, "clef:1 n0/96 n0/96 | n0/96 n0/96 | n0/96");
    Write(2, "clef:3 key:4 n0/192 | key:-2,4 n0/192 | n0/96");
    Place();
    EXPECT_EQ(Read(2), "clef:3 key:4 n0/192 | clef:3 key:-2,4 n0/192 | n0/96");
    EXPECT_EQ(At(2, 4)->lStrX, 33);
    EXPECT_EQ(At(2, 5)->lStrX, 39);
    EXPECT_EQ(At(1, 4)->lStrX, 33);
}

TEST_F(Placing, AHundredThousandWordsCostOneWalkForEachSort)
{
    for (int n = 0; n < 100000; ++n)
        Write(1, n % 2 ? "lyr\"a\"" : "lyr\"b\" lyr\"c\" text\"d\"");
    Write(1, "chord\"Am\"");
    Place();
    EXPECT_EQ(FirstOnStaff(1)->sort, CLEF);
}

TEST_F(Placing, ReGridFoldsEachElementUnderItsOwnClef)
{
    SetStaffCount(2);
    Write(1, "n2/48 clef:3 n-10/48 clef:2 n-4/48");
    ReGrid();
    EXPECT_EQ(At(1, 0)->lY, At(1, 2)->lY);
    EXPECT_EQ(At(1, 0)->lY, At(1, 4)->lY);
}
} // namespace
} // namespace zarn

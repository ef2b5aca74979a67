// A whole tune as text: its header, its staffs, what is told.
#include "abc_write_fixture.h"
#include "core/score_check.h"
#include "midi/score_times.h"
#include "render/geometry.h"
#include "support/random_score.h"

#include <random>

namespace zarn
{
namespace
{
using test::Write;

constexpr char const* sLossTold =
    "The score contained some elements which are not guaranteed to be saved accurately in ABC format";

class AbcTuneText : public test::AbcWriteTest
{
protected:
    static void Show(std::initializer_list<int32_t> aStaffs)
    {
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
            abStaffVisible[lStaff] = std::find(aStaffs.begin(), aStaffs.end(), lStaff) != aStaffs.end();
    }
};

TEST_F(AbcTuneText, AnEmptyScoreIsItsHeaderAndALineEnd)
{
    EXPECT_EQ(Tune(), "X:1\nT:\nL:1/8\nM:4/4\nK:C\n\n");
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(AbcTuneText, KeyAndMeterOfTheFirstBarStandInTheHeaderAlone)
{
    Write(1, "clef:1 key:2 time:6/8 n0/144 | key:-1 n0/24 |");
    EXPECT_EQ(Tune("Jig", 12), "X:12\nT:Jig\nL:1/8\nM:6/8\nK:D\nC6 |\\\nK:F\nC |\n\n");
}

TEST_F(AbcTuneText, AnEmptyTitleIsLookedForInTheScore)
{
    Write(1, "title\"First\" n0/24 |");
    Write(3, "title\"Hidden\"");
    EXPECT_TRUE(Tune().starts_with("X:1\nT:Hidden\n")) << "the last one found wins";
    EXPECT_TRUE(Tune("Given").starts_with("X:1\nT:Given\n"));
    Score_EmptyStaffs();
    Write(0, "title\"Zero\"");
    std::string sTitle = "none";
    Score_FindTitle(&sTitle);
    EXPECT_EQ(sTitle, "Zero");
    Score_EmptyStaffs();
    Score_FindTitle(&sTitle);
    EXPECT_EQ(sTitle, "Zero") << "nothing found changes nothing";
}

TEST_F(AbcTuneText, ATitleOfTwoLinesDoesNotBecomeALineOfMusic)
{
    EXPECT_TRUE(Tune("A reel\r\nX:9").starts_with("X:1\nT:A reel X:9\nL:1/8\n"));
}

TEST_F(AbcTuneText, WhatTheReaderKeptAheadOfTheMusicStandsInTheHeader)
{
    Write(0, "abc\"R:reel\" lyr\"from Ann\"");
    Write(1, "clef:1 time:4/4 n0/24 |");
    EXPECT_EQ(Tune(), "X:1\nT:\nR:reel\n%from Ann\nL:1/8\nM:4/4\nK:C\nC |\n\n");
}

TEST_F(AbcTuneText, SeveralStaffsAreVoicesWithHeadersOfTheirOwn)
{
    Show({1, 2, 4});
    Write(1, "clef:1 time:4/4 n0/24");
    Write(2, "clef:1 key:1 time:3/4 n1/24 |");
    Write(4, "clef:1 time:4/4 n2/24 |");
    EXPECT_EQ(Tune(),
              "X:1\nT:\nL:1/8\nM:4/4\nK:C\nV:1\nC \nV:2\nL:1/8\nM:3/4\nK:G\nD |\nV:4\nL:1/8\nM:4/4\nK:C\nE |\n\n");
}

TEST_F(AbcTuneText, OnlyShownStaffsAreSavedAndOneHiddenOneIsTold)
{
    Write(1, "n0/24 |");
    Write(3, "n1/24 |");
    Write(5, "n2/24 |");
    EXPECT_EQ(Tune(), "X:1\nT:\nL:1/8\nM:4/4\nK:C\nC |\n\n");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Only visible staffs are saved\r\n"
                                                                "!!Staff 3 is a non-empty invisible staff!!"});
}

TEST_F(AbcTuneText, NoStaffShownLeavesNumberAndTitle)
{
    Show({});
    EXPECT_EQ(Tune("None"), "X:1\nT:None\n\n");
}

TEST_F(AbcTuneText, LossOnStaffZeroIsTold)
{
    bScoreDirty = true;
    Write(0, "clef:3");
    Tune();
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{sLossTold});
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(AbcTuneText, LossOnAStaffOfMusicOnlyLeavesTheScoreModified)
{
    Write(1, "clef:3 n0/24");
    Tune();
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(AbcTuneText, AStaffThatEndsInMidLineLeavesNoBlankLine)
{
    Write(1, "n0/24");
    EXPECT_EQ(Tune(), "X:1\nT:\nL:1/8\nM:4/4\nK:C\nC \n");
}

TEST_F(AbcTuneText, AWriteThatFailsIsToldByTheResult)
{
    Write(1, "n0/24 |");
    size_t const cbWhole = Tune("T").size();
    for (int64_t cbLeft = 0; cbLeft < 35; ++cbLeft)
    {
        std::string s;
        HFILE const hFile = File_IntoString(&s);
        cbDiskLeft = cbLeft;
        bool const bWritten = AbcWriteTune(hFile, "T", 1);
        cbDiskLeft = -1;
        EXPECT_EQ(bWritten, s.size() == cbWhole) << cbLeft << ": " << s;
        _lclose(hFile);
    }
}
TEST_F(AbcTuneText, AnyScoreAtAllIsWrittenAndReadAgain)
{
    for (uint32_t lSeed = 0; lSeed < 60; ++lSeed)
    {
        std::mt19937 random(lSeed);
        Score_EmptyStaffs();
        Show({1, 2});
        test::WriteHostileStaff(random, 0, 20);
        test::WriteHostileStaff(random, 1, 100);
        test::WriteRandomStaff(random, 2, 100);
        Score_SetTimes();
        std::string const sTune = Tune();
        Score_EmptyStaffs();
        ReadText(sTune);
        for (std::string const& sWrong : Score_CheckStructure())
            ADD_FAILURE() << lSeed << ": " << sWrong;
    }
}
} // namespace
} // namespace zarn

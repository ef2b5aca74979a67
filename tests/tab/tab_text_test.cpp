#include "tab/tab_text.h"

#include "core/text.h"
#include "midi/refresh_pitches.h"
#include "platform/files.h"
#include "render/geometry.h"
#include "support/score_text.h"
#include "support/scripted_process.h"
#include "tab/tuning.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace zarn::test
{
namespace
{
struct TabText : ::testing::Test
{
    ScriptedProcess process;
    std::string szPath = (std::filesystem::temp_directory_path() /
                          ("zarn-tab-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name())))
                             .string();
    bool bSaved = false;

    TabText()
    {
        SetWindowUnits({0, 0, 1200, 800});
        bTabShowing = true;
    }
    ~TabText() override
    {
        cbDiskLeft = -1;
        std::filesystem::remove(szPath);
    }

    /// Columns 20, 24, 28 and so on, each note on a string with a fret of its own; no search.
    static void Lay(char const* sScore)
    {
        Write(1, sScore);
        int32_t lStrX = 20;
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
        {
            pel->lStrX = lStrX;
            if (pel->sort != NOTE || (pel->lA & fChordMore) == 0)
                lStrX += 4;
        }
    }
    static void Finger(int32_t n, int32_t lString, int32_t lFret)
    {
        At(1, n)->lString = lString;
        At(1, n)->lFret = lFret;
    }
    std::string Saved()
    {
        HFILE const hFile = _lcreat(szPath);
        bSaved = Tab_SaveText(hFile);
        _lclose(hFile);
        std::ifstream file(szPath, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The lines without their ends; each must be 65 characters, CR and LF.
    std::vector<std::string> Lines()
    {
        std::string const s = Saved();
        EXPECT_EQ(s.size() % 67, 0u);
        std::vector<std::string> aLines;
        for (size_t n = 0; n + 67 <= s.size(); n += 67)
        {
            EXPECT_EQ(s.substr(n + 65, 2), "\r\n");
            aLines.push_back(s.substr(n, 65));
        }
        return aLines;
    }
};

/// What stands at the left of a line, the dashes or blanks behind it being told by their number alone.
std::string Head(std::string const& sLine, size_t cch) { return sLine.substr(0, cch); }
} // namespace

TEST_F(TabText, NamesAreTwoCharactersWhateverTheOctave)
{
    EXPECT_EQ(TabNoteName(60), "C-");
    EXPECT_EQ(TabNoteName(61), "C#");
    EXPECT_EQ(TabNoteName(76), "E-");
    EXPECT_EQ(TabNoteName(-1), "B-");
    EXPECT_EQ(TabNoteName(INT32_MIN), "E-");
    EXPECT_EQ(TabNoteName(INT32_MAX), "G-");
}

TEST_F(TabText, TheFirstBlockTellsTheOpenStrings)
{
    Lay("clef:1 n2/48");
    Finger(1, 1, 3);
    std::vector<std::string> const aLines = Lines();
    ASSERT_EQ(aLines.size(), 7u);
    char const* const aNames[] = {"E-", "B-", "G-", "D-", "A-", "E-", "  "};
    for (size_t n = 0; n < aLines.size(); ++n)
        EXPECT_EQ(aLines[n].substr(0, 2), aNames[n]);
    EXPECT_EQ(Head(aLines[0], 6), "E-3---") << "behind the names, two columns on from where the clef left it";
    EXPECT_EQ(aLines[1], "B-" + std::string(63, '-'));
    EXPECT_EQ(aLines[6], std::string(65, ' '));
}

TEST_F(TabText, WithANoteAtTheHeadTheNamesKeepTheirDistance)
{
    Lay("n2/48");
    Finger(0, 6, 5);
    EXPECT_EQ(Head(Lines()[5], 8), "E----5--");
}

TEST_F(TabText, NotesOfAChordShareAColumnAndTheNextStandsTwoOn)
{
    Lay("clef:1 [n2/48 n4/48 n6/48] n2/48");
    Finger(1, 4, 2);
    Finger(2, 3, 0);
    Finger(3, 2, 0);
    Finger(4, 4, 3);
    std::vector<std::string> const aLines = Lines();
    EXPECT_EQ(Head(aLines[1], 6), "B-0---");
    EXPECT_EQ(Head(aLines[2], 6), "G-0---");
    EXPECT_EQ(Head(aLines[3], 6), "D-2-3-");
}

TEST_F(TabText, AFretOfTwoFiguresMovesTheNextColumnOn)
{
    Lay("clef:1 n2/48 n4/48 n6/48");
    Finger(1, 1, 12);
    Finger(2, 1, 9);
    Finger(3, 1, 10);
    EXPECT_EQ(Head(Lines()[0], 12), "E-12-9-10---");
}

TEST_F(TabText, WhatCannotBePlayedIsAQuestion)
{
    Lay("clef:1 n-20/48 n2/48 n4/48");
    RefreshPitches(lHighestStaff);
    Finger(2, 1, 255);
    Finger(3, 1, 5);
    std::vector<std::string> const aLines = Lines();
    EXPECT_EQ(aLines[6], "  ? ?" + std::string(60, ' '));
    EXPECT_EQ(Head(aLines[0], 8), "E-----5-");
    EXPECT_EQ(At(1, 1)->fOverBar, fUnplayable);
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(TabText, ANoteWithoutAFingeringGetsOne)
{
    Lay("clef:1 n2/48");
    RefreshPitches(lHighestStaff);
    EXPECT_EQ(Head(Lines()[3], 4), "D-2-");
}

TEST_F(TabText, BarSignsAndTheirDotsStandOnTheirStrings)
{
    struct
    {
        char const* sSign;
        char const* sPlain;  ///< on strings 1, 2, 5 and 6
        char const* sDotted; ///< on strings 3 and 4
    } const aCase[] = {{"|", "|-3-----", "|-------"},
                       {"||", "||3-----", "||------"},
                       {"|:", "||--3---", "||.-----"},
                       {":|", "-||-3---", ".||-----"},
                       {"::", "-||--3--", ".||.----"}};
    for (auto const& c : aCase)
    {
        List_Clear(aStaffList[1]);
        Lay((std::string("clef:1 ") + c.sSign + " n2/48").c_str());
        Finger(2, 1, 3);
        std::vector<std::string> const aLines = Lines();
        ASSERT_EQ(aLines.size(), 7u) << c.sSign;
        EXPECT_EQ(aLines[0].substr(2, 8), c.sPlain) << c.sSign;
        EXPECT_EQ(aLines[2].substr(2, 8), c.sDotted) << c.sSign;
        EXPECT_EQ(aLines[3].substr(2, 8), c.sDotted) << c.sSign;
        EXPECT_EQ(aLines[4].substr(2, 2), std::string(c.sPlain).substr(0, 2)) << c.sSign;
    }
}

TEST_F(TabText, DotsThatBelongOnAStringThatIsntThereAreLeftOut)
{
    Lay("clef:1 :: n2/48 n4/48");
    Finger(2, 1, 3);
    Finger(3, 5, 7);
    lStrings = 3;
    std::vector<std::string> const aLines = Lines();
    ASSERT_EQ(aLines.size(), 4u);
    EXPECT_EQ(aLines[2].substr(2, 4), ".||.");
    EXPECT_EQ(aLines[3], std::string(65, ' ')) << "nor is the note on string 5";
    lStrings = 0;
    EXPECT_EQ(Saved(), std::string(65, ' ') + "\r\n");
}

TEST_F(TabText, ABlockEndsAtABarLineInItsLastThird)
{
    // The clef leaves the first note at column 2; a bar at 46 is the 23rd symbol.
    std::string sScore = "clef:1";
    for (int32_t n = 0; n < 22; ++n)
        sScore += " n2/48";
    Lay((sScore + " | n2/48").c_str());
    for (int32_t n = 1; n <= 24; ++n)
        if (n != 23)
            Finger(n, 1, 5);
    std::vector<std::string> aLines = Lines();
    ASSERT_EQ(aLines.size(), 14u);
    EXPECT_EQ(aLines[0].substr(44, 5), "5-|--");
    EXPECT_EQ(aLines[7], "--5" + std::string(62, '-')) << "without names: straight with the music";
    // One note fewer and the bar stands at 44.
    Element_Remove(At(1, 1));
    EXPECT_EQ(Lines().size(), 7u);
}

TEST_F(TabText, AFullBlockEndsWhereverItIs)
{
    std::string sScore = "clef:1";
    for (int32_t n = 0; n < 29; ++n)
        sScore += " n2/48";
    Lay(sScore.c_str());
    for (int32_t n = 1; n <= 29; ++n)
        Finger(n, 1, 5);
    std::vector<std::string> const aLines = Lines();
    ASSERT_EQ(aLines.size(), 7u) << "the 29th, at column 58, is the last of its block, and nothing is left for another";
    EXPECT_EQ(aLines[0].substr(56), "5-5------") << "columns are counted from the block's";
    Write(1, "n2/48");
    At(1, 30)->lStrX = 1000;
    Finger(30, 1, 7);
    ASSERT_EQ(Lines().size(), 14u);
    EXPECT_EQ(Head(Lines()[7], 5), "--7--");
}

TEST_F(TabText, ANewLineEndsABlockThatHoldsSomething)
{
    Lay("clef:1 nl n2/48 nl nl n4/48");
    Finger(2, 1, 1);
    Finger(5, 1, 2);
    std::vector<std::string> const aLines = Lines();
    ASSERT_EQ(aLines.size(), 14u);
    EXPECT_EQ(Head(aLines[0], 4), "E-1-");
    EXPECT_EQ(Head(aLines[7], 4), "--2-");
}

TEST_F(TabText, AWideMarkAtTheEndOfABlockStaysInTheLine)
{
    std::string sScore = "clef:1";
    for (int32_t n = 0; n < 18; ++n)
        sScore += " n2/48";
    Lay((sScore + " ::").c_str());
    for (int32_t n = 1; n <= 18; ++n)
        Finger(n, 1, 12);
    for (std::string const& sLine : Lines())
        EXPECT_EQ(sLine.size(), 65u);
}

TEST_F(TabText, WhatHasFallenBehindTheScoresColumnsOverprints)
{
    Lay("clef:1 n2/48 n4/48 n6/48");
    for (int32_t n = 1; n <= 3; ++n)
    {
        Finger(n, 1, n);
        At(1, n)->lStrX = 2 + n;
    }
    EXPECT_EQ(Head(Lines()[0], 6), "1-3---") << "a step from 3 to 5 for the second; the others stand where they come";
}

TEST_F(TabText, AScoreWithNothingButClefsWritesNoBlock)
{
    Lay("clef:1 key:2 clef:3");
    EXPECT_EQ(Saved(), "");
    EXPECT_TRUE(bSaved);
}

TEST_F(TabText, HiddenTablatureIsNotWritten)
{
    Lay("clef:1 n2/48");
    bTabShowing = false;
    EXPECT_EQ(Saved(), "");
    EXPECT_FALSE(bSaved);
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"To save tablature, first display the tablature\n(e.g. Action menu Show/Hide "
                                       "Tablature)\n\nNOT yet saved!"});
}

TEST_F(TabText, AFullDiskIsTold)
{
    Lay("clef:1 n2/48");
    Finger(1, 1, 3);
    cbDiskLeft = 100;
    Saved();
    EXPECT_FALSE(bSaved);
}
} // namespace zarn::test

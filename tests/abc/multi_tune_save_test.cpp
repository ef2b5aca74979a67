// A tune saved into a file: alone, among others, at the end; and what happens to the other bytes.
#include "abc/multi_tune_save.h"

#include "abc_write_fixture.h"
#include "core/messages.h"
#include "core/text.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zarn
{
namespace
{
namespace fs = std::filesystem;
using test::Write;

/// Where two texts first differ, in words; empty when they don't. They may be far too long to be shown.
std::string Difference(std::string const& sIs, std::string const& sShould)
{
    if (sIs == sShould)
        return {};
    auto const [itIs, itShould] = std::mismatch(sIs.begin(), sIs.end(), sShould.begin(), sShould.end());
    auto const lAt = static_cast<size_t>(itIs - sIs.begin());
    return Format("%zu bytes instead of %zu; at %zu: ", sIs.size(), sShould.size(), lAt) + sIs.substr(lAt, 40) +
           " instead of " + sShould.substr(lAt, 40);
}

class MultiTuneSave : public test::AbcWriteTest
{
protected:
    MultiTuneSave()
        : folder(fs::temp_directory_path() /
                 (std::string("zarn-") + testing::UnitTest::GetInstance()->current_test_info()->name() + "-" +
                  std::to_string(reinterpret_cast<uintptr_t>(this))))
    {
        fs::create_directories(folder);
        Write(1, "clef:1 time:4/4 n7/48 |");
        bScoreDirty = true;
    }
    ~MultiTuneSave() override
    {
        cbDiskLeft = -1;
        fs::remove_all(folder);
    }

    std::string Path() const { return (folder / "tunes.abc").string(); }
    void Fill(std::string const& sBytes) const { std::ofstream(Path(), std::ios::binary) << sBytes; }
    std::string Bytes() const
    {
        std::ifstream file(Path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The file once the tune X:(lNumber - 1) has been saved into these bytes.
    std::string Saved(std::string const& sBytes, int32_t lNumber)
    {
        Fill(sBytes);
        EXPECT_TRUE(Abc_SaveTune(Path(), "New", lNumber));
        return Bytes();
    }
    /// The text of the score as a tune of that number.
    static std::string NewTune(int32_t lTune) { return Format("X:%d", lTune) + "\nT:New\nL:1/8\nM:4/4\nK:C\nc2 |\n\n"; }
    /// A collection of numbered tunes, with lines that end as told, and one blank line or two behind each.
    static std::string Collection(int32_t cTunes, std::string const& sEnd, int32_t cBlankLines)
    {
        std::string s = "% a collection" + sEnd + sEnd;
        for (int32_t lTune = 1; lTune <= cTunes; ++lTune)
        {
            s += MakeTune(lTune, sEnd);
            for (int32_t n = 0; n < cBlankLines; ++n)
                s += sEnd;
        }
        return s;
    }
    static std::string MakeTune(int32_t lTune, std::string const& sEnd)
    {
        std::string s;
        for (std::string const& sLine :
             {Format("X:%d", lTune), Format("T:Tune %d", lTune), std::string("C:Trad."), std::string("K:G"),
              std::string("GABc dedB|") + std::string(static_cast<size_t>(lTune % 7), 'G') + "|", std::string("%end")})
            s += sLine + sEnd;
        return s;
    }

    fs::path folder;
};

TEST_F(MultiTuneSave, AFileOfOneTuneIsMadeAfresh)
{
    EXPECT_EQ(Saved("anything that stood there", -1), NewTune(0));
    EXPECT_EQ(Saved("", -8), NewTune(7));
    EXPECT_EQ(Saved("", -2147483647 - 1), NewTune(2147483647));
    fs::remove(Path());
    EXPECT_TRUE(Abc_SaveTune(Path(), "New", -4));
    EXPECT_EQ(Bytes(), NewTune(3));
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(MultiTuneSave, ATuneTakesItsOwnPlace)
{
    EXPECT_EQ(Saved("X:1\r\nK:C\r\nA|\r\n\r\nX:2\r\nK:C\r\nB|\r\n\r\nX:3\r\nK:C\r\nc|\r\n", 3),
              "X:1\r\nK:C\r\nA|\r\n\r\n" + NewTune(2) + "X:3\r\nK:C\r\nc|\r\n");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(MultiTuneSave, TheLastTuneNeedsNoBlankLineBehindIt)
{
    EXPECT_EQ(Saved("X:1\r\nK:C\r\nA|\r\n\r\nX:2\r\nK:C\r\nB|\r\n", 3), "X:1\r\nK:C\r\nA|\r\n\r\n" + NewTune(2));
    EXPECT_EQ(Saved("X:1\nX:2", 3), "X:1\n" + NewTune(2));
}

TEST_F(MultiTuneSave, ANewNumberGoesToTheEndBehindTwoCrLf)
{
    EXPECT_EQ(Saved("X:1\nK:C\nA|\n", 3), "X:1\nK:C\nA|\n\r\n\r\n" + NewTune(2));
    EXPECT_EQ(Saved("", 3), "\r\n\r\n" + NewTune(2));
}

TEST_F(MultiTuneSave, ABlankBehindTheColonHidesANumber)
{
    EXPECT_EQ(Saved("X: 5\r\nK:C\r\nA|\r\n", 6), "X: 5\r\nK:C\r\nA|\r\n\r\n\r\n" + NewTune(5));
    EXPECT_EQ(Saved("X:\r\nK:C\r\n", 1), "X:\r\nK:C\r\n\r\n\r\n" + NewTune(0)) << "no digits are no 0";
}

TEST_F(MultiTuneSave, OnlyTheWholeNumberAtTheStartOfALineIsIt)
{
    std::string const sOthers = "X:12\r\nX:2147483648\r\n X:1\r\n%X:1\r\n";
    EXPECT_EQ(Saved(sOthers + "X:1 old\r\nA|\r\n", 2), sOthers + NewTune(1));
    EXPECT_EQ(Saved(std::string(500, '%') + "X:1\nX:3\nA|\nX:1\nB|\n", 2),
              std::string(500, '%') + "X:1\nX:3\nA|\n" + NewTune(1));
}

TEST_F(MultiTuneSave, OfTwoTunesWithOneNumberTheFirstIsReplaced)
{
    EXPECT_EQ(Saved("X:1\nA|\n\n\nX:1\nB|\n", 2), NewTune(1) + "X:1\nB|\n");
}

TEST_F(MultiTuneSave, BlankLinesRightBehindTheNumberBelongToTheTune)
{
    EXPECT_EQ(Saved("X:1\r\n\r\n\r\nT:Old\r\nK:C\r\nA|\r\n\r\nrest", 2), NewTune(1) + "rest");
}

TEST_F(MultiTuneSave, ASingleBlankLineOfAnLfFileEndsATuneWhereTheNextNumberStands)
{
    EXPECT_EQ(Saved("X:1\nA|\n\nB|\n\nX:2\nc|\n", 2), NewTune(1) + "X:2\nc|\n");
    EXPECT_EQ(Saved("X:1\nX:2\nc|\n", 2), NewTune(1) + "X:2\nc|\n");
    EXPECT_EQ(Saved("X:1\nA|\n\n\nrest\n\nX:2\nc|\n", 2), NewTune(1) + "rest\n\nX:2\nc|\n");
}

TEST_F(MultiTuneSave, EveryOtherByteOfACollectionStaysWhateverItsLineEnds)
{
    constexpr int32_t cTunes = 400;
    for (std::string const sEnd : {"\n", "\r\n", "\r"})
        for (int32_t const cBlankLines : {0, 1, 2})
        {
            std::string const sOld = Collection(cTunes, sEnd, cBlankLines);
            for (int32_t const lTune : {1, 2, 200, cTunes})
            {
                size_t const lStart = sOld.find(Format("X:%d", lTune) + sEnd);
                size_t lNext = sOld.find(Format("X:%d", lTune + 1) + sEnd);
                // A second blank line lies between the tunes where the first one ended this one.
                bool const bFirstEnds = sEnd == "\r\n" && cBlankLines == 2;
                lNext = lNext == sOld.npos ? sOld.size() : lNext;
                if (bFirstEnds)
                    lNext -= sEnd.size();
                std::string sNew = sOld;
                sNew.replace(lStart, lNext - lStart, NewTune(lTune));
                EXPECT_EQ(Difference(Saved(sOld, lTune + 1), sNew), "")
                    << "X:" << lTune << ", " << cBlankLines << " blank lines, line end of " << sEnd.size() << " bytes";
            }
        }
}

TEST_F(MultiTuneSave, ASecondSaveChangesNothing)
{
    std::string const sOnce = Saved(Collection(5, "\n", 1), 4);
    EXPECT_EQ(Saved(sOnce, 4), sOnce);
    std::string const sTwice = Saved(sOnce, 9);
    EXPECT_EQ(Saved(sTwice, 9), sTwice) << "appended, then found again";
}

TEST_F(MultiTuneSave, LongLinesAndAnyBytesAreCopied)
{
    std::string sOld;
    for (int32_t n = 0; n < 5000; ++n)
        sOld += static_cast<char>(n % 256 == 'X' ? 0 : n % 256);
    sOld += "\r\n" + std::string(1700, 'z') + "\n";
    std::string const sRest = "X:2\r" + std::string(1000, '\n') + std::string(3000, '\xFF');
    EXPECT_EQ(Difference(Saved(sOld + "X:7\nA|\n" + sRest, 8), sOld + NewTune(7) + sRest), "");
}

TEST_F(MultiTuneSave, AReplacedTuneReadsBackAndItsNeighboursToo)
{
    Fill(Collection(3, "\n", 1));
    ASSERT_TRUE(Abc_SaveTune(Path(), "New", 3));
    std::string const sAll = Bytes();
    for (int32_t lTune = 1; lTune <= 3; ++lTune)
    {
        Score_EmptyStaffs();
        EXPECT_EQ(ReadText(sAll, lTune), lTune + 1);
        EXPECT_EQ(sTitle, lTune == 2 ? "New" : Format("Tune %d", lTune));
    }
}

TEST_F(MultiTuneSave, NumbersThatAreNotTrustedSendTheTuneToTheEnd)
{
    EXPECT_EQ(Saved("X:1\nA|\nX:1\nB|", 0), "X:1\nA|\nX:1\nB|\r\n\r\n" + NewTune(0));
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Cannot understand the index numbers in the file.\r\n"
                                                                "Appending tune to save to end of file."});
}

TEST_F(MultiTuneSave, AFileThatIsGoneIsTold)
{
    EXPECT_FALSE(Abc_SaveTune(Path(), "New", 5));
    EXPECT_EQ(process.user.Messages().back(),
              "File did not open for reading (to preserve other tunes).\r\n\r\n   Music NOT saved!");
    Serious_Rearm();
    EXPECT_FALSE(Abc_SaveTune(Path(), "New", 0));
    EXPECT_EQ(process.user.Messages().back(), "File did not open.  Music NOT saved!");
    Serious_Rearm();
    EXPECT_FALSE(Abc_SaveTune((folder / "no" / "folder.abc").string(), "New", -1));
    EXPECT_EQ(process.user.Messages().back(),
              "File failed to save (catastrophic error? out of space? read only file?)");
    EXPECT_TRUE(bScoreDirty) << "nothing was saved";
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(MultiTuneSave, AFullDiskLeavesTheOldFileWhole)
{
    std::string const sOld = Collection(20, "\r\n", 1);
    for (int32_t const lNumber : {0, -1, 11, 99})
    {
        std::string const sNew = Saved(sOld, lNumber);
        auto const cbNew = static_cast<int64_t>(sNew.size());
        for (int64_t cbLeft = 0; cbLeft < cbNew; cbLeft += 1 + cbNew / 97)
        {
            Fill(sOld);
            Serious_Rearm();
            bScoreDirty = true;
            cbDiskLeft = cbLeft;
            EXPECT_FALSE(Abc_SaveTune(Path(), "New", lNumber)) << cbLeft;
            cbDiskLeft = -1;
            EXPECT_EQ(Difference(Bytes(), sOld), "") << cbLeft;
            EXPECT_EQ(process.user.Messages().back(),
                      "File failed to save (catastrophic error? out of space? read only file?)");
            EXPECT_TRUE(bScoreDirty);
        }
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "nothing is left beside it";
}

TEST_F(MultiTuneSave, ALinkStaysAndPermissionsAreKept)
{
    fs::path const real = folder / "real.abc";
    std::ofstream(real, std::ios::binary) << "X:1\nA|\nX:2\nB|\n";
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink(real, Path());
    EXPECT_TRUE(Abc_SaveTune(Path(), "New", 2));
    EXPECT_TRUE(fs::is_symlink(Path()));
    EXPECT_EQ(Bytes(), NewTune(1) + "X:2\nB|\n");
    EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(MultiTuneSave, TimesAreBroughtUpToDateFirst)
{
    Write(1, "n0/48");
    StaffLast(1)->lTime = 99;
    bTimesValid = true;
    Saved("", -1);
    EXPECT_EQ(StaffLast(1)->lTime, 99) << "they are trusted";
    bTimesValid = false;
    Saved("", -1);
    EXPECT_EQ(StaffLast(1)->lTime, 48);
}
} // namespace
} // namespace zarn

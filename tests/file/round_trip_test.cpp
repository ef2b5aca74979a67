// A score that was saved and opened again is the score that was saved, to the byte: every sample, and every file of the
// folder that the environment names in ZARN_DATA.
#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
#include "core/score_check.h"
#include "edit/new_score.h"
#include "file/native.h"
#include "layout/adjust.h"
#include "render/geometry.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace zarn
{
namespace
{
namespace fs = std::filesystem;
constexpr int32_t lTrebleClef = 1;

class RoundTrip : public testing::Test
{
protected:
    using Checker = std::vector<std::string> (*)();

    RoundTrip() { bAbcListing = false; }
    ~RoundTrip() override { bAbcListing = true; }

    static std::string Written()
    {
        std::string s;
        HFILE const hFile = File_IntoString(&s);
        EXPECT_EQ(Native_Write(hFile), 1);
        _lclose(hFile);
        return s;
    }

    static bool ReadScore(std::string const& sBytes)
    {
        HFILE const hFile = File_FromBytes(sBytes);
        bool const bRead = Native_Read(hFile, true) == 1;
        _lclose(hFile);
        return bRead;
    }

    /// Opening orders chords that were never closed, and shows the staffs from the first to the last that holds music.
    static bool OpensAsItStands()
    {
        int32_t lLast = lHighestStaff;
        while (lLast > 0 && !StaffFirst(lLast))
            --lLast;
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
            if (IsVisible(lStaff) != (lStaff <= lLast))
                return false;
        return Score_Check().empty();
    }

    void ExpectSame(std::string const& sWhat, Checker pCheck)
    {
        // What stands on no staff is passed over by the layout, and gets a place as all else does when it is read.
        for (Element* pel = StaffFirst(0); pel; pel = Next(pel))
            Draw_FoldElement(pel, lTrebleClef);
        bool const bAsItStands = OpensAsItStands();
        std::string const sFirst = Written();
        ASSERT_TRUE(ReadScore(sFirst)) << sWhat;
        std::string const sSecond = Written();
        if (bAsItStands)
        {
            EXPECT_TRUE(sSecond == sFirst) << sWhat << ": written, read and written again gives other bytes";
            ++cAsTheyStood;
        }
        ASSERT_TRUE(ReadScore(sSecond)) << sWhat;
        EXPECT_TRUE(Written() == sSecond) << sWhat << ": opening a score twice does more than opening it once";
        for (std::string const& sWrong : pCheck())
            ADD_FAILURE() << sWhat << ": " << sWrong;
        ++cScores;
    }

    /// The score in hand behind each adjust. As it came it isn't laid out, which opening a score makes up for.
    void ExpectAllSame(std::string const& sWhat, Checker pCheck)
    {
        MiniAdjust();
        ExpectSame(sWhat + " behind a mini adjust", pCheck);
        FullAdjust();
        ExpectSame(sWhat + " behind a full adjust", pCheck);
        Serious_Rearm();
    }

    void TryTunes(fs::path const& path, Checker pCheck)
    {
        HFILE const hFile = _lopen(path.string());
        ASSERT_NE(hFile, nullptr) << path;
        int32_t lLast = -1;
        for (AbcTuneRow const& row : Abc_ListTunes(hFile))
        {
            if (row.lNumber == lLast)
                continue; // a tune with a second title
            lLast = row.lNumber;
            Score_New();
            ReadAbcNumbered(hFile, row.lNumber, &sTitle);
            ExpectAllSame(path.filename().string() + " X:" + std::to_string(row.lNumber), pCheck);
        }
        _lclose(hFile);
    }

    void TryScore(fs::path const& path, Checker pCheck)
    {
        HFILE const hFile = _lopen(path.string());
        ASSERT_NE(hFile, nullptr) << path;
        EXPECT_EQ(Native_Read(hFile, true), 1) << path;
        _lclose(hFile);
        ExpectAllSame(path.filename().string(), pCheck);
    }

    void TryFolder(fs::path const& folder, Checker pCheck)
    {
        for (auto const& entry : fs::recursive_directory_iterator(folder))
            if (entry.path().extension() == ".abc")
                TryTunes(entry.path(), pCheck);
            else if (entry.path().extension() == ".zrn")
                TryScore(entry.path(), pCheck);
    }

    test::DrawingProcess process;
    std::string sTitle;
    int32_t cScores = 0;
    int32_t cAsTheyStood = 0;
};
} // namespace

TEST_F(RoundTrip, EverySampleIsTheSameScoreWhenItIsOpenedAgain)
{
    TryFolder(ZARN_SAMPLES_DIR, Score_Check);
    EXPECT_GT(cScores, 2 * 7);
    EXPECT_EQ(cAsTheyStood, cScores);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{});
}

TEST_F(RoundTrip, EveryFileOfTheNamedFolderIsTheSameScoreWhenItIsOpenedAgain)
{
    char const* const sFolder = std::getenv("ZARN_DATA");
    if (!sFolder)
        GTEST_SKIP() << "ZARN_DATA names no folder";
    ASSERT_TRUE(fs::is_directory(sFolder)) << sFolder;
    // Other people's tunes open chords and never close them, so only the structure holds for all.
    TryFolder(sFolder, Score_CheckStructure);
    EXPECT_GT(cAsTheyStood, 0);
    RecordProperty("scores", cScores);
    RecordProperty("as_they_stood", cAsTheyStood);
}
} // namespace zarn

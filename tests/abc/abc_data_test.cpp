// Every tune of every ABC file of the shared music, and of our own samples: read, laid out, and well formed.
#include "abc_fixture.h"
#include "core/score_check.h"
#include "layout/adjust.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zarn
{
namespace
{
class AbcData : public test::AbcTest
{
protected:
    static std::string Bytes(std::filesystem::path const& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    using Checker = std::vector<std::string> (*)();

    /// Reads each tune of a file; gives how many there were.
    int32_t ReadAll(std::filesystem::path const& path, Checker pCheck)
    {
        std::string const sText = Bytes(path);
        HFILE const hFile = File_FromBytes(sText);
        std::vector<AbcTuneRow> aRows = Abc_ListTunes(hFile);
        if (aRows.empty())
            aRows.push_back({});
        int32_t lLast = -1;
        int32_t cTunes = 0;
        for (AbcTuneRow const& row : aRows)
        {
            if (row.lNumber == lLast)
                continue;
            lLast = row.lNumber;
            ++cTunes;
            Score_EmptyStaffs();
            ReadAbcNumbered(hFile, row.lNumber, &sTitle);
            MiniAdjust();
            for (std::string const& sWrong : pCheck())
                ADD_FAILURE() << path.filename() << " X:" << row.lNumber << ": " << sWrong;
        }
        _lclose(hFile);
        return cTunes;
    }

    int32_t ReadFolder(std::filesystem::path const& folder, Checker pCheck)
    {
        int32_t cTunes = 0;
        for (auto const& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().extension() == ".abc")
                cTunes += ReadAll(entry.path(), pCheck);
        return cTunes;
    }
};

TEST_F(AbcData, EveryTuneOfTheSharedMusicIsReadAndWellFormed)
{
    std::filesystem::path const folder = std::filesystem::path(ZARN_SHARED_DATA_DIR) / "abc";
    if (!std::filesystem::is_directory(folder))
        GTEST_SKIP() << "no shared music here";
    // Some of them open chords and never close them, so only the structure holds for all.
    EXPECT_GT(ReadFolder(folder, Score_CheckStructure), 1000);
}

TEST_F(AbcData, EveryTuneOfTheSamplesIsReadWithoutAComplaint)
{
    EXPECT_GT(ReadFolder(ZARN_SAMPLES_DIR, Score_Check), 5);
    EXPECT_EQ(Complaints(), "");
    EXPECT_TRUE(process.user.shown.empty());
}
} // namespace
} // namespace zarn

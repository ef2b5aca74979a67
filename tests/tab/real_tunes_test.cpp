// The two searches on real tunes: our own samples, and all tunes in and below a folder that the environment names in
// ZARN_DATA.
#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
#include "midi/refresh_pitches.h"
#include "platform/files.h"
#include "tab/tunes_by_chance.h"
#include "tab/weights.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <utility>

namespace zarn
{
namespace
{
class TabTunes : public test::TabFixture
{
protected:
    /// Every staff of every tune of a file, by the weight sets in turn; all of them when bThorough.
    void CompareFile(std::filesystem::path const& path, bool bThorough)
    {
        HFILE const hFile = _lopen(path.string());
        int32_t lLast = -1;
        for (AbcTuneRow const& row : Abc_ListTunes(hFile))
        {
            if (row.lNumber == std::exchange(lLast, row.lNumber))
                continue;
            Score_EmptyStaffs();
            std::string sTitle;
            ReadAbcNumbered(hFile, row.lNumber, &sTitle);
            RefreshPitches(lHighestStaff);
            for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
                CompareStaff(lStaff, bThorough, path.filename().string() + " X:" + std::to_string(row.lNumber));
            Serious_Rearm();
        }
        _lclose(hFile);
    }

    void CompareStaff(int32_t lStaff, bool bThorough, std::string const& sTune)
    {
        Element* const pelFirst = NextNote(StaffFirst(lStaff));
        if (!pelFirst)
            return;
        std::swap(aStaffList[1], aStaffList[lStaff]);
        for (int32_t nSet = 0; nSet < (bThorough ? test::cWeightSets : 1); ++nSet)
        {
            Fingering_LoadWeights([](FingeringWeight const&) {});
            test::SetWeights(bThorough ? nSet : cStaffs % test::cWeightSets);
            EXPECT_EQ(test::Difference(process.user, pelFirst, StaffLast(1)), "") << sTune << " staff " << lStaff;
        }
        std::swap(aStaffList[1], aStaffList[lStaff]);
        ++cStaffs;
        for (Element const* pel = pelFirst; pel; pel = Next(pel))
            cNotes += pel->sort == NOTE;
    }

    int32_t cStaffs = 0;
    int32_t cNotes = 0;
};

TEST_F(TabTunes, SamplesAreFingeredAsByThePlainSearch)
{
    bAbcListing = false;
    for (char const* sTune : {"kesh.abc", "skye-boat-song.abc"})
        CompareFile(std::filesystem::path(ZARN_SAMPLES_DIR) / sTune, false);
    EXPECT_GT(cStaffs, 0);
}

TEST_F(TabTunes, AFolderIsFingeredAsByThePlainSearch)
{
    char const* const szFolder = std::getenv("ZARN_DATA");
    if (!szFolder)
        GTEST_SKIP() << "ZARN_DATA names no folder";
    bAbcListing = false;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(szFolder))
        if (entry.path().extension() == ".abc")
            CompareFile(entry.path(), true);
    EXPECT_GT(cStaffs, 0);
    std::cout << cStaffs << " staffs, " << cNotes << " notes, " << test::cWeightSets << " sets of weights\n";
}
} // namespace
} // namespace zarn

// The layout of real tunes, where the folder of them is present, against the plain rules.
#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
#include "layout/adjust.h"
#include "layout/plain_layout.h"
#include "platform/files.h"
#include "support/layout_fixture.h"

#include <filesystem>

namespace zarn
{
namespace
{
class RealTunes : public test::LayoutFixture
{
};

TEST_F(RealTunes, AreLaidOutByThePlainRules)
{
    std::filesystem::path const folder = std::filesystem::path(ZARN_SHARED_DATA_DIR) / "abc";
    if (!std::filesystem::is_directory(folder))
        GTEST_SKIP() << "no folder of tunes beside the sources";
    constexpr size_t cTunesOfFile = 10;
    bAbcListing = false;
    int32_t cTunes = 0;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(folder))
    {
        if (entry.path().extension() != ".abc")
            continue;
        HFILE const hFile = _lopen(entry.path().string());
        std::vector<AbcTuneRow> const aRows = Abc_ListTunes(hFile);
        for (size_t n = 0; n < std::min(aRows.size(), cTunesOfFile); ++n)
        {
            Score_EmptyStaffs();
            std::string sTitle;
            ReadAbcNumbered(hFile, aRows[n].lNumber, &sTitle);
            test::PlainLayout mini;
            mini.MiniAdjust();
            MiniAdjust();
            test::PlainLayout full;
            full.FullAdjust();
            for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
                ASSERT_EQ(test::Told(lStaff) == mini.Told(lStaff), true) << entry.path() << " tune " << n;
            FullAdjust();
            for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
                ASSERT_EQ(test::Told(lStaff) == full.Told(lStaff), true) << entry.path() << " tune " << n;
            Serious_Rearm();
            ++cTunes;
        }
        _lclose(hFile);
    }
    EXPECT_GT(cTunes, 0);
}
} // namespace
} // namespace zarn

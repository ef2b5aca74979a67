// Files: buffered, and replaced in one step or not at all.
#include "platform/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

using namespace zarn;
namespace fs = std::filesystem;

namespace
{
class Files : public testing::Test
{
protected:
    void SetUp() override
    {
        auto const* pInfo = testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::path(testing::TempDir()) / (std::string("zarn-files-") + pInfo->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
        sPath = (folder / "tune.zrn").string();
    }
    void TearDown() override
    {
        cbDiskLeft = -1;
        fs::remove_all(folder);
    }

    void Put(std::string const& sContent) const { std::ofstream(sPath, std::ios::binary) << sContent; }
    std::string Got() const
    {
        std::ostringstream s;
        s << std::ifstream(sPath, std::ios::binary).rdbuf();
        return s.str();
    }
    std::ptrdiff_t FilesInFolder() const
    {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator{});
    }

    fs::path folder;
    std::string sPath;
};

std::string Long(size_t cb)
{
    std::string s(cb, ' ');
    for (size_t i = 0; i < cb; ++i)
        s[i] = static_cast<char>(i * 7 + i / 251);
    return s;
}
} // namespace

TEST_F(Files, ANewFileIsThereOnlyOnceItIsClosed)
{
    HFILE const hFile = _lcreat(sPath);
    ASSERT_TRUE(hFile);
    EXPECT_EQ(_lwrite(hFile, "reel", 4), 4);
    EXPECT_FALSE(fs::exists(sPath));
    EXPECT_TRUE(_lclose(hFile));
    EXPECT_EQ(Got(), "reel");
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(Files, SavingOnAFullDiskLeavesTheOldFileAndNothingBesideIt)
{
    Put("the old tune");
    cbDiskLeft = 5;
    HFILE const hFile = _lcreat(sPath);
    EXPECT_EQ(_lwrite(hFile, "a new tune", 10), 5);
    EXPECT_EQ(_lwrite(hFile, "more", 4), -1);
    EXPECT_FALSE(_lclose(hFile));
    EXPECT_EQ(Got(), "the old tune");
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(Files, ARealDiskThatIsFullFailsAtCloseAtTheLatest)
{
    HFILE const hFile = _lcreat("/dev/full");
    if (!hFile)
        GTEST_SKIP() << "no such device here";
    EXPECT_EQ(_lwrite(hFile, "tune", 4), 4);
    EXPECT_FALSE(_lclose(hFile));
}

TEST_F(Files, ALongFileComesBackAsItWentOut)
{
    std::string const sContent = Long(300000);
    HFILE hFile = _lcreat(sPath);
    for (size_t i = 0; i < sContent.size(); i += 12345)
    {
        auto const cb = static_cast<int32_t>(std::min<size_t>(12345, sContent.size() - i));
        ASSERT_EQ(_lwrite(hFile, sContent.data() + i, cb), cb);
    }
    ASSERT_TRUE(_lclose(hFile));
    EXPECT_EQ(Got(), sContent);

    hFile = _lopen(sPath);
    ASSERT_TRUE(hFile);
    std::string sRead(sContent.size() + 10, '\0');
    EXPECT_EQ(_lread(hFile, sRead.data(), 41), 41);
    EXPECT_EQ(_lread(hFile, sRead.data() + 41, static_cast<int32_t>(sRead.size()) - 41), 300000 - 41);
    sRead.resize(sContent.size());
    EXPECT_EQ(sRead, sContent);
    EXPECT_EQ(_lread(hFile, sRead.data(), 1), 0);
    EXPECT_TRUE(_lclose(hFile));
}

TEST_F(Files, SeekingGoesFromTheStartThePlaceAndTheEnd)
{
    Put("0123456789");
    HFILE const hFile = _lopen(sPath);
    char c = 0;
    EXPECT_EQ(_llseek(hFile, 4, FILE_BEGIN), 4);
    EXPECT_EQ(_lread(hFile, &c, 1), 1);
    EXPECT_EQ(c, '4');
    EXPECT_EQ(_llseek(hFile, 2, FILE_CURRENT), 7);
    EXPECT_EQ(_lread(hFile, &c, 1), 1);
    EXPECT_EQ(c, '7');
    EXPECT_EQ(_llseek(hFile, -1, FILE_END), 9);
    EXPECT_EQ(_lread(hFile, &c, 1), 1);
    EXPECT_EQ(c, '9');
    EXPECT_EQ(_llseek(hFile, -1, FILE_BEGIN), -1);
    EXPECT_EQ(_llseek(hFile, 0, 3), -1);
    _lclose(hFile);
}

TEST_F(Files, AWriterCanGoBackAndPatch)
{
    HFILE const hFile = _lcreat(sPath);
    _lwrite(hFile, "MTrk....end", 11);
    EXPECT_EQ(_llseek(hFile, 4, FILE_BEGIN), 4);
    EXPECT_EQ(_lwrite(hFile, "0007", 4), 4);
    EXPECT_EQ(_llseek(hFile, 0, FILE_END), 11);
    EXPECT_EQ(_lwrite(hFile, "!", 1), 1);
    EXPECT_TRUE(_lclose(hFile));
    EXPECT_EQ(Got(), "MTrk0007end!");
}

TEST_F(Files, WhatCannotBeOpenedGivesNull)
{
    EXPECT_FALSE(_lopen(sPath));
    EXPECT_FALSE(_lopen(folder.string()));
    EXPECT_FALSE(_lopen(""));
    EXPECT_FALSE(_lcreat(folder.string()));
    EXPECT_FALSE(_lcreat((folder / "no" / "such.zrn").string()));
    EXPECT_FALSE(_lcreat(""));
}

TEST_F(Files, BadHandlesAndCountsFailWithoutHarm)
{
    char c = 0;
    EXPECT_EQ(_lread(nullptr, &c, 1), -1);
    EXPECT_EQ(_lwrite(nullptr, &c, 1), -1);
    EXPECT_EQ(_llseek(nullptr, 0, FILE_BEGIN), -1);
    EXPECT_FALSE(_lclose(nullptr));
    HFILE const hFile = _lcreat(sPath);
    EXPECT_EQ(_lwrite(hFile, &c, -3), -1);
    EXPECT_EQ(_lread(hFile, &c, 1), -1);
    EXPECT_EQ(_lwrite(hFile, "jig", 3), 3);
    EXPECT_TRUE(_lclose(hFile)) << "a negative count is the caller's slip, not the disk's";
    EXPECT_EQ(Got(), "jig");
}

TEST_F(Files, ReplacingKeepsThePermissionsAndALinkKeepsPointing)
{
    Put("old");
    fs::permissions(sPath, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::path const link = folder / "link.zrn";
    fs::create_symlink(sPath, link);
    HFILE const hFile = _lcreat(link.string());
    _lwrite(hFile, "new", 3);
    EXPECT_TRUE(_lclose(hFile));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Got(), "new");
    EXPECT_EQ(fs::status(sPath).permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(Files, MovingNeverTakesThePlaceOfAFile)
{
    Put("one");
    std::string const sOther = (folder / "other").string();
    EXPECT_TRUE(MoveFileA(sPath, sOther));
    EXPECT_FALSE(fs::exists(sPath));
    Put("two");
    EXPECT_FALSE(MoveFileA(sPath, sOther));
    EXPECT_EQ(Got(), "two");
    EXPECT_TRUE(DeleteFileA(sOther));
    EXPECT_FALSE(DeleteFileA(sOther));
}

TEST_F(Files, TemporaryNamesAreNewFilesOfTheirOwn)
{
    std::string const s1 = GetTempFileNameA(folder.string(), "ZRN");
    std::string const s2 = GetTempFileNameA(folder.string(), "ZRN");
    EXPECT_NE(s1, s2);
    EXPECT_TRUE(fs::exists(s1));
    EXPECT_TRUE(fs::path(s2).filename().string().starts_with("ZRN"));
    EXPECT_EQ(GetTempFileNameA((folder / "nowhere").string(), "ZRN"), "");
}

TEST_F(Files, BytesInMemoryReadAndWriteLikeAFile)
{
    std::string sOut = "left over";
    HFILE hFile = File_IntoString(&sOut);
    _lwrite(hFile, "abcdef", 6);
    _llseek(hFile, 2, FILE_BEGIN);
    _lwrite(hFile, "CD", 2);
    EXPECT_TRUE(_lclose(hFile));
    EXPECT_EQ(sOut, "abCDef");

    hFile = File_FromBytes(sOut);
    char ac[8] = {};
    EXPECT_EQ(_llseek(hFile, 3, FILE_BEGIN), 3);
    EXPECT_EQ(_lread(hFile, ac, 8), 3);
    EXPECT_STREQ(ac, "Def");
    EXPECT_EQ(_lwrite(hFile, "x", 1), -1);
    EXPECT_TRUE(_lclose(hFile));
}

TEST_F(Files, WhatComesNextIsLookedAtWithoutACopy)
{
    std::string sBytes;
    for (int32_t i = 0; i < 200'000; ++i)
        sBytes += static_cast<char>(i % 251);
    std::string const szPath = (folder / "long.txt").string();
    ASSERT_EQ(File_WriteWhole(szPath, sBytes), FileWritten::WHOLE);
    for (HFILE const hFile : {_lopen(szPath), File_FromBytes(sBytes)})
    {
        std::string sRead;
        for (std::string_view sAhead; !(sAhead = File_Ahead(hFile)).empty();)
        {
            size_t const cb = sRead.size() % 7 == 0 ? sAhead.size() : std::min<size_t>(sAhead.size(), 1009);
            sRead += sAhead.substr(0, cb);
            File_PassOver(hFile, cb);
        }
        EXPECT_TRUE(sRead == sBytes);
        EXPECT_EQ(_llseek(hFile, 150'000, FILE_BEGIN), 150'000);
        EXPECT_EQ(File_Ahead(hFile).substr(0, 10), std::string_view(sBytes).substr(150'000, 10));
        File_PassOver(hFile, 3);
        char ac[2] = {};
        EXPECT_EQ(_lread(hFile, ac, 2), 2);
        EXPECT_EQ(std::string(ac, 2), sBytes.substr(150'003, 2));
        EXPECT_EQ(_llseek(hFile, 0, FILE_CURRENT), 150'005);
        EXPECT_TRUE(_lclose(hFile));
    }
}

TEST_F(Files, NothingComesNextInAFileThatIsWrittenOrIsntThere)
{
    std::string sOut;
    HFILE const hFile = File_IntoString(&sOut);
    _lwrite(hFile, "reel", 4);
    _llseek(hFile, 0, FILE_BEGIN);
    EXPECT_EQ(File_Ahead(hFile), "");
    File_PassOver(hFile, 2);
    EXPECT_TRUE(_lclose(hFile));
    EXPECT_EQ(sOut, "reel");
    EXPECT_EQ(File_Ahead(nullptr), "");
    File_PassOver(nullptr, 2);
}

TEST_F(Files, AStringFailsLikeADiskWhenItIsFull)
{
    std::string sOut;
    cbDiskLeft = 3;
    HFILE const hFile = File_IntoString(&sOut);
    EXPECT_EQ(_lwrite(hFile, "reel", 4), 3);
    EXPECT_FALSE(_lclose(hFile));
    EXPECT_EQ(sOut, "ree");
}

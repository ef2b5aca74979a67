// Saves that the system refuses: a disk that is full, files and folders that may not be written. Each runs in a process
// of its own, as an ordinary user: the superuser is refused nothing.
#include "platform/files.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zarn
{
namespace
{
namespace fs = std::filesystem;

constexpr int lGood = 0;
constexpr int lWrong = 1;
constexpr int lNotAllowed = 77;

/// What the process gives that runs it.
int InProcess(std::function<int()> const& run)
{
    pid_t const lChild = ::fork();
    if (lChild == 0)
        ::_exit(run());
    int lStatus = 0;
    ::waitpid(lChild, &lStatus, 0);
    return WIFEXITED(lStatus) ? WEXITSTATUS(lStatus) : lWrong;
}

bool BecomeOrdinary()
{
    constexpr uid_t lNobody = 65534;
    return ::geteuid() != 0 || (::setgid(lNobody) == 0 && ::setuid(lNobody) == 0);
}

std::string Contents(fs::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Put(fs::path const& path, std::string const& s) { std::ofstream(path, std::ios::binary) << s; }

std::ptrdiff_t FilesIn(fs::path const& folder)
{
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator{});
}

struct RefusedFiles : testing::Test
{
    RefusedFiles() : folder(fs::temp_directory_path() / ("zarn-refused-" + std::to_string(::getpid())))
    {
        fs::remove_all(folder);
        fs::create_directories(folder);
        fs::permissions(folder, fs::perms::all);
        path = folder / "tune.zrn";
        Put(path, "old");
    }
    ~RefusedFiles() override
    {
        fs::permissions(folder, fs::perms::all);
        fs::remove_all(folder);
    }
    fs::path folder;
    fs::path path;
};
} // namespace

TEST_F(RefusedFiles, ADiskThatIsFullLeavesTheOldFileAndNothingBesideIt)
{
    int const lResult = InProcess(
        [this]
        {
            int const lOwnUser = ::geteuid() == 0 ? 0 : CLONE_NEWUSER;
            if (::unshare(CLONE_NEWNS | lOwnUser) != 0 ||
                ::mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) != 0 ||
                ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=128k") != 0)
                return lNotAllowed;
            Put(path, "old");
            std::string const sLong(4 * 1024 * 1024, 'n');
            HFILE const hFile = _lcreat(path.string());
            if (!hFile)
                return lWrong;
            _lwrite(hFile, sLong.data(), static_cast<int32_t>(sLong.size()));
            bool const bPlaced = _lclose(hFile);
            return !bPlaced && Contents(path) == "old" && FilesIn(folder) == 1 ? lGood : lWrong;
        });
    if (lResult == lNotAllowed)
        GTEST_SKIP() << "no disk can be mounted here";
    EXPECT_EQ(lResult, lGood);
}

TEST_F(RefusedFiles, AReadOnlyFileIsNotReplaced)
{
    fs::permissions(path, fs::perms::owner_read | fs::perms::others_read);
    EXPECT_EQ(InProcess([this] { return BecomeOrdinary() && !_lcreat(path.string()) ? lGood : lWrong; }), lGood);
    EXPECT_EQ(Contents(path), "old");
    EXPECT_EQ(FilesIn(folder), 1);
}

TEST_F(RefusedFiles, AFolderThatMayNotBeWrittenKeepsItsFiles)
{
    fs::permissions(path, fs::perms::all);
    fs::permissions(folder,
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    EXPECT_EQ(InProcess(
                  [this] {
                      return BecomeOrdinary() && !_lcreat(path.string()) && !_lcreat((folder / "new.zrn").string())
                                 ? lGood
                                 : lWrong;
                  }),
              lGood);
    EXPECT_EQ(Contents(path), "old");
    EXPECT_EQ(FilesIn(folder), 1);
}

TEST_F(RefusedFiles, TheOwnerAndTheGroupAreKeptWhereTheUserMayHandThemOn)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser may";
    ASSERT_EQ(::chown(path.c_str(), 1234, 2345), 0);
    fs::permissions(path, fs::perms::owner_all | fs::perms::group_read);
    HFILE const hFile = _lcreat(path.string());
    _lwrite(hFile, "new", 3);
    EXPECT_TRUE(_lclose(hFile));
    struct stat about = {};
    ASSERT_EQ(::stat(path.c_str(), &about), 0);
    EXPECT_EQ(about.st_uid, 1234u);
    EXPECT_EQ(about.st_gid, 2345u);
    EXPECT_EQ(about.st_mode & 07777, 0740u);
    EXPECT_EQ(Contents(path), "new");
}

TEST_F(RefusedFiles, SomebodyElsesFileThatMayBeWrittenIsReplaced)
{
    fs::permissions(path, fs::perms::all);
    EXPECT_EQ(InProcess(
                  [this]
                  {
                      if (!BecomeOrdinary())
                          return lWrong;
                      HFILE const hFile = _lcreat(path.string());
                      _lwrite(hFile, "new", 3);
                      return _lclose(hFile) ? lGood : lWrong;
                  }),
              lGood);
    EXPECT_EQ(Contents(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::all);
}

TEST_F(RefusedFiles, ALinkStaysAlsoWhenItLeadsNowhereYet)
{
    fs::create_symlink("deep/new.zrn", folder / "link.zrn"); // from the link's own folder
    fs::create_directory(folder / "deep");
    HFILE const hFile = _lcreat((folder / "link.zrn").string());
    _lwrite(hFile, "new", 3);
    EXPECT_TRUE(_lclose(hFile));
    EXPECT_TRUE(fs::is_symlink(folder / "link.zrn"));
    EXPECT_EQ(Contents(folder / "deep" / "new.zrn"), "new");
}

TEST_F(RefusedFiles, LinksThatGoRoundMakeNoFile)
{
    fs::create_symlink("b.zrn", folder / "a.zrn");
    fs::create_symlink("a.zrn", folder / "b.zrn");
    HFILE const hFile = _lcreat((folder / "a.zrn").string());
    EXPECT_EQ(hFile, nullptr);
    File_GiveUp(hFile);
    EXPECT_TRUE(fs::is_symlink(folder / "a.zrn"));
}

TEST_F(RefusedFiles, AStampChangesWithTheContent)
{
    auto const before = File_StampOf(path.string());
    ASSERT_TRUE(before);
    EXPECT_EQ(File_StampOf(path.string()), before);
    Put(path, "older");
    EXPECT_NE(File_StampOf(path.string()), before);
    EXPECT_FALSE(File_StampOf(folder.string()));
    EXPECT_FALSE(File_StampOf((folder / "missing").string()));
}
} // namespace zarn

#include "platform/lock_file.h"

#include <filesystem>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace zarn
{
namespace
{
struct LockFiles : testing::Test
{
    LockFiles()
        : szPath((std::filesystem::temp_directory_path() / ("zarn-lock-" + std::to_string(::getpid()))).string())
    {
    }
    ~LockFiles() override { std::filesystem::remove(szPath); }
    std::string szPath;
};
} // namespace

TEST_F(LockFiles, OneHoldsAndTheOtherDoesnt)
{
    LockFile first;
    LockFile second;
    EXPECT_TRUE(first.Take(szPath));
    EXPECT_TRUE(first.IsHeld());
    EXPECT_FALSE(second.Take(szPath));
    EXPECT_FALSE(second.IsHeld());
    first.Release();
    EXPECT_TRUE(second.Take(szPath));
}

TEST_F(LockFiles, AProcessThatIsKilledLetsGo)
{
    int aReady[2];
    ASSERT_EQ(::pipe(aReady), 0);
    pid_t const lChild = ::fork();
    if (lChild == 0)
    {
        LockFile lock;
        char const c = lock.Take(szPath) ? 'y' : 'n';
        (void)!::write(aReady[1], &c, 1);
        ::pause();
        ::_exit(0);
    }
    char c = 0;
    ASSERT_EQ(::read(aReady[0], &c, 1), 1);
    EXPECT_EQ(c, 'y');
    LockFile lock;
    EXPECT_FALSE(lock.Take(szPath));
    ::kill(lChild, SIGKILL);
    ::waitpid(lChild, nullptr, 0);
    EXPECT_TRUE(lock.Take(szPath));
    ::close(aReady[0]);
    ::close(aReady[1]);
}

TEST_F(LockFiles, AFileThatWasRemovedIsMadeAnew)
{
    LockFile first;
    ASSERT_TRUE(first.Take(szPath));
    std::filesystem::remove(szPath);
    LockFile second;
    EXPECT_TRUE(second.Take(szPath));
    EXPECT_TRUE(std::filesystem::exists(szPath));
}

TEST_F(LockFiles, WhatCantBeMadeIsntHeld)
{
    LockFile lock;
    EXPECT_FALSE(lock.Take(szPath + "/no/such"));
}
} // namespace zarn

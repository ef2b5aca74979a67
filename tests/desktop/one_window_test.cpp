// A file that a later start hands over.
#include "platform/desktop/one_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace zarn
{
namespace
{
struct OneWindows : testing::Test
{
    OneWindows() : before(qgetenv("XDG_RUNTIME_DIR")) { qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8()); }
    ~OneWindows() override
    {
        if (before.isNull())
            qunsetenv("XDG_RUNTIME_DIR");
        else
            qputenv("XDG_RUNTIME_DIR", before);
    }

    OneWindow::Taker Taking(bool bTakes)
    {
        return [this, bTakes](std::string const& szPath)
        {
            aTaken.push_back(szPath);
            return bTakes;
        };
    }
    /// What another process is told, while this one goes on.
    static bool AskFromOutside(std::string const& szPath)
    {
        std::atomic<bool> bDone = false;
        bool bTaken = false;
        std::thread asker(
            [&]
            {
                bTaken = OneWindow::Ask(szPath);
                bDone = true;
            });
        EXPECT_TRUE(QTest::qWaitFor([&] { return bDone.load(); }, 20000));
        asker.join();
        return bTaken;
    }
    std::string SocketPath() const
    {
        QStringList const names = QDir(folder.path()).entryList({QStringLiteral("zarn-*")}, QDir::System);
        return names.isEmpty() ? std::string() : folder.filePath(names.first()).toStdString();
    }

    QTemporaryDir folder;
    QByteArray before;
    std::vector<std::string> aTaken;
};
} // namespace

TEST_F(OneWindows, TheWindowThatStandsGetsThePathAsItIs)
{
    OneWindow const window(Taking(true));
    for (std::string const szPath : {"/tunes/a b%20.abc", "/tunes/line\nend.zrn", "/tunes/M\xC3\xA4rz.abc"})
        EXPECT_TRUE(AskFromOutside(szPath)) << szPath;
    EXPECT_EQ(aTaken,
              (std::vector<std::string>{"/tunes/a b%20.abc", "/tunes/line\nend.zrn", "/tunes/M\xC3\xA4rz.abc"}));
}

TEST_F(OneWindows, OneThatIsBusyRefuses)
{
    OneWindow const window(Taking(false));
    EXPECT_FALSE(AskFromOutside("/a.abc"));
    EXPECT_EQ(aTaken.size(), 1u);
}

TEST_F(OneWindows, WithoutOneThereIsNoAnswer) { EXPECT_FALSE(OneWindow::Ask("/a.abc")); }

TEST_F(OneWindows, OneThatDoesNotAnswerIsNotWaitedForLong)
{
    OneWindow const window(Taking(true));
    EXPECT_FALSE(OneWindow::Ask("/a.abc")) << "this thread asks, so it can't answer";
}

TEST_F(OneWindows, TheSecondLeavesTheFirstItsPlace)
{
    auto const first = std::make_unique<OneWindow>(Taking(true));
    {
        OneWindow const second([](std::string const&) { return false; });
        EXPECT_TRUE(AskFromOutside("/a.abc"));
    }
    EXPECT_TRUE(AskFromOutside("/b.abc"));
}

TEST_F(OneWindows, WhatAKilledProgramLeftIsReplaced)
{
    std::string szSocket;
    {
        OneWindow const window(Taking(true));
        szSocket = SocketPath();
    }
    ASSERT_FALSE(szSocket.empty());
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    szSocket.copy(address.sun_path, sizeof address.sun_path - 1);
    int const fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
    ::close(fd);
    OneWindow const window(Taking(true));
    EXPECT_TRUE(AskFromOutside("/a.abc"));
}
} // namespace zarn

#include "sound/server.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace zarn::test
{
constexpr std::chrono::seconds lPatience{20};

bool WaitUntil(std::function<bool()> const& bSo)
{
    auto const end = std::chrono::steady_clock::now() + lPatience;
    while (!bSo())
    {
        if (std::chrono::steady_clock::now() > end)
            return false;
        poll(nullptr, 0, 5); // what is waited for tells nobody when it comes
    }
    return true;
}

Server::Server(std::vector<std::string> const& aCommand)
{
    std::vector<char*> aWords;
    for (std::string const& s : aCommand)
        aWords.push_back(const_cast<char*>(s.c_str()));
    aWords.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (posix_spawnp(&pid, aWords[0], &actions, nullptr, aWords.data(), environ) != 0)
        pid = -1;
    posix_spawn_file_actions_destroy(&actions);
}

Server::~Server()
{
    if (pid <= 0)
        return;
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
}

bool Server::WaitFor(std::function<bool()> const& bServes)
{
    bool bEnded = pid <= 0;
    bool const bDone = WaitUntil(
        [&]
        {
            if (!bEnded && waitpid(pid, nullptr, WNOHANG) == pid)
            {
                bEnded = true;
                pid = -1;
            }
            return bEnded || bServes();
        });
    return bDone && !bEnded;
}

void Server::Kill()
{
    if (pid <= 0)
        return;
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    pid = -1;
}
} // namespace zarn::test

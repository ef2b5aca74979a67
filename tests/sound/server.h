/// A server of the system's, started for one test and ended with it.
#pragma once
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace zarn::test
{
class Server
{
public:
    /// aCommand: the program and its words. What it prints is dropped.
    explicit Server(std::vector<std::string> const& aCommand);
    ~Server();
    Server(Server const&) = delete;
    Server& operator=(Server const&) = delete;

    /// Waits until the server serves; false when it ends, or takes more than some seconds.
    bool WaitFor(std::function<bool()> const& bServes);
    /// Ends at once, as when it crashes.
    void Kill();

private:
    pid_t pid = -1;
};

/// Waits until it is so; false when that takes more than some seconds.
bool WaitUntil(std::function<bool()> const& bSo);
} // namespace zarn::test

/// One window for a user's files: a start with a file finds the window that stands already, and hands the file over.
#pragma once
#include <QLocalServer>
#include <functional>
#include <string>
#include <string_view>

class QLocalSocket;

namespace zarn
{
/// Listens, on a socket of this user's and display's own, as long as it lives. Main thread.
class OneWindow
{
public:
    /// Gets the path of a file, and tells whether it will be opened.
    using Taker = std::function<bool(std::string const&)>;
    explicit OneWindow(Taker pTake);

    /// Asks the window that listens. False when there is none, it won't, or it doesn't answer in time.
    [[nodiscard]] static bool Ask(std::string_view szPath);

private:
    void Answer(QLocalSocket& socket);

    Taker pTake;
    QLocalServer server;
};
} // namespace zarn

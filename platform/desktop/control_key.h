/// Whether the CTRL key is down, told on any thread.
#pragma once
#include <QObject>

#include <atomic>

namespace zarn
{
/// Made on the main thread, with an application standing.
class ControlKey : public QObject
{
public:
    ControlKey();

    /// As of the last key event, or of the last question: each one has the window system asked again, so that a key
    /// pressed in another program's window is seen at the next question.
    [[nodiscard]] bool IsDown();

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void AskWindowSystem();

    std::atomic<bool> bDown = false;
    std::atomic<bool> bAsking = false;
};
} // namespace zarn

// The journal's player. What a user's hand does to the window itself (its size, the pointer) is done to it here.
#include "platform/headless/replay.h"

#include "platform/journal.h"

#include <utility>

namespace zarn
{
namespace
{
void ActOnWindow(HeadlessWindow& window, Event const& event)
{
    switch (event.kind)
    {
    case EventKind::SIZE:
        window.Resize({event.x, event.y});
        break;
    case EventKind::MOVE:
    case EventKind::LEFTDOWN:
    case EventKind::LEFTUP:
    case EventKind::RIGHTDOWN:
    case EventKind::RIGHTUP:
        window.SetPointer({event.x, event.y});
        break;
    default:
        break;
    }
}

void RunLoop(ScriptHost& user)
{
    user.RunPosted();
    if (user.pWindow)
        user.pWindow->RunLoop();
}

void Deliver(Event const& event, ScriptHost& user)
{
    if (event.kind == EventKind::TICK)
        user.Advance(static_cast<uint32_t>(event.lNumber));
    if (user.pWindow)
        ActOnWindow(*user.pWindow, event);
    if (host.pDoor)
        host.pDoor->Receive(event);
    RunLoop(user);
}

bool IsMet(std::string const& sExpected, ScriptHost const& user)
{
    return !user.shown.empty() && Text_OneLine(user.shown.back().sText).find(sExpected) != std::string::npos;
}
} // namespace

std::string Shown_Line(Shown const& shown)
{
    std::string const sText = Text_OneLine(shown.sText);
    return shown.bQuestion ? "question: " + sText + " -> " + shown.sAnswer : "message: " + sText;
}

int32_t Replay_Play(std::string_view sJournal, ScriptHost& user, std::function<void(std::string_view)> const& tell)
{
    auto const say = [&](std::string_view sText)
    {
        if (tell)
            tell(sText);
    };
    std::vector<std::string> aComplaints;
    std::vector<JournalLine> const aLines = Journal_Parse(sJournal, aComplaints);
    for (std::string const& sComplaint : aComplaints)
        say(sComplaint);
    if (!aComplaints.empty())
        return 1;

    auto const before = std::exchange(user.pOnShown, [&](Shown const& shown) { say(Shown_Line(shown)); });
    int32_t lResult = 0;
    bool bPainted = false;
    for (JournalLine const& line : aLines)
    {
        if (line.kind == JournalLine::ANSWER)
        {
            user.answers.push_back(line.answer);
            continue;
        }
        if (!std::exchange(bPainted, true))
            RunLoop(user);
        if (line.kind == JournalLine::EVENT && !user.bQuit)
            Deliver(line.event, user);
        else if (line.kind == JournalLine::EXPECT && !IsMet(line.sExpected, user))
        {
            lResult = 1;
            std::string const sLast = user.shown.empty() ? "nothing" : Text_OneLine(user.shown.back().sText);
            say("expected: " + line.sExpected + ", but shown was: " + sLast);
        }
    }
    if (!bPainted)
        RunLoop(user);
    user.pOnShown = before;
    return lResult;
}
} // namespace zarn

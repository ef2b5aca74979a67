#include "platform/headless/replay.h"

#include "platform/journal.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

using namespace zarn;

namespace
{
/// A program that notes events and paints, and acts on a few commands.
class Program : public Door, public Painter
{
public:
    void Receive(Event const& event) override
    {
        aLog.push_back(Event_Format(event));
        if (event.kind == EventKind::COMMAND)
            Do(event.lNumber);
    }
    void Paint(HWND hwnd, HDC hdc) override
    {
        SIZE const size{GetDeviceCaps(hdc, HORZRES), GetDeviceCaps(hdc, VERTRES)};
        aLog.push_back("paint " + std::to_string(size.cx) + ' ' + std::to_string(size.cy));
        place = GetCursorPos(hwnd);
    }
    std::vector<std::string> aLog;
    POINT place;

private:
    static void Do(int32_t lNumber)
    {
        if (lNumber == 1)
            MessageBoxA(nullptr, "No\r\n\r\nsuch tune.", "", MB_OK);
        else if (lNumber == 2)
            MessageBoxA(nullptr, "Save Now?", "", MB_YESNOCANCEL);
        else if (lNumber == 3)
            PostQuitMessage(0);
        else if (lNumber == 4)
            InvalidateRect(host.pUser ? static_cast<ScriptHost*>(host.pUser)->pWindow.get() : nullptr);
    }
};

class Replaying : public testing::Test
{
protected:
    void SetUp() override
    {
        host.pDoor = &program;
        hwnd = CreateWindowExA("Zarn", &program);
    }
    int32_t Play(std::string_view sJournal)
    {
        return Replay_Play(sJournal, process.user, [this](std::string_view s) { aTold.emplace_back(s); });
    }

    test::ScriptedProcess process;
    Program program;
    HWND hwnd = nullptr;
    std::vector<std::string> aTold;
};
using Lines = std::vector<std::string>;
} // namespace

TEST_F(Replaying, TheFirstPaintComesAheadOfTheFirstEvent)
{
    EXPECT_EQ(Play("answer yes\nsize 300 200\ncommand 9\n"), 0);
    EXPECT_EQ(program.aLog, (Lines{"paint 1200 800", "size 300 200", "paint 300 200", "command 9"}));
    EXPECT_EQ(program.place, (POINT{20, 20}));
}

TEST_F(Replaying, AJournalWithoutEventsStillPaints)
{
    EXPECT_EQ(Play("answer yes\n"), 0);
    EXPECT_EQ(program.aLog, (Lines{"paint 1200 800"}));
}

TEST_F(Replaying, ARepaintThatIsOwedFollowsItsEvent)
{
    EXPECT_EQ(Play("command 4\ncommand 9\n"), 0);
    EXPECT_EQ(program.aLog, (Lines{"paint 1200 800", "command 4", "paint 1200 800", "command 9"}));
}

TEST_F(Replaying, ThePointerGoesWhereTheEventsAre)
{
    EXPECT_EQ(Play("move 5 6\n"), 0);
    EXPECT_EQ(GetCursorPos(hwnd), (POINT{5, 6}));
    for (char const* const sLine : {"left down 7 8", "left up 9 10", "right down 11 12", "right up 13 14"})
    {
        EXPECT_EQ(Play(sLine), 0);
        Event const event = Journal_ParseLine(sLine)->event;
        EXPECT_EQ(GetCursorPos(hwnd), (POINT{event.x, event.y})) << sLine;
    }
    EXPECT_EQ(Play("palette 1 2\npiano 3 4\n"), 0);
    EXPECT_EQ(GetCursorPos(hwnd), (POINT{13, 14})) << "a panel's pixels aren't the window's";
}

TEST_F(Replaying, TicksMoveTheClock)
{
    EXPECT_EQ(Play("tick 1500\ntick 20\n"), 0);
    EXPECT_EQ(process.user.lNowMs, 1520u);
    EXPECT_EQ(program.aLog, (Lines{"paint 1200 800", "tick 1500", "tick 20"}));
}

TEST_F(Replaying, WhatIsPostedRunsBehindTheRepaintAndIsFollowedByTheNext)
{
    PostMessageA(hwnd,
                 []
                 {
                     MessageBoxA(nullptr, "Open or new?", "", MB_YESNO);
                     InvalidateRect(static_cast<ScriptHost*>(host.pUser)->pWindow.get());
                 });
    UpdateWindow(hwnd);
    EXPECT_TRUE(process.user.shown.empty()) << "only the loop calls what was posted";
    InvalidateRect(hwnd);
    EXPECT_EQ(Play("answer yes\ncommand 9\nexpect Open\n"), 0);
    EXPECT_EQ(program.aLog, (Lines{"paint 1200 800", "paint 1200 800", "paint 1200 800", "command 9"}));
    EXPECT_EQ(aTold, (Lines{"question: Open or new? -> yes"}));
}

TEST_F(Replaying, MessagesAndQuestionsAreToldInOneLineEach)
{
    EXPECT_EQ(Play("command 1\nanswer no\ncommand 2\ncommand 2\n"), 0);
    EXPECT_EQ(aTold, (Lines{"message: No such tune.", "question: Save Now? -> no", "question: Save Now? -> cancel"}));
}

TEST_F(Replaying, AnExpectationLooksAtTheLastMessage)
{
    EXPECT_EQ(Play("command 1\nexpect such tune\ncommand 2\nexpect Save\n"), 0);
    EXPECT_EQ(Play("command 1\nexpect Save\ncommand 9\n"), 1);
    EXPECT_EQ(aTold.back(), "expected: Save, but shown was: No such tune.");
    EXPECT_EQ(program.aLog.back(), "command 9") << "the replay goes on";
}

TEST_F(Replaying, WithNothingShownNothingIsAsExpected)
{
    EXPECT_EQ(Play("expect Save\n"), 1);
    EXPECT_EQ(aTold, (Lines{"expected: Save, but shown was: nothing"}));
}

TEST_F(Replaying, AJournalWithABadLineIsntPlayed)
{
    EXPECT_EQ(Play("command 1\nhop\n"), 1);
    EXPECT_EQ(aTold, (Lines{"Line 2 of the journal can't be read: hop"}));
    EXPECT_TRUE(program.aLog.empty());
}

TEST_F(Replaying, NothingIsDeliveredToAProgramThatHasQuit)
{
    EXPECT_EQ(Play("command 3\ncommand 1\nexpect tune\n"), 1);
    EXPECT_EQ(program.aLog, (Lines{"paint 1200 800", "command 3"}));
}

TEST_F(Replaying, AnswersNotAskedForWaitOn)
{
    EXPECT_EQ(Play("answer yes\nanswer no\ncommand 2\n"), 0);
    ASSERT_EQ(process.user.answers.size(), 1u);
    EXPECT_EQ(process.user.answers[0].kind, Answer::NO);
}

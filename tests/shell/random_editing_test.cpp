// Any events in any order leave a score that is whole, and no cursor on an element that has gone.
//
// A failure leaves its journal in the working folder; it plays back with --replay. ZARN_EVENTS sets how many events are
// made (100,000 and more for a long run under the sanitizers).
#include "core/score_check.h"
#include "midi/refresh_pitches.h"
#include "midi/score_times.h"
#include "platform/journal.h"
#include "shell/menu.h"
#include "support/shell_fixture.h"

#include <cstdlib>
#include <random>

namespace zarn::test
{
namespace
{
struct RandomEditing : Shell
{
    std::mt19937 random{20261121};
    std::string sJournal;
    std::vector<int32_t> aCommands;

    int32_t Below(int32_t n) { return static_cast<int32_t>(random() % static_cast<uint32_t>(n)); }

    void Collect(std::vector<MenuItem> const& aItems)
    {
        for (MenuItem const& item : aItems)
        {
            bool const bLeaves = item.lCommand == COMMAND_EXIT || item.lCommand == COMMAND_SAVE ||
                                 item.lCommand == COMMAND_SAVEAS || item.lCommand == COMMAND_OPEN;
            if (item.lCommand != 0 && !bLeaves)
                aCommands.push_back(item.lCommand);
            Collect(item.aItems);
        }
    }

    Answer AnyAnswer()
    {
        switch (Below(8))
        {
        case 0:
            return {.kind = Answer::NUMBER, .lNumber = Below(40) - 5};
        case 1:
            return {.kind = Answer::TEXT, .sText = std::string(static_cast<size_t>(Below(30)), 'a')};
        case 2:
            return {.kind = Answer::YES};
        case 3:
            return {.kind = Answer::FIRST};
        case 4:
            return {.kind = Answer::NUMBER, .lNumber = COMMAND_EDITITEM + Below(3)};
        case 5:
            return {.kind = Answer::NUMBER, .lNumber = COMMAND_FRET + Below(lMostFret + 1)};
        case 6:
            return {.kind = Answer::FORM,
                    .sText = Format("%s strings=%d top=%d ok", Below(2) ? "guitar" : "mandolin", Below(9) - 1,
                                    60 + Below(30))};
        default:
            return {.kind = Answer::CANCEL};
        }
    }

    /// Mostly near the music: the first few systems.
    POINT AnyPlace() { return {Below(1250) - 20, Below(Below(4) ? 300 : 900) - 20}; }

    Event AnyKey()
    {
        static constexpr char const* aKeys[] = {
            "left", "right", "up",        "down",   "home",   "end", "pageup", "pagedown", "enter", "enter", "enter",
            "esc",  "space", "backspace", "delete", "delete", "tab", "1",      "2",        "3",     "4",     "5",
            "6",    "7",     "8",         "9",      "0",      "a",   "b",      "d",        "n",     "r",     "t",
            "u",    "v",     ".",         ";",      ",",      "/",   "[",      "]",        "-",     "=",     "#",
            "`",    "\\",    "f4",        "q",      "f",      "s",   "o",      "space",    "down",  "up"};
        Event event{.kind = EventKind::KEY};
        event.sText = aKeys[Below(std::size(aKeys))];
        event.fShift = Below(4) == 0;
        if (Below(8) == 0)
        {
            event.fCtrl = true;
            event.sText = std::string(1, "zxcv"[Below(4)]);
        }
        return event;
    }

    Event AnyEvent()
    {
        switch (Below(13))
        {
        case 12:
            return {
                .kind = Below(2) ? EventKind::PALETTE : EventKind::PIANO, .x = Below(1220) - 10, .y = Below(220) - 10};
        case 0:
        case 1:
        case 2:
            return AnyKey();
        case 3:
        case 4:
            return {.kind = EventKind::COMMAND,
                    .lNumber = aCommands[static_cast<size_t>(Below(std::ssize(aCommands)))]};
        case 5:
            if (Below(20) == 0)
                return {.kind = EventKind::SIZE, .x = Below(2000) + 1, .y = Below(1500) + 1};
            return {.kind = EventKind::SCROLL, .lNumber = Below(4)};
        default:
            break;
        }
        static constexpr EventKind aKinds[] = {EventKind::MOVE,   EventKind::LEFTDOWN,  EventKind::LEFTUP,
                                               EventKind::LEFTUP, EventKind::RIGHTDOWN, EventKind::RIGHTUP};
        POINT const place = AnyPlace();
        return {.kind = aKinds[Below(std::size(aKinds))], .x = place.x, .y = place.y};
    }

    void Give(Event const& event)
    {
        process.user.answers.clear();
        for (int32_t n = 0; n < 2; ++n)
        {
            process.user.answers.push_back(AnyAnswer());
            sJournal += "answer " + Answer_Format(process.user.answers.back()) + "\n";
        }
        sJournal += Event_Format(event) + "\n";
        if (event.kind == EventKind::SIZE)
            Window().Resize({event.x, event.y});
        if (event.kind == EventKind::MOVE || event.kind == EventKind::LEFTUP)
            Window().SetPointer({event.x, event.y});
        door.Receive(event);
        Update();
    }

    static int32_t CountElements()
    {
        int32_t cElements = 0;
        for (List const list : aStaffList)
            cElements += List_Card(list);
        return cElements;
    }

    void KeepJournal(int32_t lStep) const
    {
        std::ofstream("random_editing_" + std::to_string(lStep) + ".journal") << sJournal;
    }
};
} // namespace

TEST_F(RandomEditing, LeavesTheScoreWhole)
{
    // A save asks for a name and gets any: it lands here.
    std::filesystem::path const home = std::filesystem::current_path();
    std::filesystem::current_path(pFolder);
    Start();
    Collect(MainMenu());
    aCommands.insert(aCommands.end(),
                     {COMMAND_DUPLICATE, COMMAND_PIANOCLOSED, COMMAND_PALETTECLOSED, COMMAND_EDITITEM,
                      COMMAND_EDITLYRICS, COMMAND_DELETEITEM, COMMAND_PIANO, COMMAND_PIANO, COMMAND_PIANO});
    ASSERT_GT(aCommands.size(), 300u);
    char const* const sEvents = std::getenv("ZARN_EVENTS");
    int32_t const cEvents = sEvents ? std::atoi(sEvents) : 6000;
    constexpr int32_t lPerScore = 400;
    int32_t cGrown = 0;
    int32_t cShrunk = 0;
    for (int32_t n = 0; n < cEvents; ++n)
    {
        if (n % lPerScore == 0)
        {
            sJournal.clear();
            Score_EmptyStaffs();
            Geometry_Init();
            SetWindowUnits({0, 0, 1200, 800});
            bRightJustified = false;
            bTabShowing = n / lPerScore % 2 == 1;
            Write(1,
                  "clef:1 key:2 time:4/4 n0/48 #3 [n2/24 n4/24] n6/24 r48 | n3/48 chord\"Am\" lyr\"la\" n5/72 n1/24");
            Write(1, "slur( n3/48 n4/48 slur) n5/24 n5/24 | n4/48 n4/48 lyr\"a longer word\" n2/96 nl n1/192");
            Write(2, "clef:3 n-7/96 n-9/96 | n-7/192");
            Command(COMMAND_FULLADJUST);
        }
        Event const event = AnyEvent();
        int32_t const cBefore = CountElements();
        Give(event);
        cGrown += CountElements() > cBefore;
        cShrunk += CountElements() < cBefore;
        std::vector<std::string> const aWrong = Score_CheckStructure();
        if (!aWrong.empty())
        {
            std::filesystem::current_path(home);
            KeepJournal(n);
            FAIL() << "step " << n << ", " << Event_Format(event) << ": " << aWrong.front();
        }
        ASSERT_TRUE(hwndMain) << Event_Format(event);
    }
    std::filesystem::current_path(home);
    // Neither a guard nor a question has kept the events from doing their work.
    EXPECT_GT(cGrown, cEvents / 20);
    EXPECT_GT(cShrunk, cEvents / 100);
}
} // namespace zarn::test

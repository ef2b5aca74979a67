// Any events in any order leave a score that is whole, and no cursor on an element that has gone.
//
// A failure leaves its journal in the working folder; it plays back with --replay. ZARN_EVENTS sets how many events are
// made (100,000 and more for a long run under the sanitizers), ZARN_SEED which ones.
#include "core/score_check.h"
#include "midi/refresh_pitches.h"
#include "midi/score_times.h"
#include "panels/panel_size.h"
#include "platform/journal.h"
#include "shell/menu.h"
#include "support/shell_fixture.h"

#include <cstdlib>
#include <deque>
#include <random>
#include <set>

namespace zarn::test
{
namespace
{
/// A number from the environment.
int32_t Wish(char const* sName, int32_t lOtherwise)
{
    char const* const sValue = std::getenv(sName);
    return sValue ? std::atoi(sValue) : lOtherwise;
}

struct RandomEditing : Shell
{
    std::mt19937 random{static_cast<uint32_t>(Wish("ZARN_SEED", 20261121))};
    std::string sJournal;
    std::vector<int32_t> aCommands;
    std::deque<Event> aComing; ///< the rest of a gesture
    std::set<std::string> asked;
    std::set<EventKind> changed; ///< the kinds that have made the score longer or shorter

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

    std::string AnyText()
    {
        static constexpr char const* aWords[] = {"la ",  "foo-", "bar ", "+", "_",          "~",
                                                 "\r\n", "am7",  "Bb",   " ", "a long word"};
        std::string sText;
        for (int32_t n = Below(8); n > 0; --n)
            sText += aWords[Below(std::size(aWords))];
        return sText;
    }

    Answer AnyAnswer()
    {
        switch (Below(11))
        {
        case 0:
            return {.kind = Answer::NUMBER, .lNumber = Below(40) - 5};
        case 1:
        case 2:
            return {.kind = Answer::TEXT, .sText = AnyText()};
        case 3:
            return {.kind = Answer::YES};
        case 4:
            return {.kind = Answer::FIRST};
        case 5:
        case 6:
            return {.kind = Answer::NUMBER, .lNumber = COMMAND_EDITITEM + Below(3)};
        case 7:
            return {.kind = Answer::NUMBER, .lNumber = COMMAND_FRET + Below(lMostFret + 1)};
        case 8:
            return {.kind = Answer::FORM,
                    .sText = Format("%s strings=%d top=%d ok", Below(2) ? "guitar" : "mandolin", Below(9) - 1,
                                    60 + Below(30))};
        case 9:
            return {.kind = Answer::FORM, .sText = Format("clef=%d key=%d time=%d ok", Below(4), Below(13), Below(5))};
        default:
            return {.kind = Answer::CANCEL};
        }
    }

    /// Any element that shows on the page; null when there is none.
    Element const* AnyElement()
    {
        std::vector<Element const*> apel;
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
            for (Element const* pel = StaffFirst(lStaff); IsVisible(lStaff) && pel; pel = Next(pel))
                apel.push_back(pel);
        return apel.empty() ? nullptr : apel[static_cast<size_t>(Below(static_cast<int32_t>(apel.size())))];
    }

    /// At a symbol or beside it, or anywhere; mostly near the music: the first few systems.
    POINT AnyPlace()
    {
        if (Element const* const pel = Below(2) ? AnyElement() : nullptr)
            return {pel->lX + Below(5) - 2, pel->lY + Below(5) - 2};
        return {Below(1250) - 20, Below(Below(4) ? 300 : 900) - 20};
    }

    /// A word's place, for its pop-up; any other when there is none.
    POINT AnyWord()
    {
        for (int32_t n = 0; n < 20; ++n)
            if (Element const* const pel = AnyElement(); pel && pel->sort == LYRICS)
                return {pel->lX, pel->lY};
        return AnyPlace();
    }

    Event AnyKey()
    {
        static constexpr char const* aKeys[] = {
            "left",  "right", "up",    "down",      "home",  "end", "pageup", "pagedown", "enter",  "enter",
            "enter", "esc",   "space", "backspace", "space", "f",   "s",      "o",        "delete", "delete",
            "tab",   "f1",    "f2",    "f3",        "f4",    "f5",  "f9",     "f12",      ".",      ";",
            ",",     "/",     "[",     "]",         "-",     "=",   "#",      "`",        "\\",     "<",
            ">",     "<",     ">",     "+",         "*",     "!",   "|",      ":"};
        Event event{.kind = EventKind::KEY};
        switch (Below(4))
        {
        case 0:
            event.sText = std::string(1, static_cast<char>('0' + Below(10)));
            break;
        case 1:
            event.sText = std::string(1, static_cast<char>('a' + Below(26)));
            break;
        default:
            event.sText = aKeys[Below(std::size(aKeys))];
        }
        event.fShift = Below(4) == 0;
        event.fCtrl = Below(12) == 0;
        event.fAlt = Below(40) == 0 && event.sText != "f4"; // which leaves the program
        if (Below(8) == 0)
        {
            event.fCtrl = true;
            event.sText = std::string(1, "zxcv"[Below(4)]);
        }
        return event;
    }

    Event PointerEvent(EventKind kind, POINT place) { return {.kind = kind, .x = place.x, .y = place.y}; }

    /// A button goes down, the pointer moves, perhaps, and the button goes up.
    Event AnyGesture()
    {
        bool const bRight = Below(3) == 0;
        POINT const from = bRight && Below(2) ? AnyWord() : AnyPlace();
        aComing.push_back(PointerEvent(bRight ? EventKind::RIGHTDOWN : EventKind::LEFTDOWN, from));
        POINT to = from;
        for (int32_t n = Below(2) ? 0 : Below(4); n > 0; --n)
        {
            to = AnyPlace();
            aComing.push_back(PointerEvent(EventKind::MOVE, to));
        }
        aComing.push_back(PointerEvent(bRight ? EventKind::RIGHTUP : EventKind::LEFTUP, to));
        return PointerEvent(EventKind::MOVE, from);
    }

    Event AnyEvent()
    {
        if (!aComing.empty() && Below(20)) // now and then something comes between
        {
            Event const event = aComing.front();
            aComing.pop_front();
            return event;
        }
        switch (Below(16))
        {
        case 0:
        case 1:
        case 2:
        case 3:
            return AnyKey();
        case 4:
        case 5:
        case 6:
            return {.kind = EventKind::COMMAND,
                    .lNumber = aCommands[static_cast<size_t>(Below(static_cast<int32_t>(aCommands.size())))]};
        case 7:
            if (Below(20) == 0)
                return {.kind = EventKind::SIZE, .x = Below(2000) + 1, .y = Below(1500) + 1};
            return {.kind = EventKind::SCROLL, .lNumber = Below(7), .x = Below(300)};
        case 8:
            return {.kind = EventKind::PALETTE, .x = Below(1220) - 10, .y = Below(120) - 10};
        case 9:
            return {.kind = EventKind::PIANO, .x = Below(1220) - 10, .y = Below(220) - 10};
        case 10:
        {
            static constexpr EventKind aKinds[] = {EventKind::MOVE, EventKind::LEFTDOWN, EventKind::LEFTUP,
                                                   EventKind::RIGHTDOWN, EventKind::RIGHTUP};
            return PointerEvent(aKinds[Below(std::size(aKinds))], AnyPlace());
        }
        default:
            return AnyGesture();
        }
    }

    void Give(Event const& event)
    {
        process.user.answers.clear();
        for (int32_t n = 0; n < 3; ++n)
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
        for (std::string const& sText : process.user.Messages())
            asked.insert(sText);
        process.user.shown.clear();
    }

    static int32_t CountElements()
    {
        int32_t cElements = 0;
        for (List const list : aStaffList)
            cElements += List_Card(list);
        return cElements;
    }

    /// Every list reads the same from both ends.
    static bool ListsAreWhole()
    {
        std::vector<List> aLists(std::begin(aStaffList), std::end(aStaffList));
        aLists.push_back(listClipboard);
        aLists.push_back(listUndo);
        for (List const list : aLists)
        {
            std::vector<Element const*> apel;
            for (auto const* pel = List_FirstAs<Element>(list); pel; pel = Next(pel))
                apel.push_back(pel);
            if (List_Card(list) != static_cast<int32_t>(apel.size()))
                return false;
            for (auto const* pel = List_LastAs<Element>(list); pel; pel = Prev(pel))
            {
                if (apel.empty() || apel.back() != pel)
                    return false;
                apel.pop_back();
            }
            if (!apel.empty())
                return false;
        }
        return true;
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
    int32_t const cEvents = Wish("ZARN_EVENTS", 20000);
    constexpr int32_t lPerScore = 400;
    int32_t cGrown = 0;
    int32_t cShrunk = 0;
    for (int32_t n = 0; n < cEvents; ++n)
    {
        if (n % lPerScore == 0)
        {
            sJournal.clear();
            aComing.clear();
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
            if (bPianoShowing != (n / lPerScore % 3 == 0))
                Command(COMMAND_PIANO);
        }
        Event const event = AnyEvent();
        int32_t const cBefore = CountElements();
        Give(event);
        cGrown += CountElements() > cBefore;
        cShrunk += CountElements() < cBefore;
        if (CountElements() != cBefore)
            changed.insert(event.kind);
        std::vector<std::string> aWrong = Score_CheckStructure();
        if (!ListsAreWhole())
            aWrong.emplace_back("a list doesn't read the same from both ends");
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
    for (EventKind const kind :
         {EventKind::KEY, EventKind::COMMAND, EventKind::LEFTUP, EventKind::RIGHTUP, EventKind::PIANO})
        EXPECT_TRUE(changed.contains(kind)) << static_cast<int32_t>(kind);
    for (char const* sAsked :
         {"Edit symbol", "Lyrics (Ctrl+Enter for new line)", "Harmony", "Title",
          "Cannot edit in Right-Justified mode.  Change back now?", "Mark the section to transpose first"})
        EXPECT_TRUE(asked.contains(sAsked)) << sAsked;
}
} // namespace zarn::test

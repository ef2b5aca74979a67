// Routing.
#include "shell/door.h"

#include "core/messages.h"
#include "midi/record.h"
#include "shell/accelerators.h"
#include "shell/commands.h"
#include "shell/exit.h"
#include "shell/files.h"
#include "shell/fret_entry.h"
#include "shell/keyboard.h"
#include "shell/main_window.h"
#include "shell/menu.h"
#include "shell/mouse.h"
#include "shell/panels_shown.h"
#include "shell/print.h"
#include "shell/session.h"
#include "shell/status.h"

namespace zarn
{
static void RunUnlessGrey(int32_t lCommand)
{
    if (!Menu_IsGrey(lCommand))
        Command_Run(lCommand);
}

/// A fret that is being typed comes first, then the accelerators; what they leave goes to the keyboard's own keys.
static void Key(Event const& key)
{
    if (FretEntry_Key(key))
        return;
    int32_t const lCommand = Accelerator_Command(key);
    if (!Command_Exists(lCommand))
        Keyboard_Down(key);
    else if (!Menu_IsGrey(lCommand))
        Command_Run(lCommand);
    else if (key.sText.size() == 1 && key.sText[0] >= '1' && key.sText[0] <= '7')
        Keyboard_Refuse();
}

bool ShellDoor::IsAccelerator(Event const& key) const { return Accelerator_Command(key) != 0; }

static void Route(Event const& event)
{
    switch (event.kind)
    {
    case EventKind::SIZE:
        MainWindow_Resized({event.x, event.y});
        break;
    case EventKind::OPEN:
        OpenDropped(event.sText);
        break;
    case EventKind::COMMAND:
        RunUnlessGrey(event.lNumber);
        break;
    case EventKind::KEY:
        Key(event);
        break;
    case EventKind::MOVE:
        Mouse_Moved({event.x, event.y});
        break;
    case EventKind::LEFTDOWN:
        Mouse_LeftDown({event.x, event.y});
        break;
    case EventKind::LEFTUP:
        Mouse_LeftUp({event.x, event.y});
        break;
    case EventKind::RIGHTDOWN:
        Mouse_RightDown({event.x, event.y});
        break;
    case EventKind::RIGHTUP:
        Mouse_RightUp({event.x, event.y});
        break;
    case EventKind::PALETTE:
        PaletteClick(event.x, event.y);
        break;
    case EventKind::PIANO:
        PianoClick(event.x, event.y);
        break;
    case EventKind::SCROLL:
        MainWindow_Scrolled(static_cast<ScrollAction>(event.lNumber), event.x);
        break;
    case EventKind::CLOSE:
        ExitCommand();
        break;
    default:
        break;
    }
}

void ShellDoor::Receive(Event const& event)
{
    if (!hwndMain)
        return;
    if (PrintRun::IsOn())
    {
        if (event.kind == EventKind::SIZE)
            PrintRun::Resized();
        return;
    }
    if (event.kind == EventKind::MIDI) // not the main window's: the latch of its messages stays
    {
        ++cEventsInHand;
        MidiIn_Message(event.lNumber, event.x, event.y);
        --cEventsInHand;
        return;
    }
    Serious_Rearm();
    ++cEventsInHand;
    Route(event);
    --cEventsInHand;
    if (!hwndMain)
        return;
    Unsaved_Show();
    Status_Show();
}
} // namespace zarn

// Routing.
#include "shell/door.h"

#include "core/messages.h"
#include "shell/accelerators.h"
#include "shell/commands.h"
#include "shell/exit.h"
#include "shell/files.h"
#include "shell/main_window.h"
#include "shell/menu.h"

namespace zarn
{
static void RunUnlessGrey(int32_t lCommand)
{
    if (!Menu_IsGrey(lCommand))
        Command_Run(lCommand);
}

void ShellDoor::Receive(Event const& event)
{
    if (!hwndMain)
        return;
    Serious_Rearm();
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
        RunUnlessGrey(Accelerator_Command(event));
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
} // namespace zarn

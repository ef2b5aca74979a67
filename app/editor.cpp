// The editor on the desktop host, with a journal between the two when one is asked for.
#include "app/editor.h"

#include "app/tasks.h"
#include "app/terminal.h"
#include "platform/desktop_module.h"
#include "platform/journal_host.h"
#include "platform/program_sound.h"
#include "shell/door.h"
#include "shell/startup.h"

namespace zarn
{
static int32_t RunProgram(Options const& options, DesktopHost& desktop)
{
    if (!StartUp(options.aFiles.empty() ? std::string() : options.aFiles[0]))
    {
        Terminal_Error("the window can't be made");
        return lStatusFailed;
    }
    int32_t const lCode = desktop.Run();
    ShutDown();
    return lCode;
}

int32_t Editor_Run(Options const& options, DesktopHost& desktop)
{
    ShellDoor door;
    ProgramSound sound;
    host = Host{};
    host.pUser = &desktop;
    host.pSettings = desktop.Settings();
    host.pSound = &sound;
    host.pDoor = &door;
    if (options.sJournal.empty())
    {
        desktop.SetDoor(&door);
        return RunProgram(options, desktop);
    }

    JournalWriter journal;
    if (!journal.Open(options.sJournal))
    {
        szTerminalFile = options.sJournal;
        Terminal_Error("the journal can't be written there");
        return lStatusFailed;
    }
    JournalHost recorder(desktop, door, journal);
    host.pUser = &recorder;
    desktop.SetDoor(&recorder);
    int32_t const lStatus = RunProgram(options, desktop);
    if (journal.HasFailed())
    {
        szTerminalFile = options.sJournal;
        Terminal_Error("the journal isn't whole, writing it failed");
        return lStatusFailed;
    }
    return lStatus;
}
} // namespace zarn

// The editor on the desktop host, with a journal between the two when one is asked for.
#include "app/editor.h"

#include "app/tasks.h"
#include "app/terminal.h"
#include "platform/desktop_module.h"
#include "platform/journal_host.h"
#include "platform/program_sound.h"
#include "platform/user_folders.h"
#include "shell/door.h"
#include "shell/file_names.h"
#include "shell/startup.h"

#include <cstdlib>

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

/// ZARN_AUTOSAVE_SECONDS, 1 to 86400, sets how often; anything else leaves it at two minutes.
static void KeepSafetyCopies()
{
    host.szStateFolder = UserStateFolder();
    char const* const szSeconds = std::getenv("ZARN_AUTOSAVE_SECONDS");
    int const lSeconds = szSeconds ? std::atoi(szSeconds) : 0;
    if (lSeconds >= 1 && lSeconds <= 86400)
        host.cAutosaveMs = static_cast<uint32_t>(lSeconds) * 1000;
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
        if (!options.aFiles.empty() && desktop.HandOver(WholePath(options.aFiles[0])))
            return lStatusGood;
        desktop.SetDoor(&door);
        desktop.TakeHandedOver();
        KeepSafetyCopies();
        return RunProgram(options, desktop);
    }

    // What a journal tells can be played back anywhere: so nothing of other sessions comes into it.

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

// Leaving the program.
#include "shell/exit.h"

#include "core/messages.h"
#include "core/score.h"
#include "midi/midi_setup.h"
#include "shell/command_numbers.h"
#include "shell/file_names.h"
#include "shell/files.h"
#include "shell/panels_shown.h"
#include "shell/record_command.h"
#include "shell/session.h"

namespace zarn
{
static bool MayLeave()
{
    if (!bScoreDirty)
        return true;
    int32_t const lAnswer = AskYesNoCancel("Not yet saved as ZRN file.  Save Now?");
    if (lAnswer != 1)
        return lAnswer == 0;
    bool const bNative = FileTypeOf(szFileName) == FileType::NATIVE;
    return SaveFile(hwndMain, bNative ? COMMAND_SAVE : COMMAND_SAVEAS) == SaveResult::SAVED;
}

void ExitCommand()
{
    if (!MayLeave())
        return;
    RecordCommand_LeaveProgram();
    Session_End();
    DestroyWindow(hwndMain);
    hwndMain = nullptr;
    Panels_Forget();
    Score_DestroyLists();
    ShutDownMidi();
    PostQuitMessage(0);
}
} // namespace zarn

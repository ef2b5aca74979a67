// Recording from the menu.
#include "shell/record_command.h"

#include "core/messages.h"
#include "midi/record.h"
#include "render/symbol_cursor.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/modes.h"

namespace zarn
{
void RecordCommand()
{
    if (IsRecording())
        StopRecording(hwndMain);
    else
    {
        StartRecording();
        if (fMouseMode) // the current symbol is a crotchet now
            MakeSymbolCursor(hwndMain);
    }
    Menu_Check(COMMAND_RECORD, IsRecording());
}

void RecordCommand_LeaveProgram()
{
    StopRecording(hwndMain);
    CreateMidiInWindow(nullptr);
}
} // namespace zarn

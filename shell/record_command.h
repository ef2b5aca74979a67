/// Recording from the menu.
#pragma once

namespace zarn
{
/// Starts a recording, or ends the one that runs, and keeps the check mark.
void RecordCommand();
/// Ends a recording on the way out, before the window and the Score go.
void RecordCommand_LeaveProgram();
} // namespace zarn

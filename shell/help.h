/// Help, the few words about the program, and what helps to find a fault: the trace, the count of the pointer.
#pragma once

namespace zarn
{
void HelpCommand();
void BriefInfoCommand();
void HidePointerCommand(); ///< Counts the pointer down, and tells the count; below 0 it can't be seen.
void ShowPointerCommand(); ///< Counts it up again.
void DumpCommand();        ///< The score dump, to the trace.
void DebugLogOff();        ///< The trace is discarded.
void DebugLogOn();         ///< The trace goes to standard error.
} // namespace zarn

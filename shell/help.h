/// Help, the few words about the program, and the trace.
#pragma once

namespace zarn
{
void HelpCommand();
void BriefInfoCommand();
void DumpCommand(); ///< The score dump, to the trace.
void DebugLogOff(); ///< The trace is discarded.
void DebugLogOn();  ///< The trace goes to standard error.
} // namespace zarn

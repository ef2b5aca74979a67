/// Leaving the program.
#pragma once

namespace zarn
{
/// Closing the window: asks about unsaved music, and ends the program unless the user stays.
void ExitCommand();
} // namespace zarn

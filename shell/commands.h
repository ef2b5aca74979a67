/// The dispatcher: a command is a number and one call.
#pragma once
#include "shell/command_numbers.h"

#include <cstdint>

namespace zarn
{
/// Runs the command; a number that is in no range and in no table does nothing.
void Command_Run(int32_t lCommand);

/// True when the number does something.
[[nodiscard]] bool Command_Exists(int32_t lCommand);
} // namespace zarn

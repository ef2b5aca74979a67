/// The parts of the main menu that have files of their own.
#pragma once
#include "platform/user.h"
#include "shell/command_numbers.h"

#include <vector>

namespace zarn
{
[[nodiscard]] std::vector<MenuItem> SymbolMenu();
[[nodiscard]] std::vector<MenuItem> TempoMenu();
[[nodiscard]] std::vector<MenuItem> InstrumentMenu();
[[nodiscard]] std::vector<MenuItem> TransposeMarkMenu();
[[nodiscard]] std::vector<MenuItem> TransposeAllMenu();
} // namespace zarn

/// The parts of the main menu that have files of their own.
#pragma once
#include "platform/user.h"
#include "shell/command_numbers.h"

#include <string>
#include <vector>

namespace zarn
{
struct FingeringWeight;

[[nodiscard]] std::vector<MenuItem> SymbolMenu();
[[nodiscard]] std::vector<MenuItem> TempoMenu();
[[nodiscard]] std::vector<MenuItem> InstrumentMenu();
[[nodiscard]] std::vector<MenuItem> TransposeMarkMenu();
[[nodiscard]] std::vector<MenuItem> TransposeAllMenu();
[[nodiscard]] std::vector<MenuItem> WeightsMenu();
/// The text of a weight's item while it has that value.
[[nodiscard]] std::string WeightMenuText(FingeringWeight const& weight, int32_t lValue);
} // namespace zarn

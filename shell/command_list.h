/// A list of all commands with their keys, to search in.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace zarn
{
struct CommandLine
{
    int32_t lCommand = 0;
    std::string sText; ///< "Symbols: Notes: Minim" and its key in brackets
};
/// Every command of the menu, in the menu's order.
[[nodiscard]] std::vector<CommandLine> CommandList();

/// Shows the list; the one that is chosen runs.
void AllCommandsCommand();
} // namespace zarn

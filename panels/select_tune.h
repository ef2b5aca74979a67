/// The list of a many-tune file's tunes, to choose one from.
#pragma once
#include "platform/user.h"

#include <string>
#include <vector>

namespace zarn
{
/// Shows the rows with the first one selected. True when the user chose one by OK or a double click: *psRow is its text
/// then, or as it was when no row was selected. False for Cancel.
[[nodiscard]] bool SelectTune(HWND hwnd, std::vector<std::string> aRows, std::string* psRow);
} // namespace zarn

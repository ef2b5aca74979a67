/// The status bar: the mode, the current symbol, and where the pointer stands.
#pragma once
#include <string>

namespace zarn
{
/// "Mouse mode  |  crotchet, dotted  |  staff 1, bar 3, beat 2".
[[nodiscard]] std::string Status_Text();
/// Shows it, when it has changed.
void Status_Show();
} // namespace zarn

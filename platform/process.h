/// The clock, other programs, and who looks on.
#pragma once
#include <cstdint>
#include <string_view>

namespace zarn
{
/// Milliseconds since some start; wraps after 49.7 days. Any thread.
[[nodiscard]] uint32_t GetTickCount();
/// Starts the user's text editor on a listing. sCommandLine is "Notepad " and the file; false when it can't be started.
bool CreateProcessA(std::string_view sCommandLine);
/// Standard error is a screen that somebody looks at.
[[nodiscard]] bool ErrorIsTerminal();
} // namespace zarn

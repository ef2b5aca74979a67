/// The clock, and other programs.
#pragma once
#include <cstdint>
#include <string_view>

namespace zarn
{
/// Milliseconds since some start; wraps after 49.7 days. Any thread.
[[nodiscard]] uint32_t GetTickCount();
/// Starts the user's text editor on a listing. sCommandLine is "Notepad " and the file; false when it can't be started.
bool CreateProcessA(std::string_view sCommandLine);
} // namespace zarn

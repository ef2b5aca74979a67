/// The hints that the dialog of a new tune shows.
#pragma once
#include <cstdint>
#include <string_view>

namespace zarn
{
constexpr int32_t lHints = 39;

/// Hint 0 to 38, at most 150 bytes, some in two lines.
[[nodiscard]] std::string_view Hint(int32_t n);
/// The hint of a clock that counts milliseconds: another one from one time to the next, with no random numbers.
[[nodiscard]] std::string_view HintAt(uint32_t lMs);
} // namespace zarn

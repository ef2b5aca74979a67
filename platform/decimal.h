/// Whole numbers in words.
#pragma once
#include <charconv>
#include <cstdint>
#include <string_view>

namespace zarn
{
/// The whole text as a decimal number, with or without a minus sign; false, and lNumber of no meaning, when it is
/// anything else or beyond 32 bits.
[[nodiscard]] inline bool ParseDecimal(std::string_view sText, int32_t& lNumber)
{
    char const* const pEnd = sText.data() + sText.size();
    auto const [p, error] = std::from_chars(sText.data(), pEnd, lNumber);
    return error == std::errc() && p == pEnd;
}
} // namespace zarn

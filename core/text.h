/// Formatting in the manner of printf, and 32-bit arithmetic that wraps.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
/// printf into a string; a text of any length.
[[gnu::format(printf, 1, 2)]] [[nodiscard]] std::string Format(char const* sFormat, ...);

/// The trace channel. It discards its text unless somebody listens.
void DebugLog(std::string_view sText);

/// Who listens to the trace channel; null for nobody. Main thread.
inline void (*pDebugLogSink)(std::string_view sText) = nullptr;

/// a + b, a - b and a * b as 32-bit numbers that wrap, for values that a file or a user can drive out of range.
[[nodiscard]] constexpr int32_t Wrap_Add(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}
[[nodiscard]] constexpr int32_t Wrap_Sub(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}
[[nodiscard]] constexpr int32_t Wrap_Mul(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

/// A 64-bit result held in the range of 32 bits.
[[nodiscard]] constexpr int32_t Clamp32(int64_t l)
{
    return l > INT32_MAX ? INT32_MAX : l < INT32_MIN ? INT32_MIN : static_cast<int32_t>(l);
}
} // namespace zarn

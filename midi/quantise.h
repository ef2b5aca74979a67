/// Note lengths as the notation writes them.
#pragma once
#include <algorithm>
#include <cstdint>

namespace zarn
{
constexpr int32_t lQuantumDiv = 16;             ///< quanta in a semibreve
constexpr int32_t lQuantum = 192 / lQuantumDiv; ///< ticks

/// The nearest quantum, if a note of that length can be written, else the longest shorter one of the plain, dotted and
/// triplet lengths up to 288 ticks. Half a quantum and less than nothing give 0.
[[nodiscard]] int32_t Quantise(int32_t lTicks);

/// Toward zero, held in the range of 32 bits. Any number but one that is none.
[[nodiscard]] constexpr int32_t Truncate(double d)
{
    return static_cast<int32_t>(std::clamp(d, static_cast<double>(INT32_MIN), static_cast<double>(INT32_MAX)));
}
} // namespace zarn

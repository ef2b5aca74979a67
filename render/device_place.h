/// Lengths and places in device pixels that leave room in 32 bits for the symbol around them. Margins that a user types
/// and scores that a damaged file holds can ask for any.
#pragma once
#include <algorithm>
#include <cstdint>

namespace zarn
{
/// A length on a page: at most 1,000,000 pixels either way.
[[nodiscard]] inline int32_t DeviceLength(int64_t l)
{
    constexpr int64_t lLongest = 1'000'000;
    return static_cast<int32_t>(std::clamp(l, -lLongest, lLongest));
}

/// A place on a page: at most 1,000,000,000 pixels either way.
[[nodiscard]] inline int32_t DevicePlace(int64_t l)
{
    constexpr int64_t lFurthest = 1'000'000'000;
    return static_cast<int32_t>(std::clamp(l, -lFurthest, lFurthest));
}
} // namespace zarn

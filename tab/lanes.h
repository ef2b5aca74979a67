/// Eight 16-bit numbers that are added and compared at once.
#pragma once
#include <cstddef>
#include <cstdint>

namespace zarn
{
using LaneVector [[gnu::vector_size(16)]] = int16_t;

struct Lanes
{
    LaneVector v = {};
};
constexpr size_t lLanes = sizeof(LaneVector) / sizeof(int16_t);

/// Vectors that hold n numbers.
[[nodiscard]] constexpr size_t Lanes_For(size_t n) { return (n + lLanes - 1) / lLanes; }
} // namespace zarn

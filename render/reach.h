/// How far a symbol that joins two places looks for the other one.
#pragma once
#include <cstdint>

namespace zarn
{
/// Elements that a tie, a slur or a first-time bar may reach over: hundreds of bars. What a damaged file joins beyond
/// that counts as not joined, so that a paint costs in proportion to the score.
constexpr int32_t lLongestReach = 2000;
} // namespace zarn

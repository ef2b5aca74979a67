/// What a way of playing costs, by itself and as the next one after another.
///
/// Each term is truncated by itself and stands in 64 bits; only a whole price is held in 32. Reads the weights of
/// weights.h.
#pragma once
#include "tab/fingers.h"

namespace zarn
{
/// The price of a record by itself. Below 0 only for open strings alone, or by weights below 0.
[[nodiscard]] int32_t Fingers_OwnCost(Fingers const& f);

/// The price of arriving at b from a, lCost of both included; b's is still its own.
[[nodiscard]] int32_t Fingers_Transition(Fingers const& a, Fingers const& b);
} // namespace zarn

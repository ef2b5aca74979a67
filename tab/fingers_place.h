/// Every way in which a hand can play a chord, in the order in which the search tries them.
#pragma once
#include "tab/fingers.h"

#include <span>
#include <vector>

namespace zarn
{
/// A chord of more than six different pitches is played by its first six.
constexpr size_t cMostPitches = 6;

/// All ways of playing the pitches, which are all different, each on a string of its own, with their own prices as
/// lCost. The order decides between equal prices later: strings from the treble up for the first pitch, then the
/// second; for each choice of strings the fingers' places, finger 1 slowest. Empty when nothing is playable.
[[nodiscard]] std::vector<Fingers> PrimeFingerings(std::span<int32_t const> aPitches);
} // namespace zarn

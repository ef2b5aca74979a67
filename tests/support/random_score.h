/// Scores by chance: what a player could have written, and what no sane file holds.
#pragma once
#include "core/score.h"

#include <cstdint>
#include <random>

namespace zarn::test
{
/// Appends about lCount symbols to a staff: notes, chords with accidentals inside, rests, words, harmonies, signs of
/// every kind, all well formed. Numbers stay small.
void WriteRandomStaff(std::mt19937& random, int32_t lStaff, int32_t lCount);

/// Appends lCount symbols whose fields hold anything at all.
void WriteHostileStaff(std::mt19937& random, int32_t lStaff, int32_t lCount);
} // namespace zarn::test

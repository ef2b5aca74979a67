/// ABC's notes and rests, and the marks that change them. Each reader takes the position of its sign and gives the one
/// to go on from.
#pragma once
#include "abc/abc_lines.h"

#include <cstdint>

namespace zarn
{
int32_t ReadNote(AbcLine const& line, int32_t i);
int32_t ReadRest(AbcLine const& line, int32_t i);
int32_t ReadSharp(AbcLine const& line, int32_t i);
int32_t ReadNatural(AbcLine const& line, int32_t i);
int32_t ReadFlat(AbcLine const& line, int32_t i);
int32_t ReadAccidental(AbcLine const& line, int32_t i); ///< any of the three
int32_t ReadTuplet(AbcLine const& line, int32_t i);     ///< at the "("
int32_t ReadChordStart(AbcLine const& line, int32_t i); ///< "[", or "+" outside a chord
int32_t ReadChordEnd(int32_t i);                        ///< "]", or "+" inside one

/// The duration under k signs of broken rhythm: each adds half of what the one before added, or takes it off when k is
/// below 0. Held in 32 bits.
[[nodiscard]] int32_t AbcScale(int32_t lDuration, int32_t k);
} // namespace zarn

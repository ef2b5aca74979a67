/// Chords in the order that the rest of the program relies on.
#pragma once
#include <cstddef>
#include <cstdint>

namespace zarn
{
/// A chord with more notes than this is no music; equal pitches in it keep the order in which they came.
constexpr size_t cLargestExchangedChord = 64;

/// Sorts each chord of a staff, 1 to 8, by rising lDiaPitch, and sets its chord bits. The contents of the notes change
/// places; their addresses stay.
void OrderChords(int32_t lStaff);
} // namespace zarn

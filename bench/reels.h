/// Reels made by rule, in the manner of the tradition: what the benchmarks and the comparison run on.
#pragma once
#include <cstdint>
#include <string>

namespace zarn::bench
{
/// One ABC tune of lNotes notes in all, dealt out evenly to lStaffs voices (1 to 8): two-part reels of eight-bar parts,
/// every part repeated, with beams, chords, accidentals, triplets, rolls, slurs and guitar chords. The same numbers
/// give the same text on every machine.
[[nodiscard]] std::string MakeReels(int32_t lNotes, int32_t lStaffs);
} // namespace zarn::bench

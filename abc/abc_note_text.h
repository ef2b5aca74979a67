/// How ABC spells a note's place and a length.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
/// "C" for middle C, "c" an octave above, then "c'" and "c''"; "C," and "C,," below. "X" beyond -14..27.
[[nodiscard]] std::string_view AbcNoteName(int32_t lDiaPitch);

/// A note's length in quavers, of ticks: nothing for one quaver or for 0, "/" for half of one, else "3", "/4" or "2/3".
[[nodiscard]] std::string AbcNoteLength(int32_t lDuration);

/// "z" with its length, and the blanks behind it: a fraction of one quaver has had two of them ever since.
[[nodiscard]] std::string AbcRest(int32_t lDuration);
} // namespace zarn

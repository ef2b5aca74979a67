/// How a search that takes long is watched, and how it is called off.
#pragma once
#include <cstdint>

namespace zarn
{
/// Called with the chords that are done and all chords of the stretch, from the second second of a search on, ten times
/// a second at most. False calls the search off: the notes keep what they had.
using FingeringWatch = bool (*)(int32_t lDone, int32_t lTotal);

/// Null for nobody. Set by start-up and by the command line. Main thread.
inline FingeringWatch pFingeringWatch = nullptr;
} // namespace zarn

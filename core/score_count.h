/// Which Score is in hand, for who remembers places of one.
#pragma once
#include <cstdint>

namespace zarn
{
/// Counts Score_EmptyStaffs: another count, another Score. Main thread.
inline int32_t cScoresBegun = 0;
} // namespace zarn

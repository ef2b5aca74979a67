/// Brings lPitch of every note up to date, by building a play list and throwing it away.
#pragma once
#include <cstdint>

namespace zarn
{
/// Staffs 0 to lLastStaff, 8 at most.
void RefreshPitches(int32_t lLastStaff);
} // namespace zarn

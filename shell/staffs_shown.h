/// Showing and hiding staffs.
#pragma once
#include <cstdint>

namespace zarn
{
/// The staff, 1 to 8, comes or goes; the view keeps its place in the music, and an empty staff gets the opening signs.
void ShowOrHideStaff(int32_t lStaff);
} // namespace zarn

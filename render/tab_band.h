/// The band of the tablature below a staff: its strings in pixels, and the way back.
///
/// String 1 stands at the height of the staff's top line, one band below it; strings are two rows apart. The band is a
/// whole number of pixels below its staff, so that its lines keep their distance from the staff's at every size.
#pragma once
#include <cstdint>

namespace zarn
{
/// The place of a column on a string.
void TabFold(int32_t lStrX, int32_t lString, int32_t lStaff, int32_t* plX, int32_t* plY);

/// The column and the nearest string of a pixel, on the first staff that shows; a string from 1, 0 when there is none.
void TabStraighten(int32_t lX, int32_t lY, int32_t* plStrX, int32_t* plString, int32_t* plStaff);

/// True while tablature shows and the point is as high as its strings.
[[nodiscard]] bool OnTablature(int32_t x, int32_t y);
} // namespace zarn

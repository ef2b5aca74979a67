/// The marker of the place that is being played: a light band through the staffs of a line, behind its symbols.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// Where the marker of a column stands, in pixels of the page: at the last symbol that isn't behind the column, on its
/// line. Without such a symbol where the column itself is.
[[nodiscard]] RECT PlayMarker_Box(int32_t lStrX);
/// Draws it; ahead of the score, so that symbols stand in front of it.
void PlayMarker_Draw(HDC hdc, int32_t lStrX);
} // namespace zarn

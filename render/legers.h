/// Leger lines above and below a staff.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// The lines that a head at lDiaPitch needs, drawn at pixel lX; none for a pitch one step beyond the staff. 0 when none
/// was drawn.
int32_t DrawLegers(HDC hdc, int32_t lX, int32_t lStrX, int32_t lStaff, int32_t lDiaPitch, int32_t lClef);
} // namespace zarn

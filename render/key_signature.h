/// Key signatures: the naturals of the old key that go, a gap, and the signs of the new one, a column each.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// A key outside -7..7 draws seven signs. lOldKey is the key it replaces. 0 when nothing was drawn.
int32_t DrawKeySig(HDC hdc, int32_t lX, int32_t lY, int32_t lKey, int32_t lOldKey, int32_t lClef, bool bCursor);
/// One sign at a place of the grid; any sort but the three accidentals shows a message.
int32_t DrawKeySigElement(HDC hdc, int32_t lStrX, int32_t lDiaPitch, int32_t lStaff, int32_t lSort, int32_t lClef);
} // namespace zarn

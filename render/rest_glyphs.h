/// Rests. Reports 0 when off the page.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// A rest of lDuration ticks, its dot included; shorter than a dotted hemidemisemiquaver nothing shows.
int32_t DrawRest(HDC hdc, int32_t x, int32_t y, int32_t lDuration, bool bDotted);
} // namespace zarn

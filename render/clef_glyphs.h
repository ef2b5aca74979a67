/// Clefs. Reports 0 when off the page, or for a clef that doesn't exist.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// lClef 1 treble, 2 alto, 3 bass, 4 tenor, which has the alto's glyph; any other shows a message.
int32_t DrawClef(HDC hdc, int32_t x, int32_t y, int32_t lClef);
} // namespace zarn

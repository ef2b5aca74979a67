/// Harmonies, lyrics, titles, free texts and annotations.
#pragma once
#include "core/element.h"
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// Draws a text sort's text, a placeholder when it has no visible character, and a short sample in a cursor that has no
/// text yet.
int32_t DrawTextSymbol(HDC hdc, Element const* pel, bool bCursor);
} // namespace zarn

/// The line over a first-time bar.
#pragma once
#include "core/element.h"
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// From a REPEATFIRST to the sign that ends its repeat, a piece for each line of music; nothing when no sign does.
int32_t DrawFirstTimeBar(HDC hdc, Element* pel);
} // namespace zarn

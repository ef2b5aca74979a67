/// How many columns a symbol takes.
#pragma once
#include "core/element.h"

#include <string_view>

namespace zarn
{
/// Columns that a symbol takes, by its sort; any sort, also one that doesn't exist.
[[nodiscard]] int32_t Element_Width(Element const* pel);
/// Columns that a text takes: 30 per cent more than it measures, rounded up, and one more.
[[nodiscard]] int32_t TextColumns(std::string_view sText);
} // namespace zarn

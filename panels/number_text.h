/// The number reader of all dialogs.
#pragma once
#include <cstdint>
#include <string_view>

namespace zarn
{
/// One leading '-' or '+', then digits up to the first other character; 0 for a text that begins otherwise. Numbers
/// beyond 32 bits give the nearest one.
[[nodiscard]] int32_t AtoiLoose(std::string_view sText);
} // namespace zarn

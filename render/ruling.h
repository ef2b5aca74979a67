/// Staff lines, ruled for a line of music when a symbol has just been drawn on it.
#pragma once
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
/// Rules the line of lStrX, and on the screen the next one too, unless this paint has ruled it already.
void RuleLine(HDC hdc, HWND hwnd, int32_t lStrX);
/// Rules all bands of a system, numbered from 1.
void RuleSystem(HDC hdc, int32_t lSystem);
} // namespace zarn

/// Setting the current symbol: elCurrent is made anew from the defaults each time.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Any sort, with its lA and lB.
void CurrentSymbol_Set(int32_t sort, int32_t lA = 0, int32_t lB = 0);
/// A NOTE of volume 64 and a REST, of lDuration ticks. A duration above 192 gets a message and stands.
void CurrentSymbol_SetNote(int32_t lDuration);
void CurrentSymbol_SetRest(int32_t lDuration);
} // namespace zarn

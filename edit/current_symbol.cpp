// elCurrent, the template of the next add.
#include "edit/current_symbol.h"

#include "core/messages.h"

namespace zarn
{
static constexpr int32_t lLongestUnremarked = 192; ///< ticks: a semibreve
static constexpr int32_t lDefaultVolume = 64;

void CurrentSymbol_Set(int32_t sort, int32_t lA, int32_t lB)
{
    Element_Init(&elCurrent);
    elCurrent.sort = sort;
    elCurrent.lA = lA;
    elCurrent.lB = lB;
}

static void SetDuration(int32_t lDuration)
{
    if (lDuration > lLongestUnremarked)
        Serious("Too long.  Boredom coefficient > 1.0");
    elCurrent.lDuration = lDuration;
}

void CurrentSymbol_SetNote(int32_t lDuration)
{
    CurrentSymbol_Set(NOTE, 0, lDefaultVolume);
    SetDuration(lDuration);
}

void CurrentSymbol_SetRest(int32_t lDuration)
{
    CurrentSymbol_Set(REST);
    SetDuration(lDuration);
}
} // namespace zarn

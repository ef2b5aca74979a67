// Note modifiers.
#include "edit/modifiers.h"

#include "core/messages.h"

namespace zarn
{
static void SetFlag(int32_t lFlag, char const* sRefusal)
{
    if (!pelInsertPoint || pelInsertPoint->sort != NOTE)
        Serious(sRefusal);
    if (pelInsertPoint)
        pelInsertPoint->lA |= lFlag;
}

void SetOrnament() { SetFlag(fOrnament, "Attempt to ornament something that's not a note"); }

void SetStaccato() { SetFlag(fStaccato, "Attempt to staccato something that's not a note"); }

static bool StartsBeamSet(Element const* pel)
{
    return pel->sort == NOTE && pel->beam == BEAM_FIRST && (pel->lA & fChordBefore) == 0;
}

static bool EndsBeamSet(Element const* pel)
{
    return pel->sort == NOTE && pel->beam == BEAM_LAST && (pel->lA & fChordMore) == 0;
}

void UnbeamSet(Element* pel)
{
    if (!pel)
        return;
    if (!StartsBeamSet(pel))
    {
        bool bStart = false;
        for (Element* pelBack = Prev(pel); pelBack && !bStart; pelBack = Prev(pelBack))
        {
            bStart = StartsBeamSet(pelBack);
            pelBack->beam = BEAM_NONE;
        }
    }
    bool bEnd = false;
    for (; pel && !bEnd; pel = Next(pel))
    {
        bEnd = EndsBeamSet(pel);
        pel->beam = BEAM_NONE;
    }
}
} // namespace zarn

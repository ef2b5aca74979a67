// The carried key and accidentals.
#include "core/signs_in_force.h"

#include "core/pitch.h"
#include "core/score.h"

namespace zarn
{
SignsInForce::SignsInForce(Element const* pel)
{
    Element const* pelFirst = pel;
    for (Element const* pelAhead = Prev(pel); pelAhead; pelAhead = Prev(pelAhead))
        pelFirst = pelAhead;
    for (Element const* pelAt = pelFirst; pelAt != pel; pelAt = Next(pelAt))
        Pass(pelAt);
}

void SignsInForce::Pass(Element const* pel)
{
    if (Sort_EndsAccidentals(pel->sort))
        aAccids.erase(pel->lStaff);
    else if (Sort_IsAccidental(pel->sort))
        aAccids[pel->lStaff][pel->lDiaPitch] = AccidentalState(pel->sort);
    if (pel->sort == KEYSIG)
        aKeys[pel->lStaff] = pel->lA;
}

int32_t SignsInForce::Accid(int32_t lStaff, int32_t lDiaPitch) const
{
    auto const staff = aAccids.find(lStaff);
    if (staff == aAccids.end())
        return 0;
    auto const state = staff->second.find(lDiaPitch);
    return state == staff->second.end() ? 0 : state->second;
}

int32_t SignsInForce::Key(int32_t lStaff) const
{
    auto const key = aKeys.find(lStaff);
    return key == aKeys.end() ? 0 : key->second;
}
} // namespace zarn

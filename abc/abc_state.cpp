// Building a staff's header, and what the readers share.
#include "abc/abc_state.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/insert.h"
#include "edit/text.h"

namespace zarn
{
namespace
{
constexpr int32_t lCrotchet = 48; ///< ticks
constexpr int32_t lQuaver = 24;
constexpr int32_t lSemiquaver = 12;
constexpr int32_t lThreeFour = 36; ///< 48 * 3 / 4: meters of that much or more count in quavers
constexpr int32_t lClefHeight = 4;
constexpr int32_t lTreble = 1;

void SetDefaultUnit()
{
    if (abc.lUnit == 0)
        abc.lUnit = int64_t{lCrotchet} * abc.lMeterNum / abc.lMeterDen >= lThreeFour ? lQuaver : lSemiquaver;
}
} // namespace

void AbcAdd(int32_t lDiaPitch, int32_t sort, int32_t lA, int32_t lB)
{
    CurrentSymbol_Set(sort, lA, lB);
    AddAtInsertPoint(lDiaPitch, false);
}

void AbcExpect(bool bRight, char const* sBug)
{
    if (bRight)
        return;
    Serious(sBug);
    Serious_Rearm();
}

void AbcStartTune()
{
    if (abc.bTuneStarted)
        return;
    SelectInsertStaff(abc.lVoice);
    if (abc.lVoice == 1)
        Text_AddAtInsertPoint(abc.sTitle, static_cast<int32_t>(abc.sTitle.size()), TITLE, false);
    SetDefaultUnit();
    AbcAdd(lClefHeight, CLEF, lTreble);
    if (abc.lKey != 0)
        AbcAdd(lAbcSignHeight, KEYSIG, abc.lKey);
    AbcAdd(lAbcSignHeight, TIMESIG, abc.lMeterNum, abc.lMeterDen);
    if (abc.lTempo != 0)
        AbcAdd(lAbcAboveHeight, TEMPO, Clamp32(int64_t{abc.lTempo} * abc.lUnit / lCrotchet));
    abc.bTuneStarted = true;
    abc.bBodySeen = true;
}
} // namespace zarn

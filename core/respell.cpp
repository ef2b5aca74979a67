// A new key signature, and the notes behind it.
#include "core/respell.h"

#include "core/messages.h"
#include "core/text.h"

namespace zarn
{
/// Moves the note one step in the key's own direction and marks it so that it sounds as before.
static void Respell(Element* pelNote, int32_t lKey, int32_t lAccid)
{
    int32_t const lNewPitch = pelNote->lDiaPitch + lAccid;
    int32_t const lState = AccidStateAt(pelNote, lNewPitch);
    int32_t const lUnmarked = MidiFromPitch(lNewPitch, lKey, lState, 0);
    int32_t const lRestore = lState != 0 ? lState : KeyAccid(lKey, lNewPitch);
    pelNote->lPitch = MidiFromPitch(pelNote->lDiaPitch, lKey, lAccid, 0);
    pelNote->lDiaPitch = lNewPitch;
    if (pelNote->lPitch == lUnmarked)
        return;

    int32_t const lNatural = MidiFromPitch(lNewPitch, 0, 0, 0);
    int32_t lMark = 0;
    if (pelNote->lPitch == lNatural)
        lMark = 2;
    else if (pelNote->lPitch == lNatural + 1)
        lMark = 1;
    else if (pelNote->lPitch == lNatural - 1)
        lMark = -1;
    else
        Serious(Format("Bug in MakeAccidentalsMatchKeySig  %d %d %d %d %d.  Tell Odrian!", pelNote->lPitch, lUnmarked,
                       lNatural, lRestore, lKey));
    AddAccidental(pelNote, lMark, lNewPitch, true);
    if (lRestore != 0)
        AddAccidental(pelNote, lRestore, lNewPitch, false);
}

Element* MakeAccidentalsMatchKeySig(int32_t lKey, Element* pel)
{
    int32_t const lDirection = (lKey > 0) - (lKey < 0);
    for (; pel && pel->sort != KEYSIG; pel = Next(pel))
    {
        if (pel->sort != NOTE || lDirection == 0)
            continue;
        if (AccidStateAt(pel, pel->lDiaPitch) == -lDirection)
            Respell(pel, lKey, -lDirection);
    }
    return pel;
}

void MakeStaffMatchKeySigs(int32_t lStaff)
{
    Element* pel = StaffFirst(lStaff);
    int32_t lKey = 0;
    while (pel)
    {
        pel = MakeAccidentalsMatchKeySig(lKey, pel);
        if (!pel)
            return;
        if (pel->sort != KEYSIG)
        {
            Serious("Bug! MakeAccidentalsMatchKeySig is returning non KEYSIG pel.  Tell Odrian!");
            return;
        }
        lKey = pel->lA;
        pel = Next(pel);
    }
}

Element* KeepPitchesOverKeyChange(int32_t lNewKey, int32_t lOldKey, Element* pel)
{
    Element* pelFirst = pel;
    while (pel && pel->sort != KEYSIG)
    {
        if (Sort_IsAccidental(pel->sort) && !AccidNeeded(pel))
        {
            Element* const pelNext = Next(pel);
            if (pel == pelFirst)
                pelFirst = pelNext;
            Element_Remove(pel);
            pel = pelNext;
            continue;
        }
        if (pel->sort == NOTE && AccidStateAt(pel, pel->lDiaPitch) == 0)
        {
            int32_t const lOld = KeyAccid(lOldKey, pel->lDiaPitch);
            if (KeyAccid(lNewKey, pel->lDiaPitch) != lOld)
            {
                AddAccidental(pel, lOld, pel->lDiaPitch, true);
                if (pel == pelFirst)
                    pelFirst = Prev(pel);
            }
        }
        pel = Next(pel);
    }
    return pelFirst;
}
} // namespace zarn

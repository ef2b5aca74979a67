// A slur is two SLUR elements that know each other.
#include "edit/slur_mark.h"

#include "core/messages.h"
#include "core/score.h"

namespace zarn
{
static constexpr int32_t lSlurHeight = 12; ///< diatonic position, whatever the clef

/// One end, at the column of pel.
static Element SlurEnd(Element const* pel, int32_t lStaff, int32_t lEnd)
{
    Element el;
    el.sort = SLUR;
    el.lA = lEnd;
    el.lDiaPitch = lSlurHeight;
    el.lStrX = pel->lStrX;
    el.lX = pel->lX;
    el.lTime = pel->lTime;
    el.lStaff = lStaff;
    return el;
}

void SlurMark()
{
    if (!pelMarkBegin || !pelMarkEnd)
    {
        Serious("You must mark the section to be slurred (See Edit menu) before you can slur it");
        return;
    }
    int32_t const lStaff = pelMarkBegin->lStaff;
    Element const elFirst = SlurEnd(pelMarkBegin, lStaff, 0);
    Element const elSecond = SlurEnd(pelMarkEnd, lStaff, 1);
    List const list = aStaffList[lStaff];
    List_AddBefore(list, pelMarkBegin, &elFirst, cbPlainElement);
    List_AddAfter(list, pelMarkEnd, &elSecond, cbPlainElement);
    Element* const pelFirst = Prev(pelMarkBegin);
    Element* const pelSecond = Next(pelMarkEnd);
    if (!pelFirst || !pelSecond)
        return; // memory has run out
    pelFirst->pelPartner = pelSecond;
    pelSecond->pelPartner = pelFirst;
    pelMarkBegin = pelFirst;
    pelMarkEnd = pelSecond;
    lUndoState = UNDO_NOTHING;
    bScoreDirty = true;
    bTimesValid = false;
}
} // namespace zarn

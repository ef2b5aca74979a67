// The signs that open a staff or a line.
#include "core/messages.h"
#include "layout/adjust.h"
#include "layout/bars.h"
#include "layout/element_width.h"

namespace zarn
{
constexpr int32_t lUnknown = -999;       ///< what ScoreOpening leaves when the piece doesn't tell
constexpr int32_t lMiddleOfTreble = 6;   ///< the middle line of a staff, in the treble frame
constexpr int32_t lNoSuchKeyBelow = -50; ///< above it a key was told

static void Add(List list, Element* pel, Element& el, int32_t lStaff)
{
    el.lStaff = lStaff;
    el.lWidth = Element_Width(&el);
    List_AddBefore(list, pel, &el, el.storage);
}

void AddClefBefore(List list, Element* pel, int32_t lStaff, int32_t lClef)
{
    Element el;
    el.sort = CLEF;
    el.lA = lClef;
    if (lClef == 1)
        el.lDiaPitch = 4;
    else if (lClef >= 2 && lClef <= 4)
        el.lDiaPitch = -4;
    Add(list, pel, el, lStaff);
}

void AddKeySigBefore(List list, Element* pel, int32_t lKey, int32_t lOldKey, int32_t lClef, int32_t lStaff)
{
    Element el;
    el.sort = KEYSIG;
    el.lA = lKey;
    el.lB = lOldKey;
    el.lDiaPitch = lClef >= 1 && lClef <= 4 ? lMiddleOfTreble - ClefOffset(lClef) : 0;
    Add(list, pel, el, lStaff);
}

void AddTimeSigBefore(List list, Element* pel, int32_t lNum, int32_t lDen, int32_t lClef, int32_t lStaff)
{
    Element el;
    el.sort = TIMESIG;
    el.lA = lNum;
    el.lB = lDen;
    el.lDiaPitch = lMiddleOfTreble - ClefOffset(lClef);
    Add(list, pel, el, lStaff);
}

void SeedStaff(int32_t lStaff)
{
    if (lStaff < 0 || lStaff > lHighestStaff || !List_IsEmpty(aStaffList[lStaff]))
        return;
    int32_t lClef = lUnknown;
    int32_t lKey = lUnknown;
    int32_t lNum = lUnknown;
    int32_t lDen = lUnknown;
    ScoreOpening(lClef, lKey, lNum, lDen);
    List const list = aStaffList[lStaff];
    if (lClef >= 0)
        AddClefBefore(list, nullptr, lStaff, lClef);
    if (lKey > lNoSuchKeyBelow)
        AddKeySigBefore(list, nullptr, lKey, 0, lClef, lStaff);
    if (lDen > 0)
        AddTimeSigBefore(list, nullptr, lNum, lDen, lClef, lStaff);
}

void NewTuneOpening(int32_t lClef, int32_t lKey, int32_t lNum, int32_t lDen)
{
    AddClefBefore(aStaffList[1], nullptr, 1, lClef);
    AddKeySigBefore(aStaffList[1], nullptr, lKey, 0, lClef, 1);
    AddTimeSigBefore(aStaffList[1], nullptr, lNum, lDen, lClef, 1);
    FullAdjust();
}
} // namespace zarn

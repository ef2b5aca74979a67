// The merge itself: whose turn it is, and who is pushed.
//
// Every call of PlaceOthers takes at least the master's own staff one anchor further, and only clefs and keys are
// added, which are no anchors: so the merge ends. Its cost is the number of elements, and eight staffs looked at for
// each anchor.
#include "layout/place.h"

#include "core/messages.h"
#include "core/text.h"
#include "layout/bars.h"
#include "layout/element_width.h"
#include "layout/merge.h"
#include "render/geometry.h"

namespace zarn
{
constexpr int32_t lFirstClefColumn = 3;

/// The staff's first element, which is a clef from now on.
static Element* OpenStaff(int32_t lStaff)
{
    for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        pel->lStrX = 0;
    Element* pel = FirstOnStaff(lStaff);
    if (!pel)
        return nullptr;
    if (pel->sort != CLEF)
    {
        AddClefBefore(aStaffList[lStaff], pel, lStaff, ClefAt(pel));
        int32_t const lMinusInx = Wrap_Sub(0, pel->inx);
        pel = Prev(pel);
        pel->inx = lMinusInx;
    }
    pel->lStrX = lFirstClefColumn;
    pel->lTime = 0;
    pel->lWidth = Element_Width(pel);
    return pel;
}

void Place()
{
    Merge merge;
    merge.lHighest = 0;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsVisible(lStaff))
            continue;
        Element* const pelFirst = OpenStaff(lStaff);
        if (!pelFirst)
            continue;
        merge.lHighest = lStaff;
        merge.apelDone[lStaff] = pelFirst;
        merge.apelNext[lStaff] = NextAnchor(pelFirst);
        TempPlace(pelFirst, merge.apelNext[lStaff]);
        merge.abLineFresh[lStaff] = true;
    }
    while (int32_t const lMaster = MasterElement(merge))
        PlaceOthers(merge, lMaster);
    ReGrid();
}

static bool GoesBefore(Element const* pel, Element const* pelCandidate)
{
    if (pel->lTime != pelCandidate->lTime)
        return pel->lTime < pelCandidate->lTime;
    return pel->sort == NEWLINE || pelCandidate->lStrX < pel->lStrX;
}

int32_t MasterElement(Merge const& merge)
{
    int32_t lMaster = 0;
    for (int32_t lStaff = 1; lStaff <= merge.lHighest; ++lStaff)
        if (Element const* const pel = merge.apelNext[lStaff])
            if (lMaster == 0 || GoesBefore(pel, merge.apelNext[lMaster]))
                lMaster = lStaff;
    return lMaster;
}

/// Moves the whole run since the last aligned element, so that the gap opens ahead of the anchor's run.
static void PushTo(Element* pelDone, Element* pelAnchor, int32_t lStrX)
{
    int64_t const lShift = int64_t{lStrX} - pelAnchor->lStrX;
    if (lShift <= 0)
        return;
    for (Element* pel = Next(pelDone); pel; pel = Next(pel))
    {
        pel->lStrX = Clamp32(pel->lStrX + lShift);
        if (pel == pelAnchor)
            return;
    }
}

/// The bar of lMaster's staff straddles two lines.
static bool Straddles(Merge const& merge, int32_t lMaster, Element const* pelMaster)
{
    Element const* const pelBar = merge.apelLastBar[lMaster];
    return pelBar && LineStart(pelBar->lStrX) != LineStart(pelMaster->lStrX);
}

/// The staff's anchor stands where it stays: the staff goes on to the next one.
static void Advance(Merge& merge, int32_t lStaff)
{
    Element* const pelDone = merge.apelNext[lStaff];
    if (pelDone->sort == BAR)
        merge.abLineFresh[lStaff] = false;
    merge.apelDone[lStaff] = pelDone;
    if (Sort_IsBarLike(pelDone->sort))
        merge.apelLastBar[lStaff] = pelDone;
    Element* const pelAfter = Next(pelDone);
    Element* const pelNext = merge.apelNext[lStaff] = NextAnchor(pelAfter);
    if (pelNext && (pelAfter->sort == NEWLINE || pelNext->sort == NEWLINE))
    {
        RestartLine(pelAfter, lStaff);
        merge.abLineFresh[lStaff] = true;
    }
    TempPlace(pelDone, pelNext);
}

void PlaceOthers(Merge& merge, int32_t lMaster)
{
    Element const* const pelMaster = merge.apelNext[lMaster];
    if (!pelMaster)
    {
        Serious("PlaceOthers called with NULL pel");
        return;
    }
    int32_t const lTime = pelMaster->lTime;
    for (int32_t lStaff = 1; lStaff <= merge.lHighest; ++lStaff)
    {
        Element* const pel = merge.apelNext[lStaff];
        if (!pel || pel->lTime != lTime)
            continue;
        // The master moves when its bar spills, so its column is read for each staff.
        PushTo(merge.apelDone[lStaff], pel, pelMaster->lStrX);
        if (bKeepBarsTogether && !merge.abLineFresh[lStaff] && (Sort_IsBarLike(pel->sort) || !Next(pel)) &&
            Straddles(merge, lMaster, pelMaster))
            SpillBar(merge, lMaster);
        Advance(merge, lStaff);
    }
}
} // namespace zarn

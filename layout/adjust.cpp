// Full Adjust and Mini Adjust: the passes in their order.
#include "layout/adjust.h"

#include "layout/bars.h"
#include "layout/clean_up.h"
#include "layout/place.h"
#include "midi/score_times.h" // times are the last step of the layout, and the first of playing
#include "render/beam_groups.h"
#include "render/geometry.h"
#include "render/ruled_lines.h"

namespace zarn
{
template <typename Pass>
static void ForEachVisibleStaff(Pass pass)
{
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        if (IsVisible(lStaff))
            pass(lStaff);
}

/// What both have in common, once the bars stand.
static void BeamAndPlace()
{
    ForEachVisibleStaff([](int32_t lStaff) { AutoBeam(StaffFirst(lStaff)); });
    Place();
    ForEachVisibleStaff([](int32_t lStaff) { BeamCheck(aStaffList[lStaff]); });
    Score_SetTimes();
    bTimesValid = true;
    RuledLines_Reset();
}

void FullAdjust()
{
    pelHighlight = nullptr;
    ForEachVisibleStaff(
        [](int32_t lStaff)
        {
            RemoveBars(StaffFirst(lStaff), lDefaultBarLength);
            InsertBars(StaffFirst(lStaff), lDefaultBarLength);
        });
    BeamAndPlace();
}

void MiniAdjust()
{
    pelHighlight = nullptr;
    ForEachVisibleStaff([](int32_t lStaff) { RemoveRedundant(aStaffList[lStaff]); });
    BeamAndPlace();
}
} // namespace zarn

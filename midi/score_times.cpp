// When each element sounds, in ticks from the start of its staff.
#include "midi/score_times.h"

#include "core/text.h"
#include "layout/bars.h"
#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lVolumeAtStart = 64;

void Score_SetTimes()
{
    // The volume isn't reset between staffs: a level set on one carries into the next, until its own VOLUME.
    int32_t lVolume = lVolumeAtStart;
    int64_t alClock[lStaffLists] = {};
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
    {
        if (!afPlay[lStaff])
            continue;
        alClock[lStaff] = 0;
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            int64_t& lClock = alClock[std::clamp(pel->lStaff, 0, lHighestStaff)];
            pel->lTime = Clamp32(lClock);
            if (pel->sort == NOTE)
            {
                pel->lB = lVolume;
                if ((pel->lA & fChordMore) == 0)
                    lClock += pel->lDuration;
            }
            else if (pel->sort == REST)
                lClock += pel->lDuration;
            else if (pel->sort == VOLUME)
                lVolume = pel->lA;
        }
    }
}

TuneMetrics FirstBarInfo(int32_t lStaff)
{
    TuneMetrics metrics;
    int64_t lSum = 0; // every note counts, those of a chord each
    int64_t lFirstBar = 0;
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
    {
        if (pel->sort == NOTE || pel->sort == REST)
            lSum += pel->lDuration;
        else if (pel->sort == BAR && (lFirstBar == 0 || lFirstBar > lSum))
            lFirstBar = lSum;
        else if (pel->sort == KEYSIG)
            metrics.lKey = pel->lA;
        else if (pel->sort == TIMESIG)
        {
            metrics.lNum = pel->lA;
            metrics.lDen = pel->lB;
            // The default pulse is a whole bar, a time signature's half a bar; without a bar length the pulse stays.
            int32_t const lBar = BarLength(pel, 0);
            if (lBar > 0)
                metrics.lPulse = lBar / 2;
        }
        if (metrics.lPulse <= lSum)
            break;
    }
    metrics.lPickup = metrics.lPulse != 0 ? static_cast<int32_t>(lFirstBar % metrics.lPulse) : 0;
    return metrics;
}

TuneMetrics ScoreBarInfo()
{
    TuneMetrics metrics;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        if (IsVisible(lStaff))
            metrics = FirstBarInfo(lStaff);
    return metrics;
}
} // namespace zarn

// The timing arithmetic of a play.
#include "midi/play_times.h"

#include "core/text.h"

namespace zarn
{
constexpr int64_t lRateAtStart = 120; ///< milliseconds a crotchet, of a list that has no preamble
constexpr int64_t lTicksPerCrotchet = 48;

void SetPlayTimes(PlayRecords& listPlay)
{
    int64_t lRate = lRateAtStart;
    int64_t lPrevTick = 0;
    int64_t lClock = 0;
    for (PlayRecord& record : listPlay)
    {
        if (record.lProgram != -1)
            continue;
        if (record.lTempo != -1)
        {
            lRate = record.lTempo;
            continue;
        }
        int64_t lStep = lRate * (record.lTime - lPrevTick) / lTicksPerCrotchet;
        if (fDoubleSpeed)
            lStep /= 2;
        lClock += lStep;
        lPrevTick = record.lTime;
        record.lTime = Clamp32(lClock);
    }
}
} // namespace zarn

// As the editor's Play does it: repeats balanced, times made current.
#include "app/performance.h"

#include "core/score.h"
#include "midi/play_score.h"
#include "midi/score_times.h"

namespace zarn
{
PlayRecords Performance()
{
    BalancedRepeats const repeats;
    if (!bTimesValid)
        Score_SetTimes();
    return TimedPlayRecords(lHighestStaff, 0, ScorePlayStyle(fBarnDance, lSwing));
}
} // namespace zarn

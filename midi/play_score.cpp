// What comes before a play, and its beginning. Behind that the player has all that it needs.
#include "midi/play_score.h"

#include "core/messages.h"
#include "layout/adjust.h"
#include "midi/midi_setup.h"
#include "midi/play_times.h"
#include "midi/player.h"
#include "midi/repeats.h"
#include "midi/score_times.h"

#include <utility>

namespace zarn
{
BalancedRepeats::BalancedRepeats() : bAdded(Score_BalanceRepeats(true) != 0)
{
    if (bAdded)
        FullAdjust();
}

BalancedRepeats::~BalancedRepeats() { Score_StripAddedRepeats(); }

PlayStyle ScorePlayStyle(bool fBarnDance, int32_t lSwing)
{
    TuneMetrics const metrics = ScoreBarInfo();
    return {metrics.lPulse, metrics.lPickup, lSwing, fBarnDance, true};
}

PlayRecords TimedPlayRecords(int32_t lLastStaff, int32_t lStart, PlayStyle const& style)
{
    PlayRecords listPlay;
    BuildPlayList(listPlay, lLastStaff, lStart, style, afPlay);
    SetPlayTimes(listPlay);
    return listPlay;
}

void PlayScore(int32_t lLastStaff, int32_t lStart, PlayStyle const& style)
{
    if (!OpenMidiOut())
        Serious("Cannot play - MIDI not working.");
    else if (Player_IsPlaying())
        Serious("Cannot play.  Previous play not yet complete.");
    else
        Player_Start(TimedPlayRecords(lLastStaff, lStart, style));
}

void PlayFromMark(bool fBarnDance, int32_t lSwing)
{
    if (!bTimesValid)
        Score_SetTimes();
    PlayScore(lHighestStaff, pelMarkBegin ? pelMarkBegin->lTime : 0, ScorePlayStyle(fBarnDance, lSwing));
}
} // namespace zarn

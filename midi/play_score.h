/// From the Score to a play. Main thread.
#pragma once
#include "midi/play_list.h"

#include <cstdint>

namespace zarn
{
/// Repeat signs that balance, laid out, for as long as a play is being built.
class BalancedRepeats
{
public:
    BalancedRepeats();
    ~BalancedRepeats();
    BalancedRepeats(BalancedRepeats const&) = delete;
    BalancedRepeats& operator=(BalancedRepeats const&) = delete;

    bool const bAdded; ///< signs were added, and the whole score laid out
};

/// How the Score is played, by the beat that its opening tells.
/// @param lSwing  0, 24 or 48 ticks
[[nodiscard]] PlayStyle ScorePlayStyle(bool fBarnDance, int32_t lSwing);

/// What a play of the Score from lStart ticks on sends, with times in milliseconds.
[[nodiscard]] PlayRecords TimedPlayRecords(int32_t lLastStaff, int32_t lStart, PlayStyle const& style);

/// Plays the Score and returns at once; opens the output when none is open. Refused while a play runs, and without an
/// output: the user is told.
void PlayScore(int32_t lLastStaff, int32_t lStart, PlayStyle const& style);

/// Makes times current and plays the Score from the beginning of the mark on, or from its own.
void PlayFromMark(bool fBarnDance, int32_t lSwing);
} // namespace zarn

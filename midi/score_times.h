/// When each element sounds, and what the opening bars tell.
#pragma once
#include "core/score.h"

namespace zarn
{
/// lTime of every element and the volume of every note, for staffs that are played.
void Score_SetTimes();

/// What the opening of a staff tells about its beat.
struct TuneMetrics
{
    int32_t lPulse = 192; ///< ticks of the metric pulse
    int32_t lPickup = 0;  ///< ticks of the pickup modulo the pulse
    int32_t lKey = 0;
    int32_t lNum = 4;
    int32_t lDen = 4;
    friend bool operator==(TuneMetrics const&, TuneMetrics const&) = default;
};
[[nodiscard]] TuneMetrics FirstBarInfo(int32_t lStaff);
/// Of the last visible staff.
[[nodiscard]] TuneMetrics ScoreBarInfo();
} // namespace zarn

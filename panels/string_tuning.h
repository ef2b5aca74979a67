/// The dialog of the instrument: how many strings, how they are tuned, and how far the hand stretches.
#pragma once
#include "platform/user.h"

#include <array>
#include <cstdint>

namespace zarn
{
constexpr int32_t lTuningForm = 8005;
constexpr int32_t lTuningStrings = 7012;
constexpr int32_t lTuningTopPitch = 7013;
constexpr int32_t lTuningInterval = 7014; ///< to 7021: to string 2, and on
constexpr int32_t lTuningStretch = 7030;
constexpr int32_t lTuningGuitar = 8020;
constexpr int32_t lTuningMandolin = 8021;
constexpr int32_t lTuningIntervals = 8; ///< that the dialog has fields for

using DialogIntervals = std::array<int32_t, lTuningIntervals>;

/// Asks for the tuning. On OK 1, with what was typed, 0 for the intervals behind the last string, and the span of the
/// hand is in force and stored. On Cancel, and when there can be no dialog, 0, and nothing changes. An answer calls its
/// fields strings, top, interval2 to interval9 and stretch, and its buttons guitar and mandolin.
int32_t StringTuningDialog(HWND hwnd, int32_t* plStrings, int32_t* plTopPitch, DialogIntervals* pIntervals);
} // namespace zarn

/// The dialog that a new tune begins with: its clef, key and time signature.
#pragma once
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
constexpr int32_t lNewTuneForm = 7005;
constexpr int32_t lNewTuneClef = 7006;
constexpr int32_t lNewTuneKey = 7007;
constexpr int32_t lNewTuneTime = 7008;
constexpr int32_t lNewTuneHint = 7031;
constexpr int32_t lNewTuneTablature = 7032;

/// The form with a hint by the clock: treble clef, C and 4/4 are chosen. An answer calls its fields clef, key, time and
/// tablature.
[[nodiscard]] Form NewTuneForm();

/// Asks for the opening of a new tune. On OK 1, with the clef from 1 treble to 4 tenor, the key from -6 to 6, the time
/// signature, and whether tablature is wanted. On Cancel, and when there can be no dialog, 0, and nothing changes.
int32_t NewTuneDialog(HWND hwnd, int32_t* plClef, int32_t* plKey, int32_t* plNumerator, int32_t* plDenominator,
                      bool* pbTablature);
} // namespace zarn

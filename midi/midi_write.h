/// The Score as a Standard MIDI File.
///
/// Format 1 at 48 ticks to the crotchet, the score's own tick: a conductor track with the metre, key and tempo that
/// come first, then a track for each staff from 1 to 8 that is played and not empty. Program changes and notes alone
/// are written. The format is that of the Standard MIDI Files 1.0 of the MIDI Manufacturers Association.
#pragma once
#include "platform/files.h"

#include <cstdint>

namespace zarn
{
/// Writes the whole score at the handle's place; the caller closes, and learns there whether the disk took it. Times
/// are made current first. An exchange file, notes at their written lengths, is (false, 0, false); a performance is
/// written in the style in which it is played.
/// @param lSwing  0, or 24 or 48 ticks
/// @return        false when a write failed
[[nodiscard]] bool SaveMidiFile(HFILE hFile, bool fBarnDance, int32_t lSwing, bool fDetach);

constexpr int32_t cbLongestVarLen = 5; ///< bytes, of 7 bits each

/// Writes a variable-length quantity at pBytes, where there is room for the longest: 7 bits a byte, the highest first;
/// a negative value counts as 0. A quantity that needs more than 3 bytes is written, and the user is told. Gives the
/// number of bytes.
int32_t WriteVarLen(uint8_t* pBytes, int32_t lValue);
} // namespace zarn

/// The commands that sound: playing the score, and trying out the device's programs.
#pragma once
#include <cstdint>

namespace zarn
{
inline int32_t lPianoProgram = 1; ///< of the note that the two last commands sound, 0 to 127
inline int32_t lPianoChannel = 1; ///< 0 to 15

/// Plays from the beginning of the mark on, with missing repeat signs put in for as long as that needs them.
void PlayCommand();
/// Sounds middle C with a program, or on a channel, that many further; held in range.
void SoundNextProgram(int32_t lStep);
void SoundNextChannel(int32_t lStep);
} // namespace zarn

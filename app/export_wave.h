/// The Score as it sounds.
#pragma once
#include <string>

namespace zarn
{
/// Writes the Score as the built-in synthesizer plays it, to the last note's dying away: PCM, 16 bits, stereo, 44,100
/// frames a second. A file that was there stays whole unless the new one is complete. False when it could not be done;
/// the user has been told.
[[nodiscard]] bool Export_Wave(std::string const& szPath);
} // namespace zarn

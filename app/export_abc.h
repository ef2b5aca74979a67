/// The Score as a tune of an ABC file.
#pragma once
#include <cstdint>
#include <string>

namespace zarn
{
/// Writes the Score into szPath, which it names in messages. Into the file that the tune was read from, it goes back to
/// its place; with a number, it takes the place of that tune or goes to the end; otherwise it becomes the whole file,
/// unless that holds several tunes. False when it could not be done; the user has been told.
/// @param lTune  the X: number that was asked for; -1 for none
[[nodiscard]] bool Export_Abc(std::string const& szPath, int32_t lTune);
} // namespace zarn

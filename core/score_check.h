/// The checker of the whole Score: what must hold between any two edits, told in words when it doesn't.
///
/// For tests, fuzzers and the command line; the program itself never asks. Reads only.
#pragma once
#include <string>
#include <vector>

namespace zarn
{
/// What no file and no edit may break, whatever the music: every element carries its List's number and a storage that
/// a record can have, slurs point at each other, every cursor is null or on a staff.
[[nodiscard]] std::vector<std::string> Score_CheckStructure();

/// The above, and the order of columns, chord flags, and ties with their partners. Times and pitches are expected to be
/// up to date. Empty when all is well.
[[nodiscard]] std::vector<std::string> Score_Check();
} // namespace zarn

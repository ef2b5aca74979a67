/// Saving one tune into an ABC file that may hold others. Main thread.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
/// Writes the Score as a tune of the file. The file is replaced in one step once all is written; until then, and when
/// anything fails, the old one stands as it was.
/// @param lNumber  as lTuneNumber: above 0, the tune X:(lNumber - 1) is replaced, every byte of the others staying as
///                 it is, or put at the end when there is none of that number; below 0, the file becomes this one tune,
///                 X: the complement of lNumber; 0, the tune goes to the end as X:0, and the user is told
/// @return         whether it was saved; if not, the user has been told, and bScoreDirty is as it was
[[nodiscard]] bool Abc_SaveTune(std::string const& szFile, std::string_view sTitle, int32_t lNumber);
} // namespace zarn

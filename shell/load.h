/// Reading a named file into the Score, with no window needed: the road of a name on the command line.
#pragma once
#include "platform/files.h"

#include <cstdint>
#include <string>

namespace zarn
{
constexpr int32_t lFirstTune = -1; ///< instead of an X: number: the tune that stands first in the file

enum class LoadResult : int32_t
{
    LOADED,
    NOT_OPENED, ///< the Score is as it was
    NOT_READ,   ///< neither reader took it
};

/// Reads a score file, an ABC file's tune, a MIDI file, or, once the user has agreed, any other file as ABC. Sets
/// szFileName and the names of the ABC file; the Score is clean afterwards. *psTitle is what the window's title
/// becomes, also after a failure.
LoadResult LoadNamed(std::string const& szName, int32_t lTune, std::string* psTitle);

/// The same for a conversion: an empty Score first, and what is wrong in one sentence.
[[nodiscard]] bool LoadForExport(std::string const& szName, int32_t lTune, std::string* psError);

/// One attempt with the reader of score files, in place of the Score in hand; true on success, with the view at its
/// top.
[[nodiscard]] bool ReadNative(HFILE hFile);
/// One attempt with the reader of MIDI files, behind the insert point. False when the file is damaged; the user has
/// been told, and what came in has no file of its own.
[[nodiscard]] bool ReadMidi(HFILE hFile, std::string const& szName);
/// The names that go with a score file.
void SetNativeNames(std::string const& szName);
/// The names that go with a tune of an ABC file, from what the reader gave for its number; its title is in szAbcTune.
void SetAbcNames(std::string const& szName, int32_t lNumber);
/// How many elements all the staffs hold.
[[nodiscard]] int64_t Score_CountElements();
/// "Error reading <%s>".
[[nodiscard]] std::string ErrorTitle(std::string const& szName);
/// "%s (from file '%s')".
[[nodiscard]] std::string AbcTitle(std::string const& szName);
} // namespace zarn

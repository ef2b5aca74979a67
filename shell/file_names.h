/// The names of the files in hand, and what kind a name tells.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn
{
/// The numbers are those of the save dialog's filters.
enum class FileType : int32_t
{
    UNKNOWN = 0,
    NATIVE = 1,
    ABC = 2,
    MIDI_EXCHANGE = 3,
    MIDI_PERFORMANCE = 4,
    ASCII_TAB = 5,
    ASCII_TAB_TEXT = 6, ///< a filter alone: no name tells it, and nothing is written for it
};

inline std::string szFileName; ///< the file that Save writes; empty for a new tune. Written by open, new and save.
/// szFileName is what a score was read from as a score file, whatever its extension. Written with szFileName.
inline bool bReadAsNative = false;
inline std::string szAbcFile; ///< the ABC file that the score was read from; empty when none
/// lTuneNumber as it is in szAbcFile, while a save into another file has given it that file's; nothing otherwise.
/// Written with szAbcFile, and by saves.
inline std::optional<int32_t> lPlaceInAbcFile;

/// By the extension, upper or lower case: .zrn, .abc, .mid, .txt and .tab.
[[nodiscard]] FileType FileTypeOf(std::string_view szName);
/// The same text, or a text that differs in upper and lower case alone and leads to the same file.
[[nodiscard]] bool SameFileName(std::string const& szA, std::string const& szB);
/// From the root, for whoever stands in another folder; empty for an empty name.
[[nodiscard]] std::string WholePath(std::string const& szName);
/// "songs/tune.abc" gives "tune.abc".
[[nodiscard]] std::string ShortName(std::string_view szName);
/// The extension with its dot as it is written; empty when there is none.
[[nodiscard]] std::string Extension(std::string_view szName);
/// True when the name has that extension, in upper or lower case.
[[nodiscard]] bool SameExtension(std::string_view szName, std::string_view sExtension);
} // namespace zarn

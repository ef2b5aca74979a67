/// The words of the command line.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zarn
{
/// What the program is asked to do.
enum class Task
{
    EDIT,
    EXPORT,
    CHECK,
    DUMP,
    LIST,
    FINGERING,
    PLAY,
    REPLAY,
    HELP,
    VERSION
};

struct Options
{
    Task task = Task::EDIT;
    std::vector<std::string> aFiles; ///< as typed; one at most, but for CHECK
    std::string sOutput;             ///< of EXPORT, and of REPLAY when it writes something
    std::string sJournal;            ///< to play back, or to write while editing
    bool bAllTunes = false;
    int32_t lTune = -1; ///< the X: number; -1 is the first tune of the file
    bool bAdjust = false;
    bool bMiniAdjust = false;
    bool bTablature = false;
    bool bExchange = false;            ///< of a .mid
    std::optional<int32_t> lTranspose; ///< semitones, -60 to 60; nothing when it wasn't asked for
    int32_t lWidth = 1200;             ///< the drawing area in pixels
    int32_t lHeight = 800;
    int32_t lPage = 0; ///< from 1; 0 is all pages
    int32_t lDpi = 96; ///< of a picture; 96 is one pixel for each of the drawing area
    bool bQuiet = false;
};

/// Reads the words behind the program's name. On failure the complaint stands in *psError, ready to be shown.
[[nodiscard]] bool Options_Parse(std::vector<std::string> const& aWords, Options* pOptions, std::string* psError);

/// What --help prints.
[[nodiscard]] char const* Options_Help();

/// The ending of a file name in lower case with its dot, ".svg"; empty when it has none.
[[nodiscard]] std::string FileEnding(std::string const& sPath);
} // namespace zarn

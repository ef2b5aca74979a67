// The place of a tune that a conversion writes: the questions of the window, answered by the words of the command line.
#include "app/export_abc.h"

#include "abc/abc_index.h"
#include "abc/multi_tune_save.h"
#include "app/terminal.h"
#include "core/messages.h"
#include "core/text.h"
#include "platform/files.h"
#include "shell/file_names.h"

#include <filesystem>
#include <optional>

namespace zarn
{
/// How many tunes stand in a file; nothing when it can't be read.
static std::optional<int32_t> TunesIn(std::string const& szPath)
{
    HFILE const hFile = _lopen(szPath);
    if (!hFile)
        return std::nullopt;
    (void)Abc_ListTunes(hFile);
    _lclose(hFile);
    return cAbcTunes;
}

/// The place in the file as lTuneNumber has it; nothing when the user has been told that there is none.
static std::optional<int32_t> PlaceIn(std::string const& szPath, int32_t lTune)
{
    std::error_code error;
    if (!szAbcFile.empty() && std::filesystem::equivalent(szPath, szAbcFile, error))
        return lTuneNumber;
    std::optional<int32_t> const cTunes = TunesIn(szPath);
    if (!cTunes && std::filesystem::exists(szPath, error))
    {
        Terminal_Error("what is there can't be read, so it isn't replaced");
        return std::nullopt;
    }
    if (lTune == INT32_MAX)
    {
        Terminal_Error(Format("there can be no tune X:%d in a file", lTune));
        return std::nullopt;
    }
    if (lTune >= 0)
        return cTunes.value_or(0) > 0 ? lTune + 1 : ~lTune;
    if (cTunes.value_or(0) <= 1)
        return -1;
    Terminal_Error(Format("the file holds %d tunes; --tune N says which one to replace or to add", *cTunes));
    return std::nullopt;
}

bool Export_Abc(std::string const& szPath, int32_t lTune)
{
    std::optional<int32_t> const lPlace = PlaceIn(szPath, lTune);
    Serious_Rearm(); // one tune's failure must not hide the next one's
    return lPlace && Abc_SaveTune(szPath, szAbcTune, *lPlace);
}
} // namespace zarn

// Which tune of the file a save is about.
#include "shell/abc_save.h"

#include "abc/abc_index.h"
#include "abc/multi_tune_save.h"
#include "core/messages.h"
#include "platform/files.h"
#include "shell/command_numbers.h"
#include "shell/file_names.h"
#include "shell/file_on_disk.h"

namespace zarn
{
/// A tune of a file with others, as lTuneNumber tells it.
static int32_t AmongOthers(int32_t lTune) { return lTune < INT32_MAX ? lTune + 1 : 0; }

/// The answer to the question about a file that is there.
enum class Place
{
    APPEND,
    OTHERWISE, ///< the user's No, or there is no such file
    CANCELLED
};

/// For APPEND *plNumber becomes that of a tune behind the highest of the file.
static Place AskPlace(char const* szQuestion, int32_t* plNumber)
{
    HFILE const hFile = _lopen(szFileName);
    if (!hFile)
        return Place::OTHERWISE;
    int32_t const lAnswer = AskYesNoCancel(szQuestion);
    if (lAnswer == 1)
    {
        int32_t const lHighest = Abc_HighestIndex(hFile);
        *plNumber = lHighest < INT32_MAX ? AmongOthers(lHighest + 1) : 0;
    }
    _lclose(hFile);
    return lAnswer == 1 ? Place::APPEND : lAnswer == 0 ? Place::OTHERWISE : Place::CANCELLED;
}

/// In the file that the tune was read from.
static bool ChoosePlaceAtHome(int32_t lCommand)
{
    int32_t lNumber = lPlaceInAbcFile.value_or(lTuneNumber);
    if (lCommand == COMMAND_SAVEAS &&
        AskPlace("Yes = Append this tune to end of file\nNo = Replace tune in file", &lNumber) == Place::CANCELLED)
        return false;
    if (lCommand == COMMAND_SAVE && !FileOnDisk_MayReplace(szFileName))
        return false;
    lTuneNumber = lNumber;
    lPlaceInAbcFile.reset();
    return true;
}

static bool ChoosePlaceAbroad()
{
    int32_t lNumber = -1;
    if (AskPlace("Yes = Append this tune to end of file\nNo = overwrite old contents of file with just this tune",
                 &lNumber) == Place::CANCELLED)
        return false;
    // The number is the other file's from now on; should the tune go home again, it must not take another's place.
    if (!szAbcFile.empty() && !lPlaceInAbcFile)
        lPlaceInAbcFile = lTuneNumber;
    lTuneNumber = lNumber;
    return true;
}

SaveResult SaveAbc(int32_t lCommand)
{
    bool const bHome = SameFileName(szFileName, szAbcFile);
    if (!(bHome ? ChoosePlaceAtHome(lCommand) : ChoosePlaceAbroad()))
        return SaveResult::CANCELLED;
    bool const bSaved = Abc_SaveTune(szFileName, szAbcTune, lTuneNumber);
    fAbcTuneOpen = false;
    return bSaved ? SaveResult::SAVED : SaveResult::FAILED;
}
} // namespace zarn

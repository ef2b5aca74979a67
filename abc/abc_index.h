/// The tunes of a many-tune ABC file.
#pragma once
#include "platform/files.h"
#include "platform/user.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zarn
{
inline int32_t lTuneNumber = -1;    ///< 0 sick file; x + 1 tune x of many; the complement of x the only tune, x
inline bool fAbcTuneOpen = false;   ///< the score came from a many-tune file
inline std::string szAbcTune;       ///< its title
inline int32_t cAbcTunes = 0;       ///< X: lines when the list was built
inline bool bAbcNoNumber = false;   ///< some X: line had no number
inline bool bAbcOutOfOrder = false; ///< some number was not above all earlier ones
inline int32_t lAbcChosen = 0;      ///< the chosen number; -1 for none

/// One row of the list: a T: line, or an X: line without one.
struct AbcTuneRow
{
    int32_t lNumber = 0;
    std::string sTitle;
    std::string sRow; ///< as the list shows it
};
/// Reads the whole file from its start and rewinds it; sets the counts and flags above, and tells of a sick file.
[[nodiscard]] std::vector<AbcTuneRow> Abc_ListTunes(HFILE hFile);
/// The list as a dialog: the chosen number, or -1.
int32_t Abc_ChooseTune(HFILE hFile, HWND hwnd);
/// The highest number on an X: line, 0 when there is none; rewinds the file.
int32_t Abc_HighestIndex(HFILE hFile);
} // namespace zarn

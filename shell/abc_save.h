/// Saving the Score as a tune of an ABC file, which may hold others.
#pragma once
#include "shell/files.h"

#include <cstdint>

namespace zarn
{
/// Into szFileName, by COMMAND_SAVE or COMMAND_SAVEAS. A tune goes back to its own place in the file that it was read
/// from; about any other place in a file that is there the user is asked. Sets lTuneNumber, clears fAbcTuneOpen.
SaveResult SaveAbc(int32_t lCommand);
} // namespace zarn

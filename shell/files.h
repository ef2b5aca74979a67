/// New, Open, Save and Save As, and a file that is dropped on the window.
#pragma once
#include "platform/user.h"

#include <cstdint>
#include <string>

namespace zarn
{
void NewCommand();  ///< Asks about unsaved music first.
void OpenCommand(); ///< Likewise.
/// Asks for a name and reads that file behind the Score in hand, at the end of the staffs; no question. What has come
/// together is unsaved, and has no file.
void AppendCommand();
/// Opens the file of the File menu's list, 1 to 9, as OpenDropped does.
void RecentCommand(int32_t lNumber);
void SaveCommand();   ///< Into the file in hand, or as SaveAsCommand when there is none that can be written.
void SaveAsCommand(); ///< Asks for the name.

/// A file dropped on the window: as if it had been opened, unsaved music asked about first.
void OpenDropped(std::string const& szName);

/// Asks for a name and reads the file in place of the Score in hand; no question about unsaved music.
void OpenFile(HWND hwnd);
/// An empty tune: treble clef, no sharps or flats, 4/4. No question about unsaved music.
void NewTune(HWND hwnd);

enum class SaveResult : int32_t
{
    CANCELLED, ///< by the user
    FAILED,    ///< the user has been told, unless the type has no writer; the Score is as it was
    SAVED,
};
/// COMMAND_SAVE or COMMAND_SAVEAS.
SaveResult SaveFile(HWND hwnd, int32_t lCommand);
} // namespace zarn

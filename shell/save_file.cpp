// Which writer handles a file, and the questions on the way.
//
// Score files, ABC, MIDI files and ASCII tablature, each by its name or by what the user answers: no file is ever
// overwritten with what its name doesn't promise unless its user says so.
#include "shell/files.h"

#include "core/messages.h"
#include "file/native.h"
#include "midi/midi_write.h"
#include "midi/play_list.h"
#include "platform/commdlg.h"
#include "platform/files.h"
#include "shell/abc_save.h"
#include "shell/command_numbers.h"
#include "shell/file_names.h"
#include "shell/file_on_disk.h"
#include "shell/recent_files.h"
#include "tab/tab_text.h"
#include "tab/tablature.h"

#include <iterator>

namespace zarn
{
void SaveCommand() { (void)SaveFile(hwndMain, COMMAND_SAVE); }

void SaveAsCommand() { (void)SaveFile(hwndMain, COMMAND_SAVEAS); }

namespace
{
/// A kind of file that the save dialog offers.
struct SaveKind
{
    FileType type;
    FileFilter filter;
};
constexpr SaveKind aSaveKind[] = {{FileType::NATIVE, {"Zarn files", "*.zrn"}},
                                  {FileType::ABC, {"ABC files", "*.abc"}},
                                  {FileType::MIDI_EXCHANGE, {"MIDI exchange files", "*.MID"}},
                                  {FileType::MIDI_PERFORMANCE, {"MIDI performance files", "*.MID"}},
                                  {FileType::ASCII_TAB, {"ASCII Tab files(.tab)", "*.tab"}},
                                  {FileType::ASCII_TAB_TEXT, {"ASCII Tab files(.txt)", "*.txt"}}};
} // namespace

/// Music that was read as ABC from a .txt file must not become tablature there at a plain Save.
static bool MayOverwrite(FileType type) { return type != FileType::ASCII_TAB || szFileName != szAbcFile; }

/// Makes the file in hand anew, unless the user wants to keep what somebody else has made of it. bTell: a failure is
/// told here, not by the writer.
template <typename Writer>
static SaveResult WriteFile(Writer write, bool bTell = true)
{
    if (!FileOnDisk_MayReplace(szFileName))
        return SaveResult::CANCELLED;
    HFILE const hFile = _lcreat(szFileName);
    if (!hFile)
    {
        Serious("File didn't open - NOT saved!");
        return SaveResult::FAILED;
    }
    bool const bWritten = write(hFile);
    bool const bInPlace = _lclose(hFile);
    if (bWritten && bInPlace)
        return SaveResult::SAVED;
    if (bTell)
        Serious("Writing the file failed - NOT saved!  The file on disk and the score are as they were.");
    return SaveResult::FAILED;
}

static SaveResult WriteNative()
{
    SaveResult const result = WriteFile([](HFILE hFile) { return Native_Write(hFile) != 0; });
    if (result == SaveResult::SAVED)
        bScoreDirty = false;
    return result;
}

/// The score stays unsaved: a MIDI file doesn't hold it all.
static SaveResult WriteMidiPerformance()
{
    return WriteFile([](HFILE hFile) { return SaveMidiFile(hFile, fBarnDance, lSwing, true); });
}

static SaveResult WriteMidiExchange()
{
    if (!AskYesNo("Exchange MIDI file output is new and MIDI file input to Zarn frankly doesn't work well yet.  Save "
                  "in another format or you may lose data.  Go ahead and save as MIDI anyway?",
                  0))
        return SaveResult::CANCELLED;
    return WriteFile([](HFILE hFile) { return SaveMidiFile(hFile, false, 0, false); });
}

/// The score stays unsaved: tablature doesn't hold it all. With tablature hidden the user is told, and an empty file
/// stands there.
static SaveResult WriteTab() { return WriteFile(Tab_SaveText, Tab_IsShown()); }

/// The save dialog; the type that was asked for, UNKNOWN when cancelled. On OK the name is the name in hand.
static FileType AskSaveName(HWND hwnd)
{
    FileDialog dialog;
    dialog.sTitle = "Save file";
    for (SaveKind const& kind : aSaveKind)
        dialog.aFilters.push_back(kind.filter);
    dialog.szFile = szFileName;
    FileType const type = FileTypeOf(szFileName);
    if (type != FileType::UNKNOWN && !MayOverwrite(type))
        dialog.szFile.replace(dialog.szFile.size() - Extension(szFileName).size(), std::string::npos, ".zrn");
    std::string const sExtension = Extension(dialog.szFile);
    if (!sExtension.empty())
        dialog.sDefaultExtension = sExtension.c_str();
    dialog.szFolder = Recent_Folder();
    if (!GetSaveFileNameA(hwnd, dialog))
        return FileType::UNKNOWN;
    szFileName = dialog.szFile;
    bReadAsNative = false;
    SetWindowTextA(hwnd, ShortName(szFileName));
    size_t const nKind = static_cast<size_t>(dialog.lFilter) - 1;
    return nKind < std::size(aSaveKind) ? aSaveKind[nKind].type : FileType::NATIVE;
}

/// The type of a name that came from the save dialog, whose filter asked for asked; UNKNOWN when the user cancelled.
static FileType SettleAskedType(FileType asked)
{
    FileType const named = FileTypeOf(szFileName);
    bool const bBothMidi = named == FileType::MIDI_PERFORMANCE && asked == FileType::MIDI_EXCHANGE;
    if (named == FileType::UNKNOWN || named == asked || bBothMidi)
        return asked;
    int32_t const lAnswer =
        AskYesNoCancel("File name extension conflicts with type.  Yes = use type, No = use extension");
    return lAnswer < 0 ? FileType::UNKNOWN : lAnswer == 1 ? asked : named;
}

/// The type of a name that was in hand already; UNKNOWN when the user doesn't want it written.
static FileType SettleNamedType()
{
    FileType const named = FileTypeOf(szFileName);
    if (named == FileType::ASCII_TAB && bReadAsNative)
        return FileType::NATIVE;
    if (named != FileType::UNKNOWN)
        return named;
    if (int32_t const lAnswer = AskYesNoCancel("Unknown file extension.  OK to write file as ZRN file?"); lAnswer != 0)
        return lAnswer == 1 ? FileType::NATIVE : FileType::UNKNOWN;
    if (int32_t const lAnswer = AskYesNoCancel("OK to write as ABC file then??"); lAnswer != 0)
        return lAnswer == 1 ? FileType::ABC : FileType::UNKNOWN;
    if (int32_t const lAnswer = AskYesNoCancel("OK to write as MIDI file maybe???"); lAnswer != 0)
        return lAnswer == 1 ? FileType::MIDI_EXCHANGE : FileType::UNKNOWN;
    if (int32_t const lAnswer = AskYesNoCancel("Well TAB then????"); lAnswer != 0)
        return lAnswer == 1 ? FileType::ASCII_TAB : FileType::UNKNOWN;
    Serious("Don't know how you want it saved.  File NOT saved!");
    return FileType::UNKNOWN;
}

static SaveResult WriteAs(FileType type, int32_t lCommand)
{
    switch (type)
    {
    case FileType::UNKNOWN:
        return SaveResult::CANCELLED;
    case FileType::NATIVE:
        return WriteNative();
    case FileType::ABC:
        return SaveAbc(lCommand);
    case FileType::MIDI_EXCHANGE:
        return WriteMidiExchange();
    case FileType::MIDI_PERFORMANCE:
        return WriteMidiPerformance();
    case FileType::ASCII_TAB:
        return WriteTab();
    case FileType::ASCII_TAB_TEXT:
        return SaveResult::FAILED; // the filter has never had a writer; the extension has
    }
    return SaveResult::FAILED;
}

SaveResult SaveFile(HWND hwnd, int32_t lCommand)
{
    FileType type = FileTypeOf(szFileName);
    FileType asked = FileType::UNKNOWN;
    bool const bAsk =
        szFileName.empty() || lCommand == COMMAND_SAVEAS || (type != FileType::UNKNOWN && !MayOverwrite(type));
    if (bAsk)
    {
        asked = AskSaveName(hwnd);
        if (asked == FileType::UNKNOWN)
            return SaveResult::CANCELLED;
    }
    type = bAsk ? SettleAskedType(asked) : SettleNamedType();
    SaveResult const result = WriteAs(type, lCommand);
    if (result == SaveResult::SAVED)
    {
        FileOnDisk_Note(szFileName);
        Recent_Add(szFileName);
    }
    return result;
}
} // namespace zarn

// Which reader or writer handles a file, and the questions on the way.
//
// Only score files are written so far. A name that asks for another kind leads to the save dialog, so that no file is
// ever overwritten with what its name doesn't promise unless its user says so.
#include "shell/files.h"

#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
#include "core/text.h"
#include "edit/new_score.h"
#include "file/native.h"
#include "layout/adjust.h"
#include "layout/bars.h"
#include "panels/new_tune.h"
#include "platform/commdlg.h"
#include "platform/files.h"
#include "render/font.h"
#include "render/symbol_cursor.h"
#include "shell/command_numbers.h"
#include "shell/file_names.h"
#include "shell/load.h"
#include "shell/modes.h"
#include "shell/options.h"

namespace zarn
{

void SaveCommand() { (void)SaveFile(hwndMain, COMMAND_SAVE); }

void SaveAsCommand() { (void)SaveFile(hwndMain, COMMAND_SAVEAS); }

/// What the user wants to happen to unsaved music.
enum class Unsaved
{
    KEEP,        ///< the command is called off
    GIVE_UP,     ///< there is none, it was saved, or the user doesn't want it
    NOT_WRITTEN, ///< saving was wanted and failed
};

static Unsaved AskAboutUnsaved()
{
    if (!bScoreDirty)
        return Unsaved::GIVE_UP;
    int32_t const lAnswer = AskYesNoCancel("Not yet saved as ZRN file. Save Now?");
    if (lAnswer != 1)
        return lAnswer == 0 ? Unsaved::GIVE_UP : Unsaved::KEEP;
    switch (SaveFile(hwndMain, COMMAND_SAVE))
    {
    case SaveResult::SAVED:
        return Unsaved::GIVE_UP;
    case SaveResult::FAILED:
        return Unsaved::NOT_WRITTEN;
    case SaveResult::CANCELLED:
        break;
    }
    return Unsaved::KEEP;
}

void NewCommand()
{
    // Nothing asks again before the music goes, so a save that failed stops here; Open still has its dialog.
    if (AskAboutUnsaved() == Unsaved::GIVE_UP)
        NewTune(hwndMain);
}

void NewTune(HWND hwnd)
{
    int32_t lClef = 0;
    int32_t lKey = 0;
    int32_t lNum = 0;
    int32_t lDen = 0;
    bool bTablature = false;
    if (!NewTuneDialog(hwnd, &lClef, &lKey, &lNum, &lDen, &bTablature))
        return;
    Score_New();
    SetNativeNames("");
    Options_ShowChecks();
    SetWindowTextA(hwnd, "");
    NewTuneOpening(lClef, lKey, lNum, lDen);
    Font_Renew();
    if (fMouseMode)
        MakeSymbolCursor(hwnd);
    InvalidateRect(hwnd);
}

/// Asks for the tune of an ABC file, and reads it.
static void ReadChosenTune(HFILE hFile, HWND hwnd, std::string const& szName)
{
    Score_New();
    szAbcTune = szName;
    SetAbcNames(szName, ReadAbc(hFile, hwnd, &szAbcTune));
    SetWindowTextA(hwnd, AbcTitle(szName));
    MiniAdjust();
}

/// The reading road of an open file; false when the user or the file's kind stopped it, and nothing more may change.
static bool ReadOpened(HFILE hFile, HWND hwnd, std::string const& szName)
{
    FileType const type = FileTypeOf(szName);
    if (type == FileType::MIDI_PERFORMANCE)
    {
        Serious(Format("Zarn can't read MIDI files.  <%s> was not opened and nothing was lost.", szName.c_str()));
        return false;
    }
    if (type != FileType::ABC)
    {
        if (ReadNative(hFile))
        {
            SetNativeNames(szName);
            SetWindowTextA(hwnd, szName);
            return true;
        }
        if (type == FileType::NATIVE && AskYesNoCancel("File is not a ZARN file, try to open as ABC file?") != 1)
            return false;
        _llseek(hFile, 0, FILE_BEGIN);
    }
    ReadChosenTune(hFile, hwnd, szName);
    return true;
}

/// Reads the file in place of the Score in hand. False when its name is not the name in hand afterwards.
static bool OpenNamed(HWND hwnd, std::string const& szName)
{
    HFILE const hFile = _lopen(szName);
    bool bRead = false;
    if (hFile)
    {
        bRead = ReadOpened(hFile, hwnd, szName);
        _lclose(hFile);
    }
    else
        Serious("File didn't open");
    // A file that isn't there clears the flag as a file that was read does; one that was declined leaves it.
    if (bRead || !hFile)
        bScoreDirty = false;
    Options_ShowChecks();
    Font_Renew();
    InvalidateRect(hwnd);
    return bRead;
}

void OpenFile(HWND hwnd)
{
    FileDialog dialog;
    dialog.sTitle = "Open file";
    dialog.aFilters = {
        {"Zarn/ABC files", "*.zrn;*.abc"}, {"Zarn files", "*.zrn"}, {"ABC files", "*.abc"}, {"All Files", "*.*"}};
    if (!GetOpenFileNameA(hwnd, dialog))
        return;
    std::string const sOldTitle = hwnd ? hwnd->Title() : std::string();
    SetWindowTextA(hwnd, "Open file");
    if (!OpenNamed(hwnd, dialog.szFile))
        SetWindowTextA(hwnd, sOldTitle);
}

void OpenCommand()
{
    if (AskAboutUnsaved() == Unsaved::KEEP)
        return;
    fAbcTuneOpen = false;
    OpenFile(hwndMain);
}

void OpenDropped(std::string const& szName)
{
    if (AskAboutUnsaved() != Unsaved::GIVE_UP)
        return;
    fAbcTuneOpen = false;
    (void)OpenNamed(hwndMain, szName);
}

static bool CanWrite(FileType type) { return type == FileType::NATIVE; }

static SaveResult WriteNative()
{
    HFILE const hFile = _lcreat(szFileName);
    if (!hFile)
    {
        Serious("File didn't open - NOT saved!");
        return SaveResult::FAILED;
    }
    bool const bWritten = Native_Write(hFile) != 0;
    bool const bInPlace = _lclose(hFile);
    if (bWritten && bInPlace)
    {
        bScoreDirty = false;
        return SaveResult::SAVED;
    }
    Serious("Writing the file failed - NOT saved!  The file on disk and the score are as they were.");
    return SaveResult::FAILED;
}

/// The save dialog; false when cancelled. On OK the name is the name in hand.
static bool AskSaveName(HWND hwnd)
{
    FileDialog dialog;
    dialog.sTitle = "Save file";
    dialog.sDefaultExtension = ".zrn";
    dialog.aFilters = {{"Zarn files", "*.zrn"}};
    dialog.szFile = szFileName;
    FileType const type = FileTypeOf(szFileName);
    if (type != FileType::UNKNOWN && !CanWrite(type))
        dialog.szFile.replace(dialog.szFile.size() - Extension(szFileName).size(), std::string::npos, ".zrn");
    if (!GetSaveFileNameA(hwnd, dialog))
        return false;
    szFileName = dialog.szFile;
    SetWindowTextA(hwnd, ShortName(szFileName));
    return true;
}

/// The type of a name that came from the save dialog, whose filter asked for asked; UNKNOWN when the user cancelled.
static FileType SettleAskedType(FileType asked)
{
    FileType const named = FileTypeOf(szFileName);
    if (named == FileType::UNKNOWN || named == asked)
        return asked;
    int32_t const lAnswer =
        AskYesNoCancel("File name extension conflicts with type.  Yes = use type, No = use extension");
    return lAnswer < 0 ? FileType::UNKNOWN : lAnswer == 1 ? asked : named;
}

/// The type of a name that was in hand already; UNKNOWN when the user doesn't want it written.
static FileType SettleNamedType()
{
    FileType const named = FileTypeOf(szFileName);
    if (named != FileType::UNKNOWN)
        return named;
    int32_t const lAnswer = AskYesNoCancel("Unknown file extension.  OK to write file as ZRN file?");
    if (lAnswer == 0)
        Serious("Don't know how you want it saved.  File NOT saved!");
    return lAnswer == 1 ? FileType::NATIVE : FileType::UNKNOWN;
}

SaveResult SaveFile(HWND hwnd, int32_t lCommand)
{
    FileType type = FileTypeOf(szFileName);
    bool const bAsk =
        szFileName.empty() || lCommand == COMMAND_SAVEAS || (type != FileType::UNKNOWN && !CanWrite(type));
    if (bAsk && !AskSaveName(hwnd))
        return SaveResult::CANCELLED;
    type = bAsk ? SettleAskedType(FileType::NATIVE) : SettleNamedType();
    if (type == FileType::UNKNOWN)
        return SaveResult::CANCELLED;
    if (CanWrite(type))
        return WriteNative();
    Serious("Zarn can only write ZRN files.  File NOT saved!");
    return SaveResult::FAILED;
}
} // namespace zarn

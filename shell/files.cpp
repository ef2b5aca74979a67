// Which reader handles a file, and the questions on the way: each by the file's name, or by what the user answers.
#include "shell/files.h"

#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
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
#include "shell/file_on_disk.h"
#include "shell/load.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/panels_shown.h"
#include "shell/recent_files.h"
#include "tab/tablature.h"

namespace zarn
{
/// What the user wants to happen to unsaved music.
enum class Unsaved
{
    KEEP,        ///< the command is called off
    GIVE_UP,     ///< there is none, it was saved, or the user doesn't want it
    NOT_WRITTEN, ///< saving was wanted and failed; what the user asked for goes on where it asks once more
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
    if (AskAboutUnsaved() != Unsaved::KEEP)
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
    if (bTablature && bPianoShowing)
        PianoClosed();
    Tab_SetShown(bTablature);
    Font_Renew();
    if (fMouseMode)
        MakeSymbolCursor(hwnd);
    InvalidateRect(hwnd);
}

namespace
{
/// What becomes of the Score in hand.
enum class Into
{
    NEW_SCORE,
    END_OF_STAFFS, ///< what is read follows it
};
} // namespace

/// Asks for the tune of an ABC file, and reads it.
static void ReadChosenTune(HFILE hFile, HWND hwnd, std::string const& szName, Into into)
{
    if (into == Into::NEW_SCORE)
        Score_New();
    szAbcTune = szName;
    SetAbcNames(szName, ReadAbc(hFile, hwnd, &szAbcTune));
    SetWindowTextA(hwnd, AbcTitle(szName));
    MiniAdjust();
}

/// Asks, and reads a MIDI file; false when the user doesn't want it. A damaged one leaves a tune with no file.
static bool ReadAskedMidi(HFILE hFile, HWND hwnd, std::string const& szName, Into into)
{
    if (!AskYesNo("MIDI file input is new and, frankly, it doesn't work well yet, but it was less effort to leave it "
                  "in.  Go ahead if you like and see what happens - else cancel now.",
                  0))
        return false;
    if (into == Into::NEW_SCORE)
        Score_New();
    SetWindowTextA(hwnd, ReadMidi(hFile, szName) ? szName : ErrorTitle(szName));
    return true;
}

/// The reading road of an open file; false when the user or the file's kind stopped it, and nothing more may change.
static bool ReadOpened(HFILE hFile, HWND hwnd, std::string const& szName, Into into)
{
    FileType const type = FileTypeOf(szName);
    if (type == FileType::MIDI_PERFORMANCE)
        return ReadAskedMidi(hFile, hwnd, szName, into);
    if (type != FileType::ABC)
    {
        if (into == Into::NEW_SCORE ? ReadNative(hFile) : Native_Read(hFile, false) != 0)
        {
            SetNativeNames(szName);
            SetWindowTextA(hwnd, szName);
            return true;
        }
        if (type == FileType::NATIVE && AskYesNoCancel("File is not a ZARN file, try to open as ABC file?") != 1)
            return false;
        _llseek(hFile, 0, FILE_BEGIN);
    }
    ReadChosenTune(hFile, hwnd, szName, into);
    return true;
}

/// Reads the file; false when there is none, or it was declined.
static bool ReadNamed(HWND hwnd, std::string const& szName, Into into)
{
    HFILE const hFile = _lopen(szName);
    bool bRead = false;
    if (hFile)
    {
        auto const stamp = File_StampOf(szName);
        bRead = ReadOpened(hFile, hwnd, szName, into);
        _lclose(hFile);
        if (bRead)
        {
            FileOnDisk_Note(szName, stamp);
            Recent_Add(szName);
        }
    }
    else
    {
        Serious("File didn't open");
        Recent_Forget(szName);
    }
    // A file that isn't there clears the flag as a file that was read does; one that was declined leaves it.
    if (bRead || !hFile)
        bScoreDirty = false;
    Options_ShowChecks();
    return bRead;
}

/// Reads the file in place of the Score in hand. False when its name is not the name in hand afterwards.
static bool OpenNamed(HWND hwnd, std::string const& szName)
{
    bool const bRead = ReadNamed(hwnd, szName, Into::NEW_SCORE);
    Font_Renew();
    InvalidateRect(hwnd);
    return bRead;
}

/// Asks for a name and reads that file. The title says so meanwhile.
template <typename Reader>
static void ReadAsked(HWND hwnd, Reader read)
{
    FileDialog dialog;
    dialog.sTitle = "Open file";
    dialog.aFilters = {{"Zarn/ABC/MIDI files", "*.zrn;*.abc;*.mid"},
                       {"Zarn files", "*.zrn"},
                       {"ABC files", "*.abc"},
                       {"MIDI files", "*.mid"},
                       {"All Files", "*.*"}};
    dialog.szFolder = Recent_Folder();
    if (!GetOpenFileNameA(hwnd, dialog))
        return;
    std::string const sOldTitle = hwnd ? hwnd->Title() : std::string();
    SetWindowTextA(hwnd, "Open file");
    if (!read(dialog.szFile))
        SetWindowTextA(hwnd, sOldTitle);
}

void OpenFile(HWND hwnd)
{
    ReadAsked(hwnd, [hwnd](std::string const& szName) { return OpenNamed(hwnd, szName); });
}

void OpenCommand()
{
    if (AskAboutUnsaved() == Unsaved::KEEP)
        return;
    fAbcTuneOpen = false;
    OpenFile(hwndMain);
}

/// Reads the file behind the Score in hand.
static bool AppendNamed(std::string const& szName)
{
    bool const bWasDirty = bScoreDirty;
    int64_t const cBefore = Score_CountElements();
    bool const bRead = ReadNamed(hwndMain, szName, Into::END_OF_STAFFS);
    bool const bGrown = Score_CountElements() != cBefore;
    bScoreDirty = bWasDirty || bGrown; // no file holds what has come together, nor has anyone been asked
    if (bGrown)
        szFileName.clear(); // a plain Save would put it in place of the file that was appended
    FullAdjust();
    Font_Renew();
    InvalidateRect(hwndMain);
    return bRead;
}

void AppendCommand()
{
    fAbcTuneOpen = false;
    ReadAsked(hwndMain, AppendNamed);
}

void RecentCommand(int32_t lNumber)
{
    if (std::string const szName = Recent_At(lNumber); !szName.empty())
        OpenDropped(szName);
}

void OpenDropped(std::string const& szName)
{
    if (AskAboutUnsaved() != Unsaved::GIVE_UP)
        return;
    fAbcTuneOpen = false;
    (void)OpenNamed(hwndMain, szName);
}
} // namespace zarn

// The reading road of a named file: a MIDI file by its name, else score file first, then ABC.
#include "shell/load.h"

#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/new_score.h"
#include "file/native.h"
#include "layout/adjust.h"
#include "layout/clean_up.h"
#include "layout/place.h"
#include "midi/midi_read.h"
#include "render/geometry.h"
#include "render/symbol_cursor.h"
#include "shell/file_names.h"
#include "shell/file_on_disk.h"
#include "shell/modes.h"

#include <algorithm>
#include <vector>

namespace zarn
{
int64_t Score_CountElements()
{
    int64_t cElements = 0;
    for (List const list : aStaffList)
        cElements += List_Card(list);
    return cElements;
}

namespace
{
void EmptyScore()
{
    if (Score_CountElements() != 0)
        Score_New();
}

/// The tune of that X: number, read without asking; false when the file hasn't got it.
bool ReadTune(HFILE hFile, std::string const& szName, int32_t lTune)
{
    std::vector<AbcTuneRow> const aRows = Abc_ListTunes(hFile);
    auto const itTune =
        lTune == lFirstTune
            ? aRows.begin()
            : std::find_if(aRows.begin(), aRows.end(), [lTune](AbcTuneRow const& row) { return row.lNumber == lTune; });
    if (itTune == aRows.end())
        return false;
    EmptyScore(); // what a damaged score file left
    szAbcTune = szName;
    SetAbcNames(szName, ReadAbcNumbered(hFile, itTune->lNumber, &szAbcTune));
    MiniAdjust();
    return true;
}

LoadResult ReadOpened(HFILE hFile, std::string const& szName, int32_t lTune, std::string* psTitle)
{
    *psTitle = ErrorTitle(szName);
    if (FileTypeOf(szName) == FileType::MIDI_PERFORMANCE)
    {
        EmptyScore();
        if (!ReadMidi(hFile, szName))
            return LoadResult::NOT_READ;
        *psTitle = szName;
        return LoadResult::LOADED;
    }
    if (ReadNative(hFile))
    {
        SetNativeNames(szName);
        *psTitle = szName;
        return LoadResult::LOADED;
    }
    if (FileTypeOf(szName) != FileType::ABC && !AskYesNo("File is not a ZRN file - try to open as ABC?", 1))
        return LoadResult::NOT_READ;
    _llseek(hFile, 0, FILE_BEGIN);
    if (!ReadTune(hFile, szName, lTune))
        return LoadResult::NOT_READ;
    *psTitle = AbcTitle(szName);
    return LoadResult::LOADED;
}
} // namespace

bool ReadNative(HFILE hFile)
{
    int64_t const cBefore = Score_CountElements();
    int32_t const lOldScroll = lScroll;
    lScroll = 0; // the reader folds each element on its way, so the view must stand at the top by then
    if (Native_Read(hFile, true))
        return true;
    if (Score_CountElements() == cBefore)
        lScroll = lOldScroll;
    else
        szFileName.clear(); // half a piece must not be saved over the whole one
    ReGrid();
    return false;
}

bool ReadMidi(HFILE hFile, std::string const& szName)
{
    bool const bRead = ReadMidiFile(hFile) == MIDI_FILE_READ;
    if (!bRead)
        Serious("MIDI input error.  Send file to Odrian if you think it's a bug.");
    RemoveSpuriousAccidentals();
    SetNativeNames(bRead ? szName : std::string());
    bReadAsNative = false;
    return bRead;
}

std::string ErrorTitle(std::string const& szName) { return Format("Error reading <%s>", szName.c_str()); }

void SetNativeNames(std::string const& szName)
{
    szFileName = szName;
    bReadAsNative = !szName.empty();
    szAbcFile.clear();
    szAbcTune.clear();
    lPlaceInAbcFile.reset();
    lTuneNumber = -1;
    fAbcTuneOpen = false;
}

void SetAbcNames(std::string const& szName, int32_t lNumber)
{
    szFileName = szName;
    bReadAsNative = false;
    szAbcFile = szName;
    lPlaceInAbcFile.reset();
    lTuneNumber = lNumber;
    fAbcTuneOpen = !szAbcTune.empty() && lTuneNumber >= 0;
}

std::string AbcTitle(std::string const& szName)
{
    return Format("%s (from file '%s')", szAbcTune.c_str(), szName.c_str());
}

/// A reader leaves the last symbol of its tune behind as the current one; a user begins with a crotchet.
static void ChooseCrotchet()
{
    constexpr int32_t lCrotchet = 48; // ticks
    CurrentSymbol_SetNote(lCrotchet);
    if (fMouseMode)
        MakeSymbolCursor(hwndMain);
}

LoadResult LoadNamed(std::string const& szName, int32_t lTune, std::string* psTitle)
{
    LoadResult result = LoadResult::NOT_OPENED;
    if (HFILE const hFile = _lopen(szName))
    {
        auto const stamp = File_StampOf(szName);
        result = ReadOpened(hFile, szName, lTune, psTitle);
        _lclose(hFile);
        if (result == LoadResult::LOADED)
            FileOnDisk_Note(szName, stamp);
    }
    else
        *psTitle = Format("Error opening <%s>", szName.c_str());
    bScoreDirty = false;
    ChooseCrotchet();
    return result;
}

bool LoadForExport(std::string const& szName, int32_t lTune, std::string* psError)
{
    Score_New();
    std::string sTitle;
    switch (LoadNamed(szName, lTune, &sTitle))
    {
    case LoadResult::LOADED:
        return true;
    case LoadResult::NOT_OPENED:
        *psError = "the file can't be opened";
        return false;
    case LoadResult::NOT_READ:
        break;
    }
    if (FileTypeOf(szName) == FileType::MIDI_PERFORMANCE)
        *psError = "the MIDI file is damaged, or of a kind that can't be read";
    else if (lTune != lFirstTune)
        *psError = Format("the file has no tune X:%d", lTune);
    else if (FileTypeOf(szName) == FileType::ABC)
        *psError = "the file holds no tune: no line begins X:";
    else
        *psError = "the file can't be read as a Zarn score; the name of an ABC file ends in .abc";
    return false;
}
} // namespace zarn

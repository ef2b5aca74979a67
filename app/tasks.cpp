// Conversions, checks and listings: read, do one thing, tell.
#include "app/tasks.h"

#include "abc/abc_index.h"
#include "app/fingering_list.h"
#include "app/headless_process.h"
#include "app/play_aloud.h"
#include "app/terminal.h"
#include "app/tunes.h"
#include "core/score.h"
#include "core/score_check.h"
#include "core/text.h"
#include "edit/transpose.h"
#include "layout/adjust.h"
#include "platform/headless/replay.h"
#include "shell/door.h"
#include "shell/load.h"
#include "shell/startup.h"
#include "shell/tab_commands.h"
#include "tab/tablature.h"

#include <cstdio>

namespace zarn
{
/// The tablature of the tune that was read last; false when there are more staffs than one.
static bool ShowOptimised()
{
    if (Tab_IsShown()) // under the tune before
        Tab_SetShown(false);
    OptimisedTablatureCommand();
    if (!Tab_IsShown())
        Terminal_Error("there is no tablature of it");
    return Tab_IsShown();
}

/// Reads a file, or one tune of it; transposes it, lays it out again and shows its tablature when the options say so.
static bool ReadScore(std::string const& szPath, int32_t lTune, Options const& options)
{
    szTerminalFile = szPath;
    std::string sError;
    if (!LoadForExport(szPath, lTune, &sError))
    {
        Terminal_Error(sError);
        return false;
    }
    if (options.lTranspose)
        TransposeAll(*options.lTranspose);
    if (options.bAdjust || options.lTranspose) // what transposing took out and put in asks for a new layout
        FullAdjust();
    if (options.bMiniAdjust)
        MiniAdjust();
    if (options.bTablature)
        return ShowOptimised();
    return true;
}

/// @param lTune  the X: number of the tune in hand; -1 when the options alone can tell one
static ExportFormat FormatOf(Options const& options, int32_t lTune = -1)
{
    return {options.lWidth,   options.lHeight, options.lPage,
            options.lDpi,     szAbcTune,       lTune >= 0 ? lTune : options.lTune,
            options.bExchange};
}

int32_t Task_Export(Options const& options, DocumentMaker pMaker)
{
    HeadlessProcess process;
    process.BeginConversion(options.lWidth, options.lHeight);
    std::string const& szPath = options.aFiles[0];
    szTerminalFile = szPath;
    auto const aTunes = Tunes_Wanted(szPath, options);
    if (!aTunes)
        return lStatusFailed;
    int32_t lStatus = lStatusGood;
    for (Tune const& tune : *aTunes)
    {
        std::string const szOutput =
            options.bAllTunes && tune.lNumber >= 0 ? Tune_OutputPath(options.sOutput, tune) : options.sOutput;
        if (!ReadScore(szPath, tune.lNumber, options) ||
            !Export_Write(szOutput, FormatOf(options, tune.lNumber), pMaker))
            lStatus = lStatusFailed;
    }
    return lStatus;
}

/// Reads one tune and tells what is wrong with it; errors and complaints are counted by the terminal.
static void CheckTune(std::string const& szPath, Tune const& tune, Options const& options)
{
    if (!ReadScore(szPath, tune.lNumber, options))
        return;
    for (std::string const& sComplaint : Score_Check())
        Terminal_Error(tune.lNumber < 0 ? sComplaint : Format("X:%d: %s", tune.lNumber, sComplaint.c_str()));
}

int32_t Task_Check(Options const& options)
{
    HeadlessProcess process;
    process.BeginConversion(options.lWidth, options.lHeight);
    Options all = options;
    all.bAllTunes = options.lTune < 0;
    for (std::string const& szPath : options.aFiles)
    {
        szTerminalFile = szPath;
        // A file without a numbered tune is read as it stands, and complains for itself.
        auto aTunes = Tunes_Wanted(szPath, all);
        if (aTunes)
            for (Tune const& tune : *aTunes)
                CheckTune(szPath, tune, options);
    }
    return cTerminalErrors || cTerminalComplaints ? lStatusFailed : lStatusGood;
}

/// The tune that is wanted of the file named first; false when there is none, and the user has been told.
static bool ReadFirstTune(Options const& options)
{
    szTerminalFile = options.aFiles[0];
    auto const aTunes = Tunes_Wanted(options.aFiles[0], options);
    return aTunes && ReadScore(options.aFiles[0], aTunes->front().lNumber, options);
}

int32_t Task_Dump(Options const& options)
{
    HeadlessProcess process;
    process.BeginConversion(options.lWidth, options.lHeight);
    if (!ReadFirstTune(options))
        return lStatusFailed;
    pDebugLogSink = [](std::string_view sText) { std::fwrite(sText.data(), 1, sText.size(), stdout); };
    Score_Dump("Score Dump (as requested)\r\n");
    pDebugLogSink = nullptr;
    return lStatusGood;
}

int32_t Task_List(Options const& options)
{
    HeadlessProcess process;
    process.BeginConversion(options.lWidth, options.lHeight);
    szTerminalFile = options.aFiles[0];
    HFILE const hFile = _lopen(options.aFiles[0]);
    if (!hFile)
    {
        Terminal_Error("the file can't be opened");
        return lStatusFailed;
    }
    auto const aRows = Abc_ListTunes(hFile);
    _lclose(hFile);
    for (AbcTuneRow const& row : aRows)
        std::printf("%s\n", row.sRow.c_str());
    if (aRows.empty())
        Terminal_Error("there is no tune in the file");
    return aRows.empty() || cTerminalErrors ? lStatusFailed : lStatusGood;
}

int32_t Task_Fingering(Options const& options)
{
    HeadlessProcess process;
    process.BeginConversion(options.lWidth, options.lHeight);
    if (!ReadFirstTune(options))
        return lStatusFailed;
    return FingeringList_Print() ? lStatusGood : lStatusFailed;
}

int32_t Task_Play(Options const& options)
{
    HeadlessProcess process;
    process.BeginConversion(options.lWidth, options.lHeight);
    if (!ReadFirstTune(options))
        return lStatusFailed;
    return PlayAloud(process.user) ? lStatusGood : lStatusFailed;
}

static bool ReadJournal(std::string const& szPath, std::string* psJournal)
{
    HFILE const hFile = _lopen(szPath);
    if (!hFile)
        return false;
    char aBytes[1 << 16];
    int32_t cb = 0;
    while ((cb = _lread(hFile, aBytes, sizeof aBytes)) > 0)
        psJournal->append(aBytes, static_cast<size_t>(cb));
    _lclose(hFile);
    return cb == 0;
}

int32_t Task_Replay(Options const& options, DocumentMaker pMaker)
{
    szTerminalFile = options.sJournal;
    std::string sJournal;
    if (!ReadJournal(options.sJournal, &sJournal))
    {
        Terminal_Error("the journal can't be opened");
        return lStatusFailed;
    }
    HeadlessProcess process;
    process.user.pOnShown = nullptr; // the replay tells in its own words
    ShellDoor door;
    host.pDoor = &door;
    host.pSound = &process.sound;
    if (!StartUp(options.aFiles.empty() ? std::string() : options.aFiles[0]))
    {
        Terminal_Error("the editor can't be started");
        return lStatusFailed;
    }
    int32_t lStatus = Replay_Play(sJournal, process.user,
                                  [](std::string_view sLine)
                                  { std::fprintf(stderr, "%.*s\n", static_cast<int>(sLine.size()), sLine.data()); });
    process.user.pOnShown = [](Shown const& shown) { std::fprintf(stderr, "%s\n", Shown_Line(shown).c_str()); };
    if (!options.sOutput.empty() && !Export_Write(options.sOutput, FormatOf(options), pMaker))
        lStatus = lStatusFailed;
    return lStatus;
}
} // namespace zarn

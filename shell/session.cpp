// A session's files lie side by side: session-ABCDEF, which the living program holds a lock on; session-ABCDEF.zrn, the
// score; and session-ABCDEF.names, whose it is. Each is replaced in one step, so that a program that is killed in the
// middle leaves the copy of before.
#include "shell/session.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "file/native.h"
#include "file/native_format.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/lock_file.h"
#include "render/font.h"
#include "shell/door.h"
#include "shell/file_names.h"
#include "shell/load.h"
#include "shell/options.h"
#include "shell/session_file.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

namespace zarn
{
namespace
{
namespace fs = std::filesystem;

constexpr char const* sPrefix = "session-";
constexpr char const* sScoreEnding = ".zrn";
constexpr char const* sNamesEnding = ".names";

/// The place of this program.
struct OwnSession
{
    std::string szBase; ///< of its files; empty: it has none
    LockFile lock;
    size_t nHash = 0;     ///< of the last copy
    bool bCopied = false; ///< the copy is there
    bool bToldFailure = false;
};
OwnSession own;

void RemoveFiles(std::string const& szBase)
{
    for (char const* const sEnding : {sScoreEnding, sNamesEnding, ""})
        DeleteFileA(szBase + sEnding);
}

/// The score as its file would be. Writing marks the notes that have a string, and a mark on one that has lost it
/// spoils the file; so the marks are set right while it is written, and then put back.
std::string ScoreBytes()
{
    std::vector<std::pair<Element*, int32_t>> aMarked;
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            if (pel->sort == NOTE && (pel->lString != 0 || (pel->lA & fFingeringStored) != 0))
            {
                aMarked.emplace_back(pel, pel->lA);
                pel->lA = pel->lString != 0 ? pel->lA | fFingeringStored : pel->lA & ~fFingeringStored;
            }
    std::string sBytes;
    HFILE const hFile = File_IntoString(&sBytes);
    (void)Native_Write(hFile);
    _lclose(hFile);
    for (auto const& [pel, lA] : aMarked)
        pel->lA = lA;
    return sBytes;
}

bool WriteWhole(std::string const& szPath, std::string const& sBytes)
{
    return File_WriteWhole(szPath, sBytes) == FileWritten::WHOLE;
}

std::string ReadWhole(std::string const& szPath)
{
    std::string sBytes;
    HFILE const hFile = _lopen(szPath);
    char aBytes[4096];
    for (int32_t cb = 0; hFile && (cb = _lread(hFile, aBytes, sizeof aBytes)) > 0;)
        sBytes.append(aBytes, static_cast<size_t>(cb));
    if (hFile)
        _lclose(hFile);
    return sBytes;
}

void DropCopy()
{
    if (!std::exchange(own.bCopied, false))
        return;
    DeleteFileA(own.szBase + sScoreEnding);
    DeleteFileA(own.szBase + sNamesEnding);
}

/// The names first: a score that is there always has them.
bool WriteCopy(std::string const& sNames, std::string const& sScore)
{
    return WriteWhole(own.szBase + sNamesEnding, sNames) && WriteWhole(own.szBase + sScoreEnding, sScore);
}

void CopyNow()
{
    std::string const sNames = SessionNames_Write(SessionNames_InHand());
    std::string const sScore = ScoreBytes();
    size_t const nHash = std::hash<std::string>()(sNames + sScore);
    if (own.bCopied && nHash == own.nHash)
        return;
    if (WriteCopy(sNames, sScore))
    {
        own.nHash = nHash;
        own.bCopied = true;
    }
    else if (!std::exchange(own.bToldFailure, true))
        Inform("The safety copy of your unsaved music could not be written: the disk may be full.  The music itself is "
               "as it was.");
}

/// A copy that a program has left behind.
struct Lost
{
    std::string szBase;
    int64_t lSeconds = 0;
};

/// The latest first.
std::vector<Lost> FindLost()
{
    std::vector<Lost> aLost;
    std::error_code error;
    for (fs::directory_iterator it(host.szStateFolder, error), end; !error && it != end; it.increment(error))
    {
        std::string const sName = it->path().filename().string();
        if (!sName.starts_with(sPrefix) || it->path().has_extension() || it->path().string() == own.szBase)
            continue;
        auto const stamp = File_StampOf(it->path().string() + sScoreEnding);
        aLost.push_back({it->path().string(), stamp ? stamp->lSeconds : 0});
    }
    std::sort(aLost.begin(), aLost.end(), [](Lost const& a, Lost const& b) { return a.lSeconds > b.lSeconds; });
    return aLost;
}

std::string TimeText(int64_t lSeconds)
{
    std::time_t const time = lSeconds;
    char aText[40] = "";
    if (std::tm const* const pParts = std::localtime(&time))
        std::strftime(aText, sizeof aText, "%Y-%m-%d %H:%M", pParts);
    return aText;
}

int32_t AskAboutLost(Lost const& lost, SessionNames const& names)
{
    std::string const sName = names.szFile.empty() ? "a new tune" : '\'' + names.szFile + '\'';
    return AskYesNoCancel(
        Format("Zarn came to an end while %s was not saved.  There is a copy of it, made %s.\n\nYes = "
               "Bring the copy back\nNo = Delete the copy\nCancel = Ask again at the next start",
               sName.c_str(), TimeText(lost.lSeconds).c_str()));
}

/// By the road of an opened score file, but for the names.
bool BringBack(Lost const& lost, SessionNames const& names)
{
    HFILE const hFile = _lopen(lost.szBase + sScoreEnding);
    bool const bRead = hFile && ReadNative(hFile);
    if (hFile)
        _lclose(hFile);
    if (!bRead)
        Serious("The copy can't be read.  It stays where it is.");
    else
    {
        SessionNames_Take(names);
        bScoreDirty = true;
        SetWindowTextA(hwndMain, szAbcFile.empty() ? szFileName : AbcTitle(szAbcFile));
        CopyNow(); // ahead of the other's end: there is always one
    }
    Options_ShowChecks();
    Font_Renew();
    InvalidateRect(hwndMain);
    return bRead;
}
} // namespace

void Session_Begin()
{
    if (host.szStateFolder.empty())
        return;
    std::string const szBase = GetTempFileNameA(host.szStateFolder, sPrefix);
    if (szBase.empty())
        return;
    if (!own.lock.Take(szBase))
    {
        DeleteFileA(szBase);
        return;
    }
    own.szBase = szBase;
    SetTimer(MainTimer::AUTOSAVE, host.cAutosaveMs, Session_Copy);
}

void Session_End()
{
    if (own.szBase.empty())
        return;
    KillTimer(MainTimer::AUTOSAVE);
    RemoveFiles(own.szBase);
    own.lock.Release();
    own.szBase.clear();
    own.bCopied = own.bToldFailure = false;
}

void Session_Copy()
{
    // Between the steps of a command the score may be half of the old and half of the new one.
    if (own.szBase.empty() || !hwndMain || cEventsInHand > 0)
        return;
    if (bScoreDirty)
        CopyNow();
    else
        DropCopy();
}

bool Session_OfferLost()
{
    if (host.szStateFolder.empty())
        return false;
    for (Lost const& lost : FindLost())
    {
        LockFile lock;
        if (!lock.Take(lost.szBase))
            continue; // it lives
        if (lost.lSeconds == 0)
        {
            RemoveFiles(lost.szBase); // it had nothing unsaved
            continue;
        }
        SessionNames const names = SessionNames_Read(ReadWhole(lost.szBase + sNamesEnding));
        int32_t const lAnswer = AskAboutLost(lost, names);
        if (lAnswer == 0)
            RemoveFiles(lost.szBase);
        if (lAnswer != 1)
            continue;
        bool const bBack = BringBack(lost, names);
        if (bBack && own.bCopied)
            RemoveFiles(lost.szBase);
        return bBack;
    }
    return false;
}

void Unsaved_Show()
{
    SetWindowModified(hwndMain, bScoreDirty);
    if (!bScoreDirty)
        DropCopy();
}
} // namespace zarn

// One tune's text in the place of another.
//
// The old file is read once from its start to its end and copied as it goes, so that its size costs time but no memory.
// A tune ends where the reader ends it: at a blank line, or at the next X: line, since in a file whose lines end in a
// single LF or CR a blank line is often none to the reader.
#include "abc/multi_tune_save.h"

#include "abc/abc_lines.h"
#include "abc/abc_write.h"
#include "abc/abc_write_staff.h"
#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "midi/score_times.h"
#include "platform/files.h"

#include <array>
#include <memory>

namespace zarn
{
namespace
{
/// Ahead of a tune at the end of a file: always CRLF, whatever the option says.
constexpr std::string_view sGap = "\r\n\r\n";

struct FileCloser
{
    void operator()(HFILE hFile) const { _lclose(hFile); }
};
using OldFile = std::unique_ptr<File, FileCloser>;

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

/// Puts a file that was begun by _lcreat in its place, when all has been written.
bool PutInPlace(HFILE hNew, bool bWritten)
{
    if (!bWritten)
        File_GiveUp(hNew);
    else if (_lclose(hNew))
        return true;
    Serious("File failed to save (catastrophic error? out of space? read only file?)");
    return false;
}

/// From where the old file stands to its end.
bool CopyRest(HFILE hOld, HFILE hNew)
{
    std::array<char, 16 * 1024> aBytes;
    for (;;)
    {
        int32_t const cb = _lread(hOld, aBytes.data(), static_cast<int32_t>(aBytes.size()));
        if (cb <= 0)
            return cb == 0;
        if (_lwrite(hNew, aBytes.data(), cb) != cb)
            return false;
    }
}

/// A line with the CR or LF that ends it, or as much of one as cchAbcLine bytes hold.
struct Piece
{
    std::array<char, cchAbcLine> aBytes;
    int32_t cb = 0;

    /// False when the disk failed. Nothing is read at the end of the file.
    bool Read(HFILE hFile)
    {
        for (cb = 0; cb < cchAbcLine;)
        {
            char c = 0;
            int32_t const cbRead = _lread(hFile, &c, 1);
            if (cbRead <= 0)
                return cbRead == 0;
            aBytes[static_cast<size_t>(cb++)] = c;
            if (IsLineEnd(c))
                break;
        }
        return true;
    }
    [[nodiscard]] std::string_view Text() const { return {aBytes.data(), static_cast<size_t>(cb)}; }
    [[nodiscard]] bool EndsLine() const { return IsLineEnd(Text().back()); }
};

/// "X:" with that number right behind.
bool IsIndexOf(std::string_view sLine, int32_t lTune)
{
    if (!sLine.starts_with("X:"))
        return false;
    int64_t lNumber = 0;
    size_t n = 2;
    for (; n < sLine.size() && sLine[n] >= '0' && sLine[n] <= '9'; ++n)
        lNumber = Clamp32(lNumber * 10 + (sLine[n] - '0'));
    return n > 2 && lNumber == lTune;
}

enum class CopyEnd
{
    AT_TUNE, ///< its X: line has been read, and not copied
    AT_END,
    FAILED
};

/// Copies the tunes ahead of the wanted one.
CopyEnd CopyUpTo(HFILE hOld, HFILE hNew, int32_t lTune)
{
    bool bLineStart = true;
    for (Piece piece; piece.Read(hOld);)
    {
        if (piece.cb == 0)
            return CopyEnd::AT_END;
        if (bLineStart && IsIndexOf(piece.Text(), lTune))
            return CopyEnd::AT_TUNE;
        if (!AbcPut(hNew, piece.Text()))
            return CopyEnd::FAILED;
        bLineStart = piece.EndsLine();
    }
    return CopyEnd::FAILED;
}

/// From the place where a line was looked for to its first character.
bool GoToText(HFILE hOld, int32_t lPlace)
{
    if (lPlace < 0 || _llseek(hOld, lPlace, FILE_BEGIN) < 0)
        return false;
    char c = 0;
    do
        if (_lread(hOld, &c, 1) != 1)
            return false;
    while (IsLineEnd(c));
    return _llseek(hOld, -1, FILE_CURRENT) >= 0;
}

/// Reads past the tune whose X: line has been read.
bool SkipTune(HFILE hOld)
{
    bool bTextSeen = false;
    for (AbcLine line;;)
    {
        int32_t const lPlace = _llseek(hOld, 0, FILE_CURRENT);
        int32_t const lLast = AbcReadLine(hOld, line);
        if (lLast == lAbcEndOfFile || (lLast == lAbcBlankLine && bTextSeen))
            return true;
        if (line.StartsField('X'))
            return GoToText(hOld, lPlace);
        bTextSeen = bTextSeen || lLast != lAbcBlankLine;
    }
}

bool WriteAmongOthers(HFILE hOld, HFILE hNew, std::string_view sTitle, int32_t lTune)
{
    CopyEnd const end = CopyUpTo(hOld, hNew, lTune);
    if (end == CopyEnd::FAILED || (end == CopyEnd::AT_END && !AbcPut(hNew, sGap)))
        return false;
    return AbcWriteTune(hNew, sTitle, lTune) && SkipTune(hOld) && CopyRest(hOld, hNew);
}

bool SaveAmongOthers(std::string const& szFile, std::string_view sTitle, int32_t lTune)
{
    OldFile const pOld(_lopen(szFile));
    if (!pOld)
    {
        Serious("File did not open for reading (to preserve other tunes).\r\n\r\n   Music NOT saved!");
        return false;
    }
    HFILE const hNew = _lcreat(szFile);
    if (!hNew)
    {
        Serious("Cannot create temporary file needed for writing to multi-tune abc file.\r\n     NOT saved!");
        return false;
    }
    return PutInPlace(hNew, WriteAmongOthers(pOld.get(), hNew, sTitle, lTune));
}

bool SaveAtEnd(std::string const& szFile, std::string_view sTitle)
{
    Inform("Cannot understand the index numbers in the file.\r\nAppending tune to save to end of file.");
    OldFile const pOld(_lopen(szFile));
    HFILE const hNew = pOld ? _lcreat(szFile) : nullptr;
    if (!hNew)
    {
        Serious("File did not open.  Music NOT saved!");
        return false;
    }
    return PutInPlace(hNew, CopyRest(pOld.get(), hNew) && AbcPut(hNew, sGap) && AbcWriteTune(hNew, sTitle, 0));
}

bool SaveAlone(std::string const& szFile, std::string_view sTitle, int32_t lTune)
{
    HFILE const hNew = _lcreat(szFile);
    return PutInPlace(hNew, hNew && AbcWriteTune(hNew, sTitle, lTune));
}
} // namespace

bool Abc_SaveTune(std::string const& szFile, std::string_view sTitle, int32_t lNumber)
{
    if (!bTimesValid)
        Score_SetTimes();
    bool const bWasDirty = bScoreDirty;
    bool const bSaved = lNumber > 0   ? SaveAmongOthers(szFile, sTitle, lNumber - 1)
                        : lNumber < 0 ? SaveAlone(szFile, sTitle, ~lNumber)
                                      : SaveAtEnd(szFile, sTitle);
    if (!bSaved)
        bScoreDirty = bWasDirty;
    return bSaved;
}
} // namespace zarn

// The ASCII tab writer.
//
// A column of text stands for a column of the score in which something sounds or a bar ends, two characters on from the
// one before, more behind what is wider. A block ends at the first bar line in its last third, or where it is full.
#include "tab/tab_text.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "render/geometry.h"
#include "tab/fingering.h"
#include "tab/tuning.h"

#include <algorithm>
#include <string>
#include <vector>

namespace zarn
{
namespace
{
constexpr int32_t lLineColumns = 65;
constexpr int32_t lFirstColumn = 3;
constexpr int32_t lColumnStep = 2;
constexpr int32_t lFullColumn = 57;     ///< a block that has gone beyond it is written
constexpr int32_t lEarliestBarEnd = 46; ///< a bar line from there on ends the block

bool TakesColumn(int32_t sort) { return sort == NOTE || Sort_IsBarLike(sort); }

class TabBlocks
{
public:
    explicit TabBlocks(HFILE hFile) : hFile(hFile), cStrings(Tab_UsedStrings())
    {
        Refill();
        WriteNames();
    }

    void Add(Element* pel)
    {
        if (TakesColumn(pel->sort))
            StepTo(pel->lStrX);
        bool const bEnd = Mark(pel);
        int32_t const lAt = lColumn - lBase;
        if (bEnd || lAt > lFullColumn)
            Flush();
        if (!bDirty)
            lBase = lColumn;
    }

    void EndStaff()
    {
        if (bDirty)
            Write();
    }

    bool bGood = true;

private:
    void Refill()
    {
        aLines.assign(static_cast<size_t>(cStrings), std::string(lLineColumns, '-'));
        aLines.emplace_back(lLineColumns, ' ');
    }

    /// Only the first block tells the tuning.
    void WriteNames()
    {
        int32_t cAll = 0;
        int32_t lPitch = 0;
        StringIntervals intervals{};
        Tab_GetTuning(&cAll, &lPitch, &intervals);
        for (int32_t lString = 1; lString <= cStrings; ++lString)
        {
            Put(lString, 0, TabNoteName(lPitch));
            lPitch = Wrap_Sub(lPitch, intervals[static_cast<size_t>(lString) - 1]);
        }
    }

    /// On a string from 1, or on the line of marks behind the last. What lies beyond the line or the instrument is left
    /// out.
    void Put(int32_t lString, int32_t lAt, std::string_view sText)
    {
        if (lString < 1 || lString > cStrings + 1 || lAt < 0)
            return;
        std::string& sLine = aLines[static_cast<size_t>(lString) - 1];
        for (size_t n = 0; n < sText.size() && lAt + n < sLine.size(); ++n)
            sLine[lAt + n] = sText[n];
    }

    void PutOnStrings(int32_t lAt, std::string_view sText)
    {
        for (int32_t lString = 1; lString <= cStrings; ++lString)
            Put(lString, lAt, sText);
    }

    /// The two dots of a repeat sign.
    void PutDots(int32_t lAt)
    {
        for (int32_t const lString : {3, 4})
            if (lString <= cStrings)
                Put(lString, lAt, ".");
    }

    /// The notes of a chord share a column; so does what has fallen behind the score's own columns.
    void StepTo(int32_t lStrX)
    {
        bDirty = true;
        if (lColumn >= lStrX || (bStepped && lStrX == lSteppedTo))
            return;
        lColumn += lExtra + lColumnStep;
        lExtra = 0;
        bStepped = true;
        lSteppedTo = lStrX;
    }

    /// True when the block is to end behind it.
    bool Mark(Element* pel)
    {
        int32_t const lAt = lColumn - lBase;
        bool const bBarEnds = lAt >= lEarliestBarEnd;
        switch (pel->sort)
        {
        case NOTE:
            PutFret(pel, lAt);
            return false;
        case BAR:
            PutOnStrings(lAt, "|");
            return bBarEnds;
        case DOUBLEBAR:
            PutOnStrings(lAt, "||");
            return bBarEnds;
        case REPEATSTART:
            PutOnStrings(lAt, "||");
            PutDots(lAt + 2);
            lExtra = 2;
            return bBarEnds;
        case REPEATEND:
            PutDots(lAt);
            PutOnStrings(lAt + 1, "||");
            lExtra = 2;
            return bBarEnds;
        case REPEATENDSTART:
            PutDots(lAt);
            PutOnStrings(lAt + 1, "||");
            PutDots(lAt + 3);
            lExtra = 3;
            return bBarEnds;
        case NEWLINE:
            return bDirty;
        default:
            return false;
        }
    }

    void PutFret(Element* pel, int32_t lAt)
    {
        constexpr int32_t lHighestTwoFigures = 99;
        Tab_FingerMissing(pel);
        if (pel->lString == 0 || pel->lFret < 0 || pel->lFret > lHighestTwoFigures)
        {
            Put(cStrings + 1, lAt, "?");
            return;
        }
        if (pel->lString > cStrings)
            return;
        std::string const sFret = Format("%d", pel->lFret);
        Put(pel->lString, lAt, sFret);
        if (sFret.size() > 1)
            lExtra = 1;
    }

    void Write()
    {
        for (std::string const& sLine : aLines)
        {
            std::string const sBytes = sLine + "\r\n";
            auto const cb = static_cast<int32_t>(sBytes.size());
            bGood = bGood && _lwrite(hFile, sBytes.data(), cb) == cb;
        }
    }

    void Flush()
    {
        Write();
        Refill();
        bDirty = false;
        lBase = lColumn;
    }

    HFILE hFile;
    int32_t cStrings;
    std::vector<std::string> aLines; ///< the strings, and behind them the line of marks
    int32_t lColumn = lFirstColumn;
    int32_t lBase = 0;  ///< the column that the block begins at
    int32_t lExtra = 0; ///< that the next step goes further, as the last mark was wide
    bool bDirty = false;
    bool bStepped = false;
    int32_t lSteppedTo = 0; ///< the score's column of the last step
};
} // namespace

std::string_view TabNoteName(int32_t lPitch)
{
    static constexpr std::string_view aName[] = {"C-", "C#", "D-", "D#", "E-", "F-",
                                                 "F#", "G-", "G#", "A-", "A#", "B-"};
    constexpr int32_t lOctave = 12;
    return aName[(lPitch % lOctave + lOctave) % lOctave];
}

bool Tab_SaveText(HFILE hFile)
{
    if (!bTabShowing)
    {
        Serious("To save tablature, first display the tablature\n(e.g. Action menu Show/Hide Tablature)\n\nNOT yet "
                "saved!");
        return false;
    }
    TabBlocks blocks(hFile);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsVisible(lStaff))
            continue;
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            blocks.Add(pel);
        blocks.EndStaff();
    }
    return blocks.bGood;
}
} // namespace zarn

// The X: and T: lines of a many-tune file.
#include "abc/abc_index.h"

#include "abc/abc_lines.h"
#include "core/messages.h"
#include "core/text.h"
#include "panels/select_tune.h" // the list is a dialog

#include <algorithm>

namespace zarn
{
namespace
{
constexpr int32_t lBelowAllNumbers = -9999999;
constexpr int32_t lNoTuneYet = -1;

/// The number of an X: line; false when it has no digits.
bool ReadIndexNumber(AbcLine const& line, int32_t* plNumber)
{
    int32_t const lDigits = SkipBlanks(line, 2);
    AbcNumber const number = AbcReadNumber(line, lDigits);
    *plNumber = number.lValue;
    return number.lEnd != lDigits;
}

AbcTuneRow UntitledRow(int32_t lNumber) { return {lNumber, {}, Format("%02d: (No title found)", lNumber)}; }

AbcTuneRow TitledRow(int32_t lNumber, std::string sTitle)
{
    std::string sRow = Format("%02d: %s", lNumber, sTitle.c_str());
    return {lNumber, std::move(sTitle), std::move(sRow)};
}

void TellOfSickFile()
{
    if (bAbcNoNumber)
        Serious(
            "Tunes should have index lines like X:1234 where 1234 is a number.\r\nThe number of each tune should be "
            "bigger than the one before.  This file is sick.\r\nYou will get the FIRST tune with the index number "
            "selected.\r\nThis might mean you get the wrong tune.\r\nI suggest you sort out the file.");
    else if (bAbcOutOfOrder)
        Serious(
            "Files should have tunes with index numbers (X: lines) which increase through the file.\r\nThis file "
            "doesn't!\r\nYou will get the FIRST tune with the index number selected.\r\nThis might mean you get the "
            "wrong tune.\r\nI suggest you sort out the file.");
}

/// The digits ahead of the first colon, whatever stands between them.
int32_t NumberOfRow(std::string_view sRow)
{
    int32_t lNumber = 0;
    for (char const c : sRow.substr(0, sRow.find(':')))
        if (c >= '0' && c <= '9')
            lNumber = Clamp32(int64_t{lNumber} * 10 + (c - '0'));
    return lNumber;
}
} // namespace

std::vector<AbcTuneRow> Abc_ListTunes(HFILE hFile)
{
    std::vector<AbcTuneRow> aRows;
    cAbcTunes = 0;
    bAbcNoNumber = bAbcOutOfOrder = false;
    int32_t lNumber = lNoTuneYet;
    int32_t lHighest = lBelowAllNumbers;
    bool bTitled = true;
    _llseek(hFile, 0, FILE_BEGIN);
    for (AbcLine line; AbcReadLine(hFile, line) != lAbcEndOfFile;)
    {
        if (line.StartsField('X'))
        {
            if (!bTitled)
                aRows.push_back(UntitledRow(lNumber));
            if (!ReadIndexNumber(line, &lNumber))
                bAbcNoNumber = true;
            else if (lNumber <= lHighest)
                bAbcOutOfOrder = true;
            else
                lHighest = lNumber;
            ++cAbcTunes;
            bTitled = false;
        }
        else if (line.StartsField('T') && lNumber != lNoTuneYet)
        {
            bTitled = true;
            aRows.push_back(TitledRow(lNumber, std::string(line.From(2))));
        }
    }
    _llseek(hFile, 0, FILE_BEGIN);
    if (!bTitled)
        aRows.push_back(UntitledRow(lNumber));
    TellOfSickFile();
    return aRows;
}

int32_t Abc_ChooseTune(HFILE hFile, HWND hwnd)
{
    static std::string sRow; // with nothing selected, the row of the last time counts
    std::vector<std::string> aRows;
    for (AbcTuneRow& row : Abc_ListTunes(hFile))
        aRows.push_back(std::move(row.sRow));
    lAbcChosen = SelectTune(hwnd, std::move(aRows), &sRow) ? NumberOfRow(sRow) : -1;
    return lAbcChosen;
}

int32_t Abc_HighestIndex(HFILE hFile)
{
    int32_t lHighest = 0;
    _llseek(hFile, 0, FILE_BEGIN);
    for (AbcLine line; AbcReadLine(hFile, line) != lAbcEndOfFile;)
    {
        int32_t lNumber = 0;
        if (!line.StartsField('X'))
            continue;
        if (!ReadIndexNumber(line, &lNumber))
            bAbcNoNumber = true;
        lHighest = std::max(lHighest, lNumber);
    }
    _llseek(hFile, 0, FILE_BEGIN);
    return lHighest;
}
} // namespace zarn

// Lines and numbers of ABC text.
#include "abc/abc_lines.h"

#include "abc/abc_listing.h"
#include "core/text.h"

#include <algorithm>
#include <cstring>

namespace zarn
{
std::string_view AbcLine::From(int32_t i) const
{
    return Has(i) ? std::string_view(aText.data() + i, static_cast<size_t>(End() - i)) : std::string_view();
}

/// CR, LF and CRLF each end one line of the file.
void AbcLine::CountLine(char cEnd)
{
    if (cEnd == '\n' || bAfterCr)
    {
        ++lNextLine;
        lNextColumn = 0;
    }
    bAfterCr = cEnd == '\r';
}

/// Takes text, none of which ends a line, and for which there is room.
void AbcLine::Take(std::string_view sText, int32_t cch)
{
    if (bAfterCr)
        CountLine('\0');
    if (cch == 0)
    {
        lLine = lNextLine;
        lFirstColumn = lNextColumn;
    }
    std::memcpy(aText.data() + cch, sText.data(), sText.size());
    lNextColumn += static_cast<int32_t>(sText.size());
}

int32_t AbcLine::Finish(int32_t cch)
{
    lLast = static_cast<int32_t>(strnlen(aText.data(), static_cast<size_t>(cch))) - 1;
    return cch - 1;
}

static bool EndsLine(char c) { return c == '\n' || c == '\r'; }

int32_t AbcReadLine(HFILE hFile, AbcLine& line)
{
    int32_t cch = 0;
    int32_t cLineFeeds = 0;
    line.lLast = -1;
    for (std::string_view sAhead; !(sAhead = File_Ahead(hFile)).empty();)
    {
        std::string_view const sRoom = sAhead.substr(0, static_cast<size_t>(cchAbcLine - cch));
        std::string_view const sText(sRoom.begin(), std::find_if(sRoom.begin(), sRoom.end(), EndsLine));
        if (!sText.empty())
        {
            line.Take(sText, cch);
            File_PassOver(hFile, sText.size());
            cch += static_cast<int32_t>(sText.size());
            if (cch < cchAbcLine)
                continue;
            line.Finish(cch);
            AbcPlace(line, cch - 1);
            AbcLog("An input file line exceeds my 500 char limit.");
            return cch - 1;
        }
        char const cEnd = sAhead.front();
        File_PassOver(hFile, 1);
        line.CountLine(cEnd);
        if (cch > 0)
            return line.Finish(cch);
        // Two LF make a blank line. A CRLF file has the LF of the line before to count, so one blank line is enough for
        // it; in an LF file that one has been read already, so it takes two; a CR file has no blank lines at all.
        if (cEnd == '\n' && ++cLineFeeds == 2)
            return lAbcBlankLine;
    }
    return cch > 0 ? line.Finish(cch) : lAbcEndOfFile;
}

int32_t SkipBlanks(AbcLine const& line, int32_t i)
{
    while (line.At(i) == ' ')
        ++i;
    return i;
}

int32_t SkipBlanksAndTabs(AbcLine const& line, int32_t i)
{
    while (line.At(i) == ' ' || line.At(i) == '\t')
        ++i;
    return i;
}

AbcNumber AbcReadNumber(AbcLine const& line, int32_t i)
{
    int32_t lValue = 0;
    for (; line.At(i) >= '0' && line.At(i) <= '9'; ++i)
        lValue = Clamp32(int64_t{lValue} * 10 + (line.At(i) - '0'));
    return {lValue, i};
}

AbcFraction AbcReadFraction(AbcLine const& line, int32_t i)
{
    AbcFraction fraction;
    AbcNumber number = AbcReadNumber(line, i);
    if (number.lValue > 0)
        fraction.lNum = number.lValue;
    if (line.At(number.lEnd) == '/')
    {
        fraction.lDen = 2;
        number = AbcReadNumber(line, number.lEnd + 1);
        if (number.lValue > 0)
            fraction.lDen = number.lValue;
    }
    fraction.lEnd = number.lEnd;
    return fraction;
}
} // namespace zarn

/// The lines of an ABC file, and the numbers in them.
#pragma once
#include "platform/files.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace zarn
{
constexpr int32_t cchAbcLine = 500; ///< a longer line comes as several

constexpr int32_t lAbcBlankLine = -1; ///< results of AbcReadLine
constexpr int32_t lAbcEndOfFile = -2;

/// The line in hand, and its place in the file. Positions are indexes into it.
class AbcLine
{
public:
    /// The character at a position; NUL outside the line, so that nothing ever looks past its end.
    [[nodiscard]] char At(int32_t i) const { return Has(i) ? aText[static_cast<size_t>(i)] : '\0'; }
    [[nodiscard]] bool Has(int32_t i) const { return i >= 0 && i <= lLast; }
    [[nodiscard]] int32_t Last() const { return lLast; }    ///< -1 for an empty line
    [[nodiscard]] int32_t End() const { return lLast + 1; } ///< the position behind the line
    /// The text from a position to the end; empty when there is none.
    [[nodiscard]] std::string_view From(int32_t i) const;
    [[nodiscard]] bool StartsField(char c) const { return At(0) == c && At(1) == ':'; }

    [[nodiscard]] int32_t LineNumber() const { return lLine; }                           ///< in the file, from 1
    [[nodiscard]] int32_t ColumnNumber(int32_t i) const { return lFirstColumn + i + 1; } ///< in the file's line, from 1

private:
    friend int32_t AbcReadLine(HFILE hFile, AbcLine& line);
    int32_t Finish(int32_t cch);
    void CountLine(char cEnd);
    void Take(std::string_view sText, int32_t cch);

    std::array<char, cchAbcLine> aText = {};
    int32_t lLast = -1;
    int32_t lLine = 1;
    int32_t lFirstColumn = 0; ///< not 0 when the line goes on from the one before
    int32_t lNextLine = 1;    ///< in the file
    int32_t lNextColumn = 0;
    bool bAfterCr = false;
};

/// Reads the next line: gives its last position, lAbcBlankLine or lAbcEndOfFile. Line ends may be CRLF, LF or CR, but
/// only two LF ahead of a line make a blank line. A NUL ends the line's text.
int32_t AbcReadLine(HFILE hFile, AbcLine& line);

/// The position behind blanks, and behind blanks and tabs.
[[nodiscard]] int32_t SkipBlanks(AbcLine const& line, int32_t i);
[[nodiscard]] int32_t SkipBlanksAndTabs(AbcLine const& line, int32_t i);

/// ASCII digits from a position, without a sign; a number beyond 32 bits is held at the largest.
struct AbcNumber
{
    int32_t lValue = 0; ///< 0 when there are no digits
    int32_t lEnd = 0;   ///< the position behind
};
[[nodiscard]] AbcNumber AbcReadNumber(AbcLine const& line, int32_t i);

/// "3", "3/2", "/2", "/": 1 over 1 unless told otherwise; a stroke alone halves. Both are above 0.
struct AbcFraction
{
    int32_t lNum = 1;
    int32_t lDen = 1;
    int32_t lEnd = 0; ///< the position behind
};
[[nodiscard]] AbcFraction AbcReadFraction(AbcLine const& line, int32_t i);
} // namespace zarn

// Lines and numbers of ABC text.
#include "abc/abc_lines.h"

#include "core/text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>

namespace zarn
{
namespace
{
/// The lines of a text, parted by bars; "#" is a blank line.
std::string Lines(std::string_view sText)
{
    HFILE const hFile = File_FromBytes(sText);
    std::string s;
    AbcLine line;
    for (int32_t lResult = 0; (lResult = AbcReadLine(hFile, line)) != lAbcEndOfFile;)
        s += (lResult == lAbcBlankLine ? "#" : std::string(line.From(0))) + "|";
    _lclose(hFile);
    return s;
}

AbcLine LineOf(std::string_view sText)
{
    HFILE const hFile = File_FromBytes(sText);
    AbcLine line;
    AbcReadLine(hFile, line);
    _lclose(hFile);
    return line;
}

TEST(AbcLines, EndAtTheirFirstLineEnd)
{
    EXPECT_EQ(Lines("a\r\nb\nc\rd"), "a|b|c|d|");
    EXPECT_EQ(Lines(""), "");
}

TEST(AbcLines, TwoLineFeedsAheadOfALineAreABlankLine)
{
    EXPECT_EQ(Lines("a\r\n\r\nb\r\n"), "a|#|b|");
    EXPECT_EQ(Lines("a\r\n\r\n\r\n\r\nb"), "a|#|#|b|") << "each blank line result takes two";
    EXPECT_EQ(Lines("a\n\nb"), "a|b|");
    EXPECT_EQ(Lines("a\n\n\nb"), "a|#|b|");
    EXPECT_EQ(Lines("a\r\r\rb"), "a|b|");
    EXPECT_EQ(Lines("\n\na"), "#|a|");
}

/// The rule a byte at a time: what each line is, and where it stands.
std::string PlainLines(std::string_view sText)
{
    std::string s;
    std::string sLine;
    int32_t cLineFeeds = 0;
    int32_t lLine = 1;
    int32_t lColumn = 0;
    bool bAfterCr = false;
    std::string sPlace;
    auto const EndLine = [&]
    {
        s += sPlace + std::string(sLine.c_str()) + "|";
        sLine.clear();
        cLineFeeds = 0;
    };
    for (char const c : sText)
    {
        if (c == '\n' || bAfterCr)
        {
            ++lLine;
            lColumn = 0;
        }
        bAfterCr = c == '\r';
        if (c != '\r' && c != '\n')
        {
            ++lColumn;
            if (sLine.empty())
                sPlace = Format("%d:%d ", lLine, lColumn);
            sLine += c;
            if (sLine.size() == cchAbcLine)
                EndLine();
        }
        else if (!sLine.empty())
            EndLine();
        else if (c == '\n' && ++cLineFeeds == 2)
        {
            s += "#|";
            cLineFeeds = 0;
        }
    }
    if (!sLine.empty())
        EndLine();
    return s;
}

std::string LinesAndPlaces(std::string_view sText)
{
    HFILE const hFile = File_FromBytes(sText);
    std::string s;
    AbcLine line;
    for (int32_t lResult = 0; (lResult = AbcReadLine(hFile, line)) != lAbcEndOfFile;)
        s += lResult == lAbcBlankLine
                 ? "#|"
                 : Format("%d:%d ", line.LineNumber(), line.ColumnNumber(0)) + std::string(line.From(0)) + "|";
    _lclose(hFile);
    return s;
}

TEST(AbcLines, AreWhatReadingAByteAtATimeGives)
{
    test::ScriptedProcess process; // long lines are told
    std::mt19937 random(3);
    for (int32_t lRound = 0; lRound < 300; ++lRound)
    {
        std::string sText;
        std::string_view const sEnds[] = {"\n", "\r\n", "\r", "\n\n", "\n\r", "\r\r\n"};
        for (uint32_t n = random() % 20; n > 0; --n)
        {
            size_t const cch = random() % 5 == 0 ? 490 + random() % 1100 : random() % 4;
            for (size_t i = 0; i < cch; ++i)
                sText += random() % 400 == 0 ? '\0' : static_cast<char>('a' + random() % 26);
            sText += sEnds[random() % std::size(sEnds)];
        }
        ASSERT_EQ(LinesAndPlaces(sText), PlainLines(sText)) << lRound;
    }
}

TEST(AbcLines, APlaceOutsideTheLineHoldsNul)
{
    AbcLine const line = LineOf("ab\n");
    EXPECT_EQ(line.At(1), 'b');
    EXPECT_EQ(line.At(2), '\0');
    EXPECT_EQ(line.At(-1), '\0');
    int32_t volatile lFarBehind = 1000; // not known to the compiler, which would call it an error
    EXPECT_EQ(line.At(lFarBehind), '\0');
    EXPECT_EQ(line.From(5), "");
}

TEST(AbcLines, ALineNeverHoldsMoreThanFiveHundred)
{
    test::ScriptedProcess const process;
    std::string const s(1200, 'x');
    HFILE const hFile = File_FromBytes(s);
    AbcLine line;
    EXPECT_EQ(AbcReadLine(hFile, line), 499);
    EXPECT_EQ(AbcReadLine(hFile, line), 499);
    EXPECT_EQ(line.ColumnNumber(0), 501);
    EXPECT_EQ(AbcReadLine(hFile, line), 199);
    EXPECT_EQ(line.LineNumber(), 1);
    EXPECT_EQ(AbcReadLine(hFile, line), lAbcEndOfFile);
    _lclose(hFile);
}

TEST(AbcLines, EachKindOfLineEndCountsOnce)
{
    HFILE const hFile = File_FromBytes("a\r\n\r\nb\n\n\nc\rd\r\re");
    AbcLine line;
    std::string s;
    while (AbcReadLine(hFile, line) != lAbcEndOfFile)
        if (line.Last() >= 0)
            s += std::string(line.From(0)) + std::to_string(line.LineNumber()) + " ";
    _lclose(hFile);
    EXPECT_EQ(s, "a1 b3 c6 d7 e9 ");
}

TEST(AbcNumbers, AreHeldInThirtyTwoBits)
{
    EXPECT_EQ(AbcReadNumber(LineOf("2147483647"), 0).lValue, 2147483647);
    EXPECT_EQ(AbcReadNumber(LineOf("2147483648"), 0).lValue, 2147483647);
    EXPECT_EQ(AbcReadNumber(LineOf("x"), 0).lValue, 0);
    EXPECT_EQ(AbcReadNumber(LineOf("-1"), 0).lEnd, 0);
}

TEST(AbcNumbers, FractionsDefaultToOneAndAStrokeAloneHalves)
{
    struct
    {
        char const* sText;
        int32_t lNum, lDen, lEnd;
    } const aCase[] = {{"", 1, 1, 0},    {"3", 3, 1, 1},   {"/", 1, 2, 1},      {"3/4", 3, 4, 3},
                       {"/8x", 1, 8, 2}, {"0/0", 1, 2, 3}, {"12/16", 12, 16, 5}};
    for (auto const& c : aCase)
    {
        AbcFraction const fraction = AbcReadFraction(LineOf(c.sText), 0);
        EXPECT_EQ(fraction.lNum, c.lNum) << c.sText;
        EXPECT_EQ(fraction.lDen, c.lDen) << c.sText;
        EXPECT_EQ(fraction.lEnd, c.lEnd) << c.sText;
    }
}
} // namespace
} // namespace zarn

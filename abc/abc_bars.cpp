// Bars and repeats.
#include "abc/abc_bars.h"

#include "abc/abc_state.h"
#include "core/score.h"

namespace zarn
{
static constexpr int32_t lBarHeight = 2; ///< diatonic position
static constexpr int32_t lFirstTimeHeight = 12;

int32_t ReadRepeatEnd(AbcLine const& line, int32_t i)
{
    AbcExpect(line.At(i) == ':' && line.At(i + 1) == '|', "Bogus ReadRepeatEnd call");
    AbcAdd(lBarHeight, REPEATEND);
    i += 2;
    if (line.At(i) == '|')
        ++i;
    return line.At(i) == '2' ? i + 1 : i;
}

int32_t ReadRepeatStart(AbcLine const& line, int32_t i)
{
    AbcExpect(line.At(i) == '|' && line.At(i + 1) == ':', "Bogus ReadRepeatStart call");
    AbcAdd(lBarHeight, REPEATSTART);
    return i + 2;
}

int32_t ReadRepeatEndStart(AbcLine const& line, int32_t i)
{
    AbcExpect(line.At(i) == ':' && line.At(i + 1) == ':', "Bogus ReadRepeatEndStart call");
    return ReadSpelledRepeatEndStart(i, 2);
}

int32_t ReadSpelledRepeatEndStart(int32_t i, int32_t lLength)
{
    AbcAdd(lBarHeight, REPEATENDSTART);
    return i + lLength;
}

int32_t ReadRepeatFirst(AbcLine const& line, int32_t i)
{
    AbcExpect(line.At(i) == '|' && line.At(i + 1) == '1', "Bogus ReadRepeatFirst call");
    AbcAdd(lBarHeight, BAR);
    AbcAdd(lFirstTimeHeight, REPEATFIRST);
    return i + 2;
}

int32_t ReadDoubleBar(AbcLine const& line, int32_t i)
{
    char const c = line.At(i);
    char const cNext = line.At(i + 1);
    AbcExpect((c == '|' && (cNext == '|' || cNext == ']')) || (c == '[' && cNext == '|'), "Bogus ReadDoubleBar call");
    AbcAdd(lBarHeight, DOUBLEBAR);
    return i + 2;
}

int32_t ReadSingleBar(AbcLine const& line, int32_t i)
{
    AbcExpect(line.At(i) == '|', "Bogus ReadSingleBar call");
    AbcAdd(lBarHeight, BAR);
    return i + 1;
}

int32_t ReadBarSign(AbcLine const& line, int32_t i)
{
    switch (line.At(i + 1))
    {
    case ':':
        return ReadRepeatStart(line, i);
    case '|':
    case ']':
        // "||:" is the "|:" behind its first sign, and gives only the start of the repeat.
        return line.At(i + 2) == ':' ? i + 1 : ReadDoubleBar(line, i);
    case '1':
        return ReadRepeatFirst(line, i);
    default:
        return ReadSingleBar(line, i);
    }
}
} // namespace zarn

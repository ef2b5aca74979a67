// Fields.
//
// Only X: and K: skip blanks behind the colon: "M: 6/8" is a meter of 1/1, and the rest goes on as music.
#include "abc/abc_fields.h"

#include "abc/abc_listing.h"
#include "abc/abc_state.h"
#include "core/messages.h"
#include "core/text.h"
#include "edit/insert.h"
#include "edit/text.h"

#include <cctype>

namespace zarn
{
namespace
{
constexpr int32_t lValuePos = 2;    ///< where a field's value begins
constexpr int32_t lSemibreve = 192; ///< ticks
constexpr int32_t lCrotchet = 48;

/// One sharp is counted by taking 5 off, and one flat by adding 5: sums run modulo 12.
constexpr int32_t lSharp = -5;
constexpr int32_t lFlat = 5;
constexpr int32_t lMinor = -3;

/// True when the text stands here, in capitals or not.
bool Matches(AbcLine const& line, int32_t i, std::string_view sCapitals)
{
    for (char const c : sCapitals)
        if (std::toupper(static_cast<unsigned char>(line.At(i++))) != c)
            return false;
    return true;
}

int32_t KeyOfLetter(char c)
{
    switch (std::toupper(static_cast<unsigned char>(c)))
    {
    case 'A':
    case 'H': // pipers write HP and Hp
        return 3;
    case 'B':
        return 5;
    case 'C':
        return 0;
    case 'E':
        return 4;
    case 'F':
        return -1;
    case 'G':
        return 1;
    default:
        return 2; // D
    }
}

struct Mode
{
    char const* sName;
    int32_t lSharps;
};
constexpr Mode aModes[] = {{"ION", 0},  {"DOR", -2}, {"PHR", -4}, {"LYD", 1},
                           {"MIX", -1}, {"AEO", -3}, {"HYP", -5}, {"LOC", -5}};

/// The mode at a place: its sharps go to *plKey; gives the place behind it.
int32_t ReadMode(AbcLine const& line, int32_t i, int32_t* plKey)
{
    for (Mode const& mode : aModes)
        if (Matches(line, i, mode.sName))
        {
            *plKey += mode.lSharps;
            return i + 3;
        }
    if (line.At(i) == 'm')
    {
        *plKey += lMinor;
        return i + 1; // whatever follows: "min" leaves its "in"
    }
    if (Matches(line, i, "MIN"))
    {
        *plKey += lMinor;
        return i + 3;
    }
    return i;
}

/// A field's fraction; the denominator is always above 0, or it is told.
bool HasDenominator(AbcFraction const& fraction, char const* sComplaint)
{
    if (fraction.lDen > 0)
        return true;
    AbcLog(sComplaint);
    return false;
}
} // namespace

int32_t ReadMeter(AbcLine const& line)
{
    if (line.At(lValuePos) == 'C')
    {
        // Cut time counts as common time, on purpose.
        abc.lMeterNum = abc.lMeterDen = 4;
        return line.At(lValuePos + 1) == '|' ? lValuePos + 2 : lValuePos + 1;
    }
    AbcFraction const fraction = AbcReadFraction(line, lValuePos);
    if (!HasDenominator(fraction, "Bogus denominator in M code"))
        return fraction.lEnd;
    abc.lMeterNum = fraction.lNum;
    abc.lMeterDen = fraction.lDen;
    if (abc.bTuneStarted)
        AbcAdd(lAbcSignHeight, TIMESIG, abc.lMeterNum, abc.lMeterDen);
    return fraction.lEnd;
}

int32_t ReadUnitLength(AbcLine const& line)
{
    AbcFraction const fraction = AbcReadFraction(line, lValuePos);
    if (HasDenominator(fraction, "Bogus denominator in L code"))
        abc.lUnit = Clamp32(int64_t{fraction.lNum} * lSemibreve / fraction.lDen);
    return fraction.lEnd;
}

int32_t ReadTempo(AbcLine const& line)
{
    char const c = line.At(lValuePos);
    bool const bLetter = (c >= 'A' && c <= 'G') || (c >= 'a' && c <= 'g') || c == 'Z' || c == 'z';
    int32_t const lStart = bLetter && line.At(lValuePos + 1) == '=' ? lValuePos + 2 : lValuePos;
    AbcNumber const number = AbcReadNumber(line, lStart);
    if (number.lValue < 1)
    {
        AbcPlace(line, lStart);
        AbcLog("Bogus tempo");
        return line.End();
    }
    if (abc.bTuneStarted)
        AbcAdd(lAbcAboveHeight, TEMPO, Clamp32(int64_t{number.lValue} * abc.lUnit / lCrotchet));
    else
        abc.lTempo = number.lValue;
    return number.lEnd;
}

int32_t ReadVoice(AbcLine const& line)
{
    int32_t const lVoice = AbcReadNumber(line, lValuePos).lValue;
    if (lVoice < 1 || lVoice > lHighestStaff)
        return line.End();
    abc.lVoice = lVoice;
    SelectInsertStaff(lVoice);
    if (lVoice > 1)
        abc.bTuneStarted = false;
    return line.End();
}

int32_t ReadTitle(AbcLine const& line)
{
    if (!abc.bTitleSeen)
        abc.sTitle = line.From(lValuePos);
    abc.bTitleSeen = true;
    return line.End();
}

int32_t ReadKey(AbcLine const& line, int32_t i)
{
    i += 2;
    if (!line.Has(i))
        return line.End();
    i = SkipBlanksAndTabs(line, i);
    int32_t lKey = KeyOfLetter(line.At(i));
    ++i;
    if (line.At(i) == '#')
    {
        lKey += lSharp;
        ++i;
    }
    if (Matches(line, i, "FLAT"))
    {
        lKey += lFlat;
        i += 4;
    }
    if (line.At(i) == 'b')
    {
        lKey += lFlat;
        ++i;
    }
    i = ReadMode(line, i, &lKey);
    abc.lKey = lKey < -5 ? lKey + 12 : lKey > 6 ? lKey - 12 : lKey;
    if (abc.bTuneStarted)
        AbcAdd(lAbcSignHeight, KEYSIG, abc.lKey);
    else
    {
        AbcStartTune();
        abc.bNoNewline = true;
    }
    return i + 1; // one sign behind the key is never looked at
}

int32_t ReadUnknownField(AbcLine const& line)
{
    Text_AddAtInsertPoint(line.From(0), line.End() + 1, ABC, abc.bTuneStarted);
    return line.End();
}
} // namespace zarn

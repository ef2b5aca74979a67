// Names and lengths of ABC notes.
#include "abc/abc_note_text.h"

#include "core/text.h"

#include <iterator>
#include <numeric>

namespace zarn
{
namespace
{
constexpr int32_t lQuaver = 24; ///< ticks; the unit of every tune that is written

/// A length in quavers; 1 over 1 for a duration of 0, in lowest terms otherwise.
struct Quavers
{
    int64_t lNum = 1;
    int64_t lDen = 1;
};

Quavers QuaversOf(int32_t lDuration)
{
    if (lDuration == 0)
        return {};
    int64_t const lCommon = std::gcd(int64_t{lDuration}, int64_t{lQuaver});
    // The sign of a damaged duration stays where the length is written: above, or below when 1 stands above.
    Quavers quavers{lDuration / lCommon, lQuaver / lCommon};
    if (quavers.lNum == -1 && quavers.lDen != 1)
        return {1, -quavers.lDen};
    return quavers;
}
} // namespace

std::string_view AbcNoteName(int32_t lDiaPitch)
{
    constexpr int32_t lLowest = -14;
    static constexpr std::string_view aName[] = {
        "C,,", "D,,", "E,,", "F,,", "G,,", "A,,", "B,,", "C,",  "D,",  "E,",  "F,",  "G,",  "A,",  "B,",
        "C",   "D",   "E",   "F",   "G",   "A",   "B",   "c",   "d",   "e",   "f",   "g",   "a",   "b",
        "c'",  "d'",  "e'",  "f'",  "g'",  "a'",  "b'",  "c''", "d''", "e''", "f''", "g''", "a''", "b''"};
    constexpr auto cNames = static_cast<int32_t>(std::size(aName));
    if (lDiaPitch < lLowest || lDiaPitch >= lLowest + cNames)
        return "X";
    return aName[lDiaPitch - lLowest];
}

std::string AbcNoteLength(int32_t lDuration)
{
    Quavers const quavers = QuaversOf(lDuration);
    if (quavers.lDen == 1)
        return quavers.lNum == 1 ? "" : std::to_string(quavers.lNum);
    if (quavers.lNum == 1)
        return quavers.lDen == 2 ? "/" : "/" + std::to_string(quavers.lDen);
    return std::to_string(quavers.lNum) + "/" + std::to_string(quavers.lDen);
}

std::string AbcRest(int32_t lDuration)
{
    Quavers const quavers = QuaversOf(lDuration);
    if (quavers.lNum == 1 && quavers.lDen != 1)
        return "z/" + std::to_string(quavers.lDen) + "  ";
    return "z" + AbcNoteLength(lDuration) + " ";
}
} // namespace zarn

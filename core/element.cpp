// What one Element says of itself, without a look at its neighbours.
#include "core/element.h"

#include "core/messages.h"
#include "core/text.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace zarn
{
void Element_Init(Element* pel) { *pel = Element{}; }

char* Element_TextBytes(Element* pel) { return reinterpret_cast<char*>(pel) + offsetof(Element, text); }

char const* Element_TextBytes(Element const* pel)
{
    return reinterpret_cast<char const*>(pel) + offsetof(Element, text);
}

std::string_view Element_Text(Element const* pel)
{
    auto const cchRoom = static_cast<size_t>(std::max(pel->storage, cbPlainElement) - cbElementFixed);
    char const* const s = Element_TextBytes(pel);
    return {s, strnlen(s, cchRoom)};
}

char const* Sort_Name(int32_t sort, int32_t lA)
{
    static constexpr char const* aName[] = {
        "NOSORT",    "NOTE",        "BAR",         "DOUBLEBAR",      "CLEF",      "KEYSIG",     "REST",
        "NEWLINE",   "SHARP",       "FLAT ",       "NATURAL",        "TIMESIG",   "SPACE",      "CHORD",
        "LYRICS",    "REPEATSTART", "REPEATEND",   "REPEATENDSTART", "TIE",       "INSTRUMENT", "TEMPO",
        "TRANSPOSE", "UNKNOWNSORT", "UNKNOWNSORT", "REPEATFIRST",    "MARKBEGIN", "MARKEND",    "ABC",
        "TITLE",     "ARPEGSTART",  "ARPEGEND",    "TEXT",           "ANNOT",     "SLUR"};
    if (sort == BOWING)
        return lA == 1 ? "UPBOW" : lA == 2 ? "DOWNBOW" : "UNKNOWNSUBTYPE";
    if (sort < 0 || sort >= static_cast<int32_t>(std::size(aName)))
        return "UNKNOWNSORT";
    return aName[sort];
}

bool Sort_BearsText(int32_t sort)
{
    return sort == CHORD || sort == LYRICS || sort == ABC || sort == TITLE || sort == TEXT || sort == ANNOT;
}

bool Sort_IsBarLike(int32_t sort)
{
    return sort == BAR || sort == DOUBLEBAR || sort == REPEATEND || sort == REPEATSTART || sort == REPEATENDSTART;
}

bool Sort_IsAccidental(int32_t sort) { return sort == SHARP || sort == FLAT || sort == NATURAL; }

bool IsDotted(int32_t lDuration)
{
    int64_t l = int64_t{lDuration} * 16 / 48;
    while (l >= 4)
        l /= 2;
    return l == 3;
}

bool IsTriplet(int32_t lDuration) { return lDuration >= 2 && lDuration <= 128 && (lDuration & (lDuration - 1)) == 0; }

int32_t OddPart(int32_t lDuration)
{
    return lDuration == 0 ? 0 : lDuration >> std::countr_zero(static_cast<uint32_t>(lDuration));
}

int32_t BaseDuration(int32_t lDuration)
{
    switch (OddPart(lDuration))
    {
    case 0:
    case 3:
        return lDuration;
    case 9:
        return lDuration / 9 * 6;
    case 1:
        return Clamp32(int64_t{lDuration} * 3 / 2);
    default:
        return Serious(Format("Invalid BaseDuration call. %d  Tell Odrian.", lDuration));
    }
}
} // namespace zarn

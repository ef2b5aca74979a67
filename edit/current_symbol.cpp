// elCurrent, the template of the next add.
#include "edit/current_symbol.h"

#include "core/messages.h"
#include "edit/mark.h"

#include <algorithm>
#include <cstring>

namespace zarn
{
static constexpr int32_t lLongestUnremarked = 192; ///< ticks: a semibreve
static constexpr int32_t lDefaultVolume = 64;

namespace
{
struct Writing
{
    int32_t sort;
    std::string_view sFirst;
    char const* szTitle;
};
/// By WritingType.
constexpr Writing aWriting[] = {{TITLE, "Line title", "Title"},
                                {LYRICS, "Text", "Lyric"},
                                {CHORD, "Am7", "Harmony"},
                                {TEXT, "text", "Text"},
                                {ANNOT, "annot", "Annotation"}};

Writing const* FindWriting(int32_t lType)
{
    return lType >= 0 && lType < static_cast<int32_t>(std::size(aWriting)) ? &aWriting[lType] : nullptr;
}
} // namespace

void CurrentSymbol_Set(int32_t sort, int32_t lA, int32_t lB)
{
    Element_Init(&elCurrent);
    elCurrent.sort = sort;
    elCurrent.lA = lA;
    elCurrent.lB = lB;
    if (sort == NEWLINE)
        elSavedCurrent.sort = NOSORT; // the symbol from before a mark sign is forgotten
}

void CurrentSymbol_SetDuration(int32_t lDuration)
{
    if (elCurrent.sort != NOTE && elCurrent.sort != REST)
        elCurrent.sort = NOTE;
    if (lDuration > lLongestUnremarked)
        Serious("Too long.  Boredom coefficient > 1.0");
    elCurrent.lDuration = lDuration;
}

void CurrentSymbol_SetNote(int32_t lDuration)
{
    CurrentSymbol_Set(NOTE, 0, lDefaultVolume);
    CurrentSymbol_SetDuration(lDuration);
}

void CurrentSymbol_SetRest(int32_t lDuration)
{
    CurrentSymbol_Set(REST);
    CurrentSymbol_SetDuration(lDuration);
}

/// The bytes behind the text are NULs, to the end of what a text may be.
static void FillText(std::string_view sText)
{
    char* const pText = Element_TextBytes(&elCurrent);
    sText.copy(pText, sText.size());
    std::memset(pText + sText.size(), 0, static_cast<size_t>(cchLongestText) - sText.size());
    elCurrent.lA = static_cast<int32_t>(sText.size());
}

void CurrentSymbol_SetWriting(int32_t lType)
{
    CurrentSymbol_Set(NOSORT);
    Writing const* const pWriting = FindWriting(lType);
    if (!pWriting)
    {
        Serious("What the blazes is this writing type?");
        return;
    }
    elCurrent.sort = pWriting->sort;
    FillText(pWriting->sFirst); // storage stays that of a plain record: a longer text is yet to be typed
}

char const* Writing_Title(int32_t lType)
{
    Writing const* const pWriting = FindWriting(lType);
    return pWriting ? pWriting->szTitle : "??? minor bug here!";
}

void CurrentSymbol_SetText(std::string_view sText)
{
    sText = sText.substr(0, static_cast<size_t>(cchLongestText));
    FillText(sText);
    elCurrent.storage =
        std::min(elCurrent.storage + static_cast<int32_t>(sText.size()), cbPlainElement + cchLongestText);
}
} // namespace zarn

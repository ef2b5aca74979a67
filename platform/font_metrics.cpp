// Text widths from a table of the face's advances; no shaping, no kerning.
#include "platform/font_metrics.h"

#include "platform/utf8.h"

#include <algorithm>
#include <iterator>

namespace zarn
{
namespace
{
/// Characters that follow each other, and the place of the first one's advance in the tables.
struct AdvanceRange
{
    int32_t lFirst;
    int32_t lLast;
    int32_t lPlace;
};
} // namespace

#include "platform/font_advances.inc"

static_assert(std::size(aRegular) == std::size(aBold));
static_assert(std::end(aRanges)[-1].lPlace + std::end(aRanges)[-1].lLast - std::end(aRanges)[-1].lFirst + 1 ==
              std::size(aRegular));

static constexpr int32_t lWidestRegular = *std::max_element(std::begin(aRegular), std::end(aRegular));
static constexpr int32_t lWidestBold = *std::max_element(std::begin(aBold), std::end(aBold));

static int32_t CharacterAdvance(int32_t lCharacter, bool bBold)
{
    if (IsControlCharacter(lCharacter))
        return 0; // never drawn
    for (AdvanceRange const& range : aRanges)
        if (lCharacter >= range.lFirst && lCharacter <= range.lLast)
        {
            int32_t const lPlace = range.lPlace + lCharacter - range.lFirst;
            return bBold ? aBold[lPlace] : aRegular[lPlace];
        }
    return bBold ? lWidestBold : lWidestRegular;
}

int64_t Face_Advance(std::string_view sText, bool bBold)
{
    int64_t lSum = 0;
    for (size_t lAt = 0; lAt < sText.size();)
    {
        int32_t const lCharacter = Utf8_Next(sText, lAt);
        if (lCharacter >= 0)
        {
            lSum += CharacterAdvance(lCharacter, bBold);
            continue;
        }
        lSum = 0;
        for (char const ch : sText)
            lSum += CharacterAdvance(static_cast<uint8_t>(ch), bBold);
        return lSum;
    }
    return lSum;
}

int32_t Face_AverageAdvance(bool bBold)
{
    constexpr std::string_view sLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr int64_t cLetters = sLetters.size();
    return static_cast<int32_t>((Face_Advance(sLetters, bBold) + cLetters / 2) / cLetters);
}

int32_t LayoutTextPixels(std::string_view sText)
{
    constexpr int64_t lLayoutEm = 12; // pixels
    int64_t const lPixels = (Face_Advance(sText, false) * lLayoutEm + lUnitsPerEm / 2) / lUnitsPerEm;
    return static_cast<int32_t>(std::min<int64_t>(lPixels, INT32_MAX));
}

std::string Utf8OrLatin1(std::string_view sText)
{
    if (Utf8_IsValid(sText))
        return std::string(sText);
    std::string sUtf8;
    for (char const ch : sText)
        Utf8_Append(sUtf8, static_cast<uint8_t>(ch));
    return sUtf8;
}
} // namespace zarn

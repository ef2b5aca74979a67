// UTF-8 by the table of well-formed sequences: the first byte tells the length and the least value that needs it.
#include "platform/utf8.h"

namespace zarn
{
int32_t Utf8_Next(std::string_view sText, size_t& lAt)
{
    if (lAt >= sText.size())
        return -1;
    uint8_t const first = static_cast<uint8_t>(sText[lAt]);
    if (first < 0x80)
    {
        ++lAt;
        return first;
    }
    size_t const cMore = first >= 0xC2 && first < 0xE0 ? 1 : first >= 0xE0 && first < 0xF0 ? 2 : first < 0xF5 ? 3 : 0;
    if (first < 0xC2 || cMore == 0 || sText.size() - lAt <= cMore)
        return -1;
    int32_t lCharacter = first & (0x3F >> cMore);
    for (size_t l = 1; l <= cMore; ++l)
    {
        uint8_t const next = static_cast<uint8_t>(sText[lAt + l]);
        if ((next & 0xC0) != 0x80)
            return -1;
        lCharacter = (lCharacter << 6) | (next & 0x3F);
    }
    constexpr int32_t aLeast[] = {0, 0x80, 0x800, 0x10000};
    bool const bSurrogate = lCharacter >= 0xD800 && lCharacter < 0xE000;
    if (lCharacter < aLeast[cMore] || bSurrogate || lCharacter > 0x10FFFF)
        return -1;
    lAt += cMore + 1;
    return lCharacter;
}

bool Utf8_IsValid(std::string_view sText)
{
    for (size_t lAt = 0; lAt < sText.size();)
        if (Utf8_Next(sText, lAt) < 0)
            return false;
    return true;
}

std::string_view Utf8_Prefix(std::string_view sText, size_t cb)
{
    if (cb >= sText.size())
        return sText;
    constexpr int32_t lMostBytesBehind = 3;
    size_t lEnd = cb;
    for (int32_t l = 0; l < lMostBytesBehind && lEnd > 0 && (static_cast<uint8_t>(sText[lEnd]) & 0xC0) == 0x80; ++l)
        --lEnd;
    size_t lAt = lEnd;
    bool const bWholeCharacter = Utf8_Next(sText, lAt) >= 0 && lAt > cb;
    return sText.substr(0, lEnd == cb || bWholeCharacter ? lEnd : cb);
}

void Utf8_Append(std::string& sText, int32_t lCharacter)
{
    auto const add = [&](int32_t lByte) { sText.push_back(static_cast<char>(lByte)); };
    if (lCharacter < 0x80)
        add(lCharacter);
    else if (lCharacter < 0x800)
    {
        add(0xC0 | (lCharacter >> 6));
        add(0x80 | (lCharacter & 0x3F));
    }
    else if (lCharacter < 0x10000)
    {
        add(0xE0 | (lCharacter >> 12));
        add(0x80 | ((lCharacter >> 6) & 0x3F));
        add(0x80 | (lCharacter & 0x3F));
    }
    else
    {
        add(0xF0 | (lCharacter >> 18));
        add(0x80 | ((lCharacter >> 12) & 0x3F));
        add(0x80 | ((lCharacter >> 6) & 0x3F));
        add(0x80 | (lCharacter & 0x3F));
    }
}
} // namespace zarn

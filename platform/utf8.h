/// Reading UTF-8, one character at a time.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
/// The character at lAt, and lAt behind it; -1 when no well-formed character stands there (cut off, longer than need
/// be, a surrogate, beyond U+10FFFF), and lAt is left alone.
[[nodiscard]] int32_t Utf8_Next(std::string_view sText, size_t& lAt);
[[nodiscard]] bool Utf8_IsValid(std::string_view sText);
/// The longest part from the start that has cb bytes at most and cuts no character of a valid text in two.
[[nodiscard]] std::string_view Utf8_Prefix(std::string_view sText, size_t cb);
/// Appends a character from 0 to 0x10FFFF.
void Utf8_Append(std::string& sText, int32_t lCharacter);
/// True for what has no picture of its own: U+0000 to U+001F, and U+007F to U+009F.
[[nodiscard]] constexpr bool IsControlCharacter(int32_t lCharacter)
{
    return lCharacter < 0x20 || (lCharacter >= 0x7F && lCharacter < 0xA0);
}
} // namespace zarn

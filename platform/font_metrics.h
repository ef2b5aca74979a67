/// The face's own figures, so that text measures the same with a window, without one, and on every machine.
///
/// DejaVu Sans 2.37, units of 2048 to the em.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
constexpr int32_t lUnitsPerEm = 2048;
constexpr int32_t lFaceAscent = 1901; ///< above the baseline
constexpr int32_t lFaceDescent = 483; ///< below it

/// Sum of the advances of a UTF-8 text in units of 2048 to the em. Characters outside the table count as its widest
/// letter. Bytes that aren't valid UTF-8 count as Latin-1.
[[nodiscard]] int64_t Face_Advance(std::string_view sText, bool bBold);

/// Average advance of the letters a to z and A to Z, in the same units: what a font's width asks for.
[[nodiscard]] int32_t Face_AverageAdvance(bool bBold);

/// The width of a text in the layout: DejaVu Sans regular at 12 pixels, rounded to the nearest pixel.
[[nodiscard]] int32_t LayoutTextPixels(std::string_view sText);

/// The text as it is when it is valid UTF-8, otherwise read as Latin-1.
[[nodiscard]] std::string Utf8OrLatin1(std::string_view sText);
} // namespace zarn

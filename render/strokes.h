/// The few strokes that every symbol is made of. Coordinates are pixels of the target.
#pragma once
#include "platform/gdi.h"

#include <cstdint>
#include <string_view>

namespace zarn
{
constexpr int32_t lThickStroke = 0; ///< as a stroke's thickness: the standard thick one, 70 per cent of a row

/// Where the glyph pen stands, for PenStep. Not the device's position.
inline POINT ptPen;

/// No surface reaches as far, and sums of two such pixels stay in range.
constexpr int32_t lFurthest = 1'000'000;

/// True when x lies where no surface reaches.
[[nodiscard]] constexpr bool TooFar(int32_t x) { return x > lFurthest || x < -lFurthest; }

/// A line one pixel wide; two pixels deep on paper.
void HairLine(HDC hdc, int32_t x1, int32_t y1, int32_t x2, int32_t y2);
/// A level bar, t per cent of a staff space thick, at least one pixel.
void HLine(HDC hdc, int32_t x1, int32_t y, int32_t x2, int32_t t);
/// An upright bar likewise; either end may lie anywhere.
void VLine(HDC hdc, int32_t x, int32_t y1, int32_t y2, int32_t t);
/// A slanted band, t per cent of a row thick, 0 for the standard. bUpright measures its thickness along x.
void Stroke(HDC hdc, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t t, bool bUpright = false);
/// Moves the glyph pen by half columns and half rows, drawing a Stroke.
void PenStep(HDC hdc, int32_t dx, int32_t dy, int32_t t);
void Dot(HDC hdc, int32_t x, int32_t y);
/// A leger line through (x, y); 0 when it is off the page.
int32_t LegerLine(HDC hdc, int32_t x, int32_t y);
/// A text from (x, y), its top; bCentred moves it half a blob to the left. 0 when it is off the page.
int32_t DrawText(HDC hdc, int32_t x, int32_t y, std::string_view sText, bool bCentred);
} // namespace zarn

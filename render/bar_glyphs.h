/// Bar lines, repeat signs, brackets, bows and time signatures. (x, y) lies on the bottom staff line for bar lines.
/// Each reports 0 when off the page and drew nothing.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// n rows in pixels of the page.
[[nodiscard]] int32_t RowsInPixels(int64_t n);

/// Below the first band a bar line runs up through the gap and joins the staff above.
int32_t BarGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff);
int32_t DoubleBarGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff);
int32_t RepeatStartGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff);
int32_t RepeatEndGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff);
int32_t RepeatEndStartGlyph(HDC hdc, int32_t x, int32_t y, int32_t lStaff);
/// lKind 1 up bow, 2 down bow; any other shows a message.
int32_t BowGlyph(HDC hdc, int32_t x, int32_t y, int32_t lKind);
/// Not drawn on paper.
int32_t ArpeggioBracket(HDC hdc, int32_t x, int32_t y, bool bStart);
int32_t RepeatFirstLine(HDC hdc, int32_t x1, int32_t x2, int32_t y);
int32_t RepeatFirstHook(HDC hdc, int32_t x, int32_t y);
int32_t TimeSigGlyph(HDC hdc, int32_t x, int32_t y, int32_t lNum, int32_t lDen);
/// The five lines of a staff between two columns, and while tablature shows the strings below it; lRow is the top
/// line's row on the page.
void StaffLines(HDC hdc, int32_t lFromCol, int32_t lRow, int32_t lToCol);
} // namespace zarn

/// The spacing commands: how many columns and rows share the page, and what is kept free.
///
/// lColsPerLine and lRowsPerPage stay within 1 and lMostColsOrRows, so that a file gives back what was saved.
#pragma once
#include <cstdint>

namespace zarn
{
/// A twentieth fewer or more columns or rows, at least one; then SetUnits and FullAdjust. The caller renews the text
/// font (Font_Renew), which follows the units, and repaints.
void Stretch_Horiz();
void Squeeze_Horiz();
void Stretch_Vert();
void Squeeze_Vert();
/// Back to 150 columns and 120 rows, and the same steps.
void Spacing_Reset();
/// Stores both as the settings that each new score starts with.
void Spacing_SaveAsDefault();

/// Rows kept free, by the number prompts' answers. The caller repaints; positions stay stale until the next ReGrid.
void Legers_SetAbove(int32_t lRows);
void Legers_SetBelow(int32_t lRows); ///< one more than asked for is kept
void Systems_SetGap(int32_t lRows);

/// Per cent of the window, together with the margin opposite at most 80; the grid shrinks so that a column, or a row,
/// keeps its size. The caller then sets the window's units, runs MiniAdjust and repaints.
void Margin_SetLeft(int32_t lPerCent);
void Margin_SetRight(int32_t lPerCent);
void Margin_SetTop(int32_t lPerCent);
void Margin_SetBottom(int32_t lPerCent);
} // namespace zarn

/// The note palette: the commonest symbols as a picture, along the bottom of the main window.
///
/// One table says for each symbol where it stands, how it is drawn, and what a click makes of the current symbol.
#pragma once
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
constexpr int32_t cPaletteCells = 31;
constexpr int32_t lPaletteColumns = 31; ///< the width is divided in so many units
constexpr int32_t lPaletteRows = 6;     ///< and the height

/// A symbol of the palette.
struct PaletteCell
{
    int32_t lColumn;                                     ///< units from the left
    int32_t lRow;                                        ///< units from the top
    char const* sTip;                                    ///< its name and its key
    int32_t lValue;                                      ///< ticks, a clef or a sort, as the two below take it
    void (*pDraw)(HDC hdc, POINT place, int32_t lValue); ///< null: the cell shows nothing
    void (*pTake)(int32_t lValue);                       ///< changes the current symbol
};
extern PaletteCell const aPaletteCell[cPaletteCells];

/// The palette, hidden yet; null when the platform has none to give.
[[nodiscard]] Panel* Palette_Create(HWND hwndParent);
/// Draws it; nothing while bPrinting is set.
void Palette_Paint(Panel& window, HDC hdc);
/// The cell that a place in the palette's own pixels belongs to; null for none. A column with one cell answers to any
/// height, the others need the row.
[[nodiscard]] PaletteCell const* Palette_CellAt(SIZE size, POINT place);
/// Makes the symbol at that place the current one: 1. With no symbol there it beeps: 0.
int32_t Palette_Hit(Panel& window, int32_t x, int32_t y);
} // namespace zarn

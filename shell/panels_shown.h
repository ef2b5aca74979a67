/// The palette and the piano as parts of the main window: made, placed, shown and hidden.
#pragma once
#include "panels/panel_size.h"
#include "platform/types.h"

#include <cstdint>

namespace zarn
{
/// Makes both panels of hwndMain and shows those that show at start, with the checks of their menu items. Once for each
/// main window, ahead of its first Panels_Place.
void Panels_Create();
/// Puts the palette on the bottom eighth of the client area, the piano on the bottom quarter.
void Panels_Place(SIZE client);
/// The main window goes, and the panels with it.
void Panels_Forget();

/// A click at a place in the panel's own pixels. A panel that doesn't show takes none.
void PaletteClick(int32_t x, int32_t y);
void PianoClick(int32_t x, int32_t y);

void TogglePalette();
void TogglePiano();
void PaletteClosed(); ///< Hides it, with its check; it may be hidden already.
void PianoClosed();
} // namespace zarn

// The panels' life in the main window.
#include "shell/panels_shown.h"

#include "core/messages.h"
#include "panels/palette.h"
#include "panels/piano.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/modes.h"

namespace zarn
{
static Panel* pPalette = nullptr;
static Panel* pPiano = nullptr;

static void ShowPanel(Panel* pPanel, int32_t lCommand, bool bOn)
{
    if (pPanel)
        pPanel->Show(bOn);
    Menu_Check(lCommand, bOn);
}

/// The piano is as tall as the palette leaves it.
static void ShowPalette(bool bOn)
{
    bPaletteShowing = bOn;
    ShowPanel(pPalette, COMMAND_PALETTE, bOn);
    if (pPiano)
        pPiano->Invalidate();
    InvalidateRect(hwndMain);
}

static void ShowPiano(bool bOn)
{
    bPianoShowing = bOn;
    ShowPanel(pPiano, COMMAND_PIANO, bOn);
    InvalidateRect(hwndMain);
}

void Panels_Create()
{
    pPiano = Piano_Create(hwndMain);
    pPalette = Palette_Create(hwndMain); // in front of the piano
    ShowPalette(true);
    ShowPiano(false);
}

void Panels_Place(SIZE client)
{
    int32_t const w = client.cx;
    int32_t const h = client.cy;
    if (pPalette)
    {
        auto const top = static_cast<int32_t>(int64_t{7} * h / 8);
        pPalette->SetPlace({0, top, w, top + h / 8});
    }
    if (pPiano)
    {
        constexpr int32_t lMargin = 5; // pixels, to the left, to the right and below
        auto const top = static_cast<int32_t>(int64_t{3} * h / 4);
        pPiano->SetPlace({lMargin, top, w - lMargin, top + h / 4 - lMargin});
    }
}

void Panels_Forget()
{
    pPalette = nullptr;
    pPiano = nullptr;
}

void PaletteClick(int32_t x, int32_t y)
{
    if (!pPalette || !bPaletteShowing)
        return;
    EnterMouseMode(hwndMain);
    if (Palette_Hit(*pPalette, x, y) != 0)
        CommitSymbol(); // in mouse mode: the pointer takes its shape
}

void PianoClick(int32_t x, int32_t y)
{
    if (pPiano && bPianoShowing)
        Piano_Click(*pPiano, x, y);
}

void TogglePalette() { ShowPalette(!bPaletteShowing); }

void TogglePiano() { ShowPiano(!bPianoShowing); }

void PaletteClosed() { ShowPalette(false); }

void PianoClosed() { ShowPiano(false); }
} // namespace zarn

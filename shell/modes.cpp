// Modes, and the add that moves the pointer on.
#include "shell/modes.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/add.h"
#include "edit/delete.h"
#include "edit/mark.h"
#include "render/geometry.h"
#include "render/symbol_cursor.h"
#include "render/tab_band.h"
#include "shell/command_numbers.h"
#include "shell/edit_commands.h"
#include "shell/main_window.h"
#include "shell/menu.h"
#include "shell/options.h"
#include "shell/panels_shown.h"
#include "shell/score_dc.h"

#include <algorithm>

namespace zarn
{
void EnterKeyboardMode()
{
    if (fMouseMode)
    {
        Menu_Enable(COMMAND_KEYBOARDMODE, false);
        Menu_Enable(COMMAND_MOUSEMODE, true);
        fMouseMode = 0;
    }
    SetCursor(hwndMain, PointerShape::CROSS);
}

void EnterMouseMode(HWND hwnd)
{
    if (fMouseMode)
        return;
    Menu_Enable(COMMAND_KEYBOARDMODE, true);
    Menu_Enable(COMMAND_MOUSEMODE, false);
    MakeSymbolCursor(hwnd);
    fMouseMode = 1;
}

void Modes_Show()
{
    fMouseMode = 1;
    Menu_Enable(COMMAND_KEYBOARDMODE, true);
    Menu_Enable(COMMAND_MOUSEMODE, false);
    MakeSymbolCursor(hwndMain);
}

void ShowDeletedAsPointer()
{
    if (bEditMode && fMouseMode)
        MakeSymbolCursor(hwndMain);
}

POINT SnapToString(POINT place)
{
    int32_t lStrX = 0;
    int32_t lString = 0;
    int32_t lStaff = 0;
    TabStraighten(place.x, place.y, &lStrX, &lString, &lStaff);
    TabFold(lStrX, lString, lStaff, &place.x, &place.y);
    return place;
}

POINT SnapToGrid(POINT place)
{
    // The strings stand a whole number of pixels below the staff, off the rows: a row beside one might be off the
    // tablature already.
    if (OnTablature(place.x, place.y))
        return SnapToString(place);
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(place.x, place.y, &lStrX, &lDiaPitch, &lStaff, 1);
    Draw_Fold(lStrX, lDiaPitch, lStaff, 1, &place.x, &place.y);
    return place;
}

void ShowModePointer(HWND hwnd)
{
    if (bPianoShowing)
        SetCursor(hwnd, PointerShape::UP);
    else if (POINT const place = GetCursorPos(hwnd); fMouseMode || OnTablature(place.x, place.y))
        ReassertCursor(hwnd);
    else
        SetCursor(hwnd, PointerShape::CROSS);
}

void CommitSymbol()
{
    if (fMouseMode)
    {
        MakeSymbolCursor(hwndMain);
        return;
    }
    ScoreDC const hdc;
    AddCurrentSymbol(hwndMain, hdc);
}

namespace
{
/// A place of the grid, in the treble frame.
struct GridPlace
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;

    explicit GridPlace(POINT place) { Draw_Straighten(place.x, place.y, &lStrX, &lDiaPitch, &lStaff, 1); }
    [[nodiscard]] POINT Folded() const
    {
        POINT place;
        Draw_Fold(lStrX, lDiaPitch, lStaff, 1, &place.x, &place.y);
        return place;
    }
};
} // namespace

/// Rows of pixels that the panels leave free.
static int32_t UsableHeight(HWND hwnd)
{
    int32_t const lHeight = GetClientRect(hwnd).bottom;
    return bPianoShowing ? lHeight * 3 / 4 : bPaletteShowing ? lHeight * 7 / 8 : lHeight;
}

void AddCurrentSymbol(HWND hwnd, HDC hdc)
{
    if (RefuseInRightJustified())
        return;
    POINT const pointer = GetCursorPos(hwnd);
    GridPlace place(pointer);
    Element* const pelAhead = FindAtOrBefore(place.lStrX, place.lStaff);
    bool const bBetween = pelAhead && Next(pelAhead);
    KeptCursor const ahead(pelAhead);
    bool const bMark = elCurrent.sort == MARKBEGIN || elCurrent.sort == MARKEND;
    Element const* const pelAdded = AddAtMouse(hdc, hwnd, pointer.x, pointer.y);
    if (bMark)
        EnableCutAndCopy(true);
    // At the end of a staff the next place is told by what stood ahead; it never falls back behind what was added.
    constexpr int32_t lColumnsOn = 4;
    if (bBetween && pelAdded)
        place.lStrX = Clamp32(int64_t{pelAdded->lStrX} + 1);
    else if (ahead.pel)
        place.lStrX = Clamp32(int64_t{ahead.pel->lStrX} + lColumnsOn);
    if (pelAdded)
        place.lStrX = std::max(place.lStrX, Clamp32(int64_t{pelAdded->lStrX} + 1));
    if (place.Folded().y > UsableHeight(hwnd))
        ScrollBy(hwnd, 1, true, true);
    SetCursorPos(hwnd, place.Folded());
}
} // namespace zarn

// The left button adds, the right one deletes; both act when they go up.
#include "shell/mouse.h"

#include "core/messages.h"
#include "core/score.h"
#include "edit/add.h"
#include "edit/delete.h"
#include "edit/insert.h"
#include "render/nearest.h"
#include "render/symbol_cursor.h"
#include "render/tab_band.h"
#include "shell/command_numbers.h"
#include "shell/commands.h"
#include "shell/edit_commands.h"
#include "shell/main_window.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/panels_shown.h"
#include "shell/score_dc.h"
#include "shell/tab_commands.h"

namespace zarn
{
static bool fLeftDrag = false;
static bool fRightDrag = false;

void Mouse_Begin() { fLeftDrag = fRightDrag = false; }

void Mouse_Moved(POINT place)
{
    ShowModePointer(hwndMain);
    bool const bHighlight = fRightDrag && NearestElement(place.x, place.y) != pelHighlight;
    if (!bHighlight && !fLeftDrag)
        return;
    ScoreDC const hdc;
    if (bHighlight)
        HighlightNearest(hdc, hwndMain, place.x, place.y);
    if (fLeftDrag)
        DrawCursorLegers(hdc, place.x, place.y);
}

void Mouse_LeftDown(POINT place)
{
    if (!bPianoShowing && OnTablature(place.x, place.y))
    {
        ChooseFret(place);
        return;
    }
    EnterMouseMode(hwndMain);
    ScoreDC const hdc;
    DrawCursorLegers(hdc, place.x, place.y);
    fLeftDrag = true;
}

static void AddAt(POINT place)
{
    if (RefuseInRightJustified())
        return;
    EnterMouseMode(hwndMain);
    bool const bMark = elCurrent.sort == MARKBEGIN || elCurrent.sort == MARKEND;
    ScoreDC const hdc;
    AddAtMouse(hdc, hwndMain, place.x, place.y);
    if (!bMark)
        return;
    EnableCutAndCopy(true);
    MakeSymbolCursor(hwndMain);
}

void Mouse_LeftUp(POINT place)
{
    if (!fLeftDrag)
        return;
    fLeftDrag = false;
    InvalidateRect(hwndMain); // the leger lines at the pointer go
    if (place.y < 0 || OnTablature(place.x, place.y))
        return; // let go above the score, or where a press means a fret
    if (bPianoShowing)
        MoveInsertPoint(place.x, place.y);
    else
        AddAt(place);
}

void Mouse_RightDown(POINT place)
{
    if (RefuseInRightJustified())
        return;
    fRightDrag = true;
    EnterMouseMode(hwndMain);
    ScoreDC const hdc;
    HighlightNearest(hdc, hwndMain, place.x, place.y);
}

static std::vector<MenuItem> const& LyricMenu()
{
    static std::vector<MenuItem> const aMenu = {{COMMAND_EDITITEM, "Edit this symbol"},
                                                {COMMAND_EDITLYRICS, "Edit all lyrics"},
                                                {COMMAND_DELETEITEM, "Delete"}};
    return aMenu;
}

static void DeleteAt(Element* pel)
{
    if (RefuseInRightJustified())
        return;
    ScoreDC const hdc;
    if (DeleteElement(hdc, hwndMain, pel, true))
        InvalidateRect(hwndMain);
    ShowDeletedAsPointer();
}

void Mouse_RightUp(POINT place)
{
    EnterMouseMode(hwndMain);
    if (!fRightDrag)
        return;
    fRightDrag = false;
    Element* const pel = NearestElement(place.x, place.y);
    if (pel && pel->sort == LYRICS)
    {
        pelPopup = pel;
        int32_t const lCommand = TrackPopupMenu(hwndMain, LyricMenu(), place);
        if (lCommand)
            Command_Run(lCommand);
        pelPopup = nullptr;
    }
    else if (pel)
        DeleteAt(pel);
    if (hwndMain)
        SetCursorPos(hwndMain, place); // menus and repaints may have moved it
}
} // namespace zarn

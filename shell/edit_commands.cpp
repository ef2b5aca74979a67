#include "shell/edit_commands.h"

#include "core/messages.h"
#include "core/score.h"
#include "edit/clipboard.h"
#include "edit/insert.h"
#include "edit/mark.h"
#include "edit/slur_mark.h"
#include "edit/transpose.h"
#include "edit/undo.h"
#include "layout/adjust.h"
#include "render/symbol_cursor.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/score_dc.h"
#include "shell/tab_commands.h"

namespace zarn
{
void EnableCutAndCopy(bool bOn)
{
    Menu_Enable(COMMAND_CUT, bOn);
    Menu_Enable(COMMAND_COPY, bOn);
}

static void FullAdjustAndRepaint()
{
    FullAdjust();
    InvalidateRect(hwndMain);
}

void UndoCommand()
{
    if (RefuseInRightJustified())
        return;
    ScoreDC const hdc;
    Undo(hdc, hwndMain);
    InvalidateRect(hwndMain);
    ShowDeletedAsPointer();
}

void CutCommand()
{
    if (RefuseInRightJustified())
        return;
    ScoreDC const hdc;
    Cut(hdc, hwndMain);
    ShowDeletedAsPointer();
    Menu_Enable(COMMAND_PASTE, true);
}

void CopyCommand()
{
    if (RefuseInRightJustified())
        return;
    Copy();
    Menu_Enable(COMMAND_PASTE, true);
}

static void PasteAtPointer()
{
    POINT const place = GetCursorPos(hwndMain);
    PasteAt(hwndMain, place.x, place.y);
    FullAdjustAndRepaint();
}

void PasteCommand()
{
    if (!RefuseInRightJustified())
        PasteAtPointer();
}

void DuplicateCommand()
{
    if (RefuseInRightJustified())
        return;
    Copy();
    PasteAtPointer();
}

static void MarkCommand(void (*pSetSymbol)(), bool (*pMarkAt)(HWND, int32_t, int32_t))
{
    if (RefuseInRightJustified())
        return;
    if (!fMouseMode)
    {
        POINT const place = GetCursorPos(hwndMain);
        EnableCutAndCopy(pMarkAt(hwndMain, place.x, place.y));
    }
    pSetSymbol();
    if (fMouseMode)
        MakeSymbolCursor(hwndMain);
}

void MarkBeginCommand() { MarkCommand(Mark_SetBeginSymbol, MarkBeginAt); }

void MarkEndCommand() { MarkCommand(Mark_SetEndSymbol, MarkEndAt); }

void ClearMarkCommand()
{
    MarkClear(hwndMain);
    EnableCutAndCopy(false);
}

void SlurMarkCommand()
{
    SlurMark();
    InvalidateRect(hwndMain);
}

/// The notes have moved, so their fingering is worked out anew.
static void LayOutTransposed()
{
    FullAdjust();
    Tablature_Rerun();
    InvalidateRect(hwndMain);
}

void TransposeMarkCommand(int32_t lSemitones)
{
    if (RefuseInRightJustified())
        return;
    TransposeMark(lSemitones);
    LayOutTransposed();
}

void TransposeAllCommand(int32_t lSemitones)
{
    if (RefuseInRightJustified())
        return;
    TransposeAll(lSemitones);
    LayOutTransposed();
}

void InsertPointCommand()
{
    POINT const place = GetCursorPos(hwndMain);
    MoveInsertPoint(place.x, place.y);
}
} // namespace zarn

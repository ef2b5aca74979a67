// Undo, and the way back into a staff that it shares with paste.
#include "edit/undo.h"

#include "edit/add.h"
#include "edit/clipboard.h"
#include "edit/delete.h"
#include "edit/ties.h"
#include "layout/adjust.h"
#include "render/geometry.h"
#include "tab/fingering.h"

#include <cstring>

namespace zarn
{
/// A note that was the second of a chord joins the one ahead again.
static void RejoinChord(Element& el, Element* pelPrev)
{
    if (!pelPrev || pelPrev->sort != NOTE || el.sort != NOTE || (el.lA & fChordBefore) == 0)
        return;
    TakeChordDuration(el, pelPrev);
    pelPrev->lA |= fChordMore;
    el.up = pelPrev->up;
}

/// The fixed record, with the mode in the byte behind it: all that this road carries of a text.
static RoomyElement FixedRecord(Element const* pel, int32_t lMode)
{
    RoomyElement el;
    static_cast<Element&>(el) = *pel;
    Element_TextBytes(&el)[sizeof el.text] = static_cast<char>(lMode);
    return el;
}

Element* ReinsertElement(Element* pelAfter, Element const* pelSource, int32_t lMode)
{
    RoomyElement el = FixedRecord(pelSource, lMode);
    int32_t const lStaff = el.lStaff;
    Element* const pelNext = pelAfter ? Next(pelAfter) : StaffFirst(lStaff);
    Element* const pelPrev = pelNext ? Prev(pelNext) : StaffLast(lStaff);
    Element* const pelHere = pelNext ? pelNext : StaffLast(lStaff);
    RejoinChord(el, pelPrev);
    if (el.sort == KEYSIG)
        el.lB = KeyAt(pelHere);
    else if (el.sort == NOTE)
        el.lB = VolumeAt(pelHere);
    else if (el.sort == TIE && lMode != PASTED)
    {
        if (!TieCheck(pelNext, true))
            return nullptr;
        el.lDiaPitch = TieNotes(pelNext);
    }
    Draw_FoldElement(&el, 1);
    List_AddBefore(aStaffList[lStaff], pelNext, &el, el.storage);
    Element* const pel = pelNext ? Prev(pelNext) : StaffLast(lStaff);
    if (!pel)
        return nullptr; // memory has run out
    pelUndoPlace = pel;
    lUndoState = UNDO_ADD;
    if (pel->sort == CLEF)
        ShiftForClef(Next(pel), ClefAt(Prev(pel)), pel->lA);
    else if (pel->sort == KEYSIG || Sort_IsAccidental(pel->sort))
        RefreshBarFingering(pel);
    return pel;
}

static void LayOut(HWND hwnd)
{
    bScoreDirty = true;
    bTimesValid = false;
    FullAdjust();
    InvalidateRect(hwnd);
}

static void UndoAdd(HDC hdc, HWND hwnd)
{
    lUndoState = UNDO_NOTHING;
    if (pelUndoPlace)
        DeleteElement(hdc, hwnd, pelUndoPlace, true);
}

static void UndoDelete(HWND hwnd)
{
    auto const* const pel = List_LastAs<Element>(listUndo);
    lUndoState = UNDO_ADD;
    if (!pel)
        return;
    if (!ReinsertElement(pelUndoPlace, pel, 0))
        pelUndoPlace = nullptr; // a tie with nothing to join any more: the next undo must not take its neighbour
    LayOut(hwnd);
}

static void UndoCut(HWND hwnd)
{
    lUndoState = UNDO_NOTHING;
    if (!pelUndoPlace && !List_IsEmpty(aStaffList[lUndoStaff]))
        return; // a cut from the very head of a staff that isn't empty stays
    Element* const pelAhead = pelUndoPlace;
    Element* const pelAfterEnd = pelAhead ? Next(pelAhead) : nullptr;
    Element* pelAt = pelAhead;
    for (Element* pel = List_FirstAs<Element>(listClipboard); pel; pel = Next(pel))
    {
        pel->lStaff = lUndoStaff;
        if (ReinsertElement(pelAt, pel, lUndoState))
            pelAt = pelAt ? Next(pelAt) : StaffLast(lUndoStaff);
    }
    lUndoState = UNDO_PASTE;
    pelUndoPlace = pelMarkBegin = pelAhead ? Next(pelAhead) : StaffFirst(lUndoStaff);
    pelUndoEnd = pelMarkEnd = pelAfterEnd ? Prev(pelAfterEnd) : StaffLast(lUndoStaff);
    List_Clear(listUndo);
    LayOut(hwnd);
}

static void UndoPaste(HDC hdc, HWND hwnd)
{
    lUndoState = UNDO_NOTHING;
    if (!pelUndoPlace || !pelUndoEnd)
        return; // what was pasted has gone with its score
    Element* const pelBegin = pelMarkBegin;
    Element* const pelEnd = pelMarkEnd;
    KeptCursor const begin(pelBegin);
    KeptCursor const end(pelEnd);
    pelMarkBegin = pelUndoPlace;
    pelMarkEnd = pelUndoEnd;
    Cut(hdc, hwnd);
    bool const bMarkStands = begin.pel == pelBegin && end.pel == pelEnd;
    pelMarkBegin = bMarkStands ? pelBegin : nullptr;
    pelMarkEnd = bMarkStands ? pelEnd : nullptr;
    lUndoState = UNDO_NOTHING;
}

void Undo(HDC hdc, HWND hwnd)
{
    switch (lUndoState)
    {
    case UNDO_ADD:
        UndoAdd(hdc, hwnd);
        break;
    case UNDO_DELETE:
        UndoDelete(hwnd);
        break;
    case UNDO_CUT:
        UndoCut(hwnd);
        break;
    case UNDO_PASTE:
        UndoPaste(hdc, hwnd);
        break;
    default:
        break;
    }
}
} // namespace zarn

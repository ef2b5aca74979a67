// The clipboard holds a range as a staff of its own: no tie, slur or chord in it reaches beyond its ends.
#include "edit/clipboard.h"

#include "core/messages.h"
#include "edit/delete.h"
#include "edit/undo.h"
#include "layout/adjust.h"
#include "render/geometry.h"

namespace zarn
{
static Element* ClipFirst() { return List_FirstAs<Element>(listClipboard); }

static Element* ClipLast() { return List_LastAs<Element>(listClipboard); }

static Element* FirstClipNote() { return NextNote(ClipFirst()); }

static Element* LastClipNote()
{
    Element* pel = ClipLast();
    while (pel && pel->sort != NOTE)
        pel = Prev(pel);
    return pel;
}

/// From one end of the clipboard to pelStop, or to the other end for null: deletes a TIE that has lost one of its
/// notes, and clears the flag of the notes there.
static void PurgeTiesTo(Element* pel, Element const* pelStop, int32_t lFlag, Element* (*pStep)(Element const*))
{
    while (pel)
    {
        Element* const pelNext = pel == pelStop ? nullptr : pStep(pel);
        if (pel->sort == TIE)
        {
            Serious("Dangling tie is purged from cut/copy");
            List_Delete(pel);
        }
        else if (pel->sort == NOTE)
            pel->lA &= ~lFlag;
        pel = pelNext;
    }
}

static void Clip_PurgeDanglingTies()
{
    if (!FirstClipNote())
        return;
    // A chord that the range cuts off has no end in it: then all that was copied is that chord.
    PurgeTiesTo(ClipFirst(), ChordLast(FirstClipNote()), fTiedFrom, Next);
    PurgeTiesTo(ClipLast(), ChordFirst(LastClipNote()), fTiedOn, Prev);
}

static void Clip_PurgeLoneSlurs()
{
    bool bOpen = false;
    Element* pelStart = nullptr;
    for (Element* pel = ClipFirst(); pel;)
    {
        Element* const pelNext = Next(pel);
        if (pel->sort == SLUR)
        {
            if ((pel->lA != 0) == bOpen)
            {
                if (!bOpen)
                    pelStart = pel;
                bOpen = !bOpen;
            }
            else
                List_Delete(pel);
        }
        pel = pelNext;
    }
    if (bOpen)
        List_Delete(pelStart);
}

/// A range that went through a chord has a whole chord in what it holds.
static void Clip_OpenEdgeChords()
{
    if (Element* const pelFirst = FirstClipNote())
        pelFirst->lA &= ~fChordBefore;
    if (Element* const pelLast = LastClipNote())
        pelLast->lA &= ~fChordMore;
}

static void TidyClipboard()
{
    Clip_PurgeDanglingTies();
    Clip_PurgeLoneSlurs();
    Clip_OpenEdgeChords();
}

namespace
{
/// What is in force along the copied range: a sign that repeats it isn't copied.
struct InForce
{
    int32_t lClef;
    int32_t lKey;

    bool IsRepeated(Element const* pel)
    {
        if (pel->sort != CLEF && pel->sort != KEYSIG)
            return false;
        int32_t& lNow = pel->sort == CLEF ? lClef : lKey;
        bool const bSame = pel->lA == lNow;
        lNow = pel->lA;
        return bSame;
    }
};
} // namespace

static void AppendToClipboard(Element const* pel)
{
    List_AddLast(listClipboard, pel, pel->storage);
    Element* const pelCopy = ClipLast();
    if (pelCopy)
        pelCopy->pelPartner = nullptr;
}

/// Copies and deletes the marked range, which begins behind `ahead`; true when something asks for a repaint.
static bool CutRange(HDC hdc, HWND hwnd, KeptCursor const& ahead)
{
    InForce inForce{ClefAt(pelMarkBegin), KeyAt(ahead.pel)};
    // Deleting may take more than the one element: a slur's partner, a tie further on. An end that lies ahead of the
    // begin is never met, and the staff's end is the end then.
    bool const bInOrder = List_InOrder(pelMarkBegin, pelMarkEnd) != 0;
    KeptCursor const last(pelMarkEnd);
    bool bRepaint = false;
    for (Element* pel = pelMarkBegin; pel;)
    {
        if (!inForce.IsRepeated(pel) && pel->sort != SLUR)
            AppendToClipboard(pel);
        bool bStop = pel == last.pel;
        Element* pelNext = Next(pel);
        if (pel->sort == NOTE && (pel->lA & fTiedOn) && pelNext && pelNext->sort == TIE)
        {
            bStop = bStop || pelNext == last.pel;
            pelNext = Next(pelNext); // the note's deletion takes its tie along
        }
        KeptCursor const next(pelNext);
        bRepaint = DeleteElement(hdc, hwnd, pel, false) != 0 || bRepaint;
        if (bStop || (bInOrder && last.pel == ahead.pel))
            break;
        pel = next.pel == pelNext ? pelNext : next.pel ? Next(next.pel) : StaffFirst(lUndoStaff);
    }
    return bRepaint;
}

void Cut(HDC hdc, HWND hwnd)
{
    bool const bWasAutoLayout = bAutoLayout;
    bAutoLayout = false;
    if (!pelMarkBegin || !pelMarkEnd)
        return;
    List_Clear(listClipboard);
    if (!List_InOrder(pelMarkBegin, pelMarkEnd))
        Serious("Duff mark bug");
    int32_t const lStaff = pelMarkBegin->lStaff;
    KeptCursor const ahead(Prev(pelMarkBegin));
    KeptCursor const back(SkipPunctuationBack(ahead.pel));
    bool const bRepaint = CutRange(hdc, hwnd, ahead);
    lUndoStaff = lStaff;
    pelUndoPlace = back.pel ? back.pel : ahead.pel;
    pelUndoEnd = nullptr;
    pelMarkBegin = pelMarkEnd = nullptr;
    bAutoLayout = bWasAutoLayout;
    lUndoState = UNDO_CUT;
    if (bRepaint || bAutoLayout)
    {
        FullAdjust();
        InvalidateRect(hwnd);
    }
    TidyClipboard();
}

void Copy()
{
    InForce inForce{ClefAt(pelMarkBegin), KeyAt(pelMarkBegin)};
    if (lUndoState == UNDO_CUT)
        lUndoState = UNDO_NOTHING; // the clipboard is about to lose what the cut put there
    List_Clear(listClipboard);
    if (!pelMarkBegin || !pelMarkEnd)
        return;
    for (Element const* pel = pelMarkBegin; pel; pel = pel == pelMarkEnd ? nullptr : Next(pel))
        if (!inForce.IsRepeated(pel))
            AppendToClipboard(pel);
    TidyClipboard();
}

static bool IsInsideSlur(Element const* pel)
{
    while (pel && pel->sort != SLUR)
        pel = Prev(pel);
    return pel && pel->lA == 0;
}

/// Pairs up the pasted slurs; inside a slur that was there before they go.
static void Paste_RelinkSlurs(Element* pelFirst, Element* pelLast)
{
    if (!pelFirst || !pelLast)
        return;
    bool const bInsideSlur = IsInsideSlur(Prev(pelFirst));
    KeptCursor last(pelLast);
    Element* pelOpen = nullptr;
    for (Element* pel = pelFirst; pel;)
    {
        bool const bEnd = pel == last.pel;
        Element* const pelNext = Next(pel);
        if (pel->sort == SLUR)
        {
            if (bInsideSlur)
                Element_Remove(pel);
            else if (!pelOpen)
                pelOpen = pel;
            else
            {
                pelOpen->pelPartner = pel;
                pel->pelPartner = pelOpen;
                pelOpen = nullptr;
            }
        }
        pel = bEnd ? nullptr : pelNext;
    }
}

void PasteAt(HWND hwnd, int32_t x, int32_t y)
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(x, y, &lStrX, &lDiaPitch, &lStaff, 1);
    if (!IsVisible(lStaff) || List_IsEmpty(listClipboard))
        return;
    Element* const pelPlace = FindAtOrBefore(lStrX, lStaff);
    Element* const pelStopAt = pelPlace ? Next(pelPlace) : StaffLast(lStaff);
    bScoreDirty = true;
    bTimesValid = false;
    Element* pelAt = pelPlace;
    for (Element* pel = ClipFirst(); pel; pel = Next(pel))
    {
        pel->lStaff = lStaff;
        pel->beam = BEAM_NONE;
        ReinsertElement(pelAt, pel, PASTED);
        pelAt = pelAt ? Next(pelAt) : StaffFirst(lStaff);
    }
    lUndoState = UNDO_PASTE;
    pelUndoPlace = pelPlace ? Next(pelPlace) : StaffFirst(lStaff);
    pelUndoEnd = pelStopAt ? Prev(pelStopAt) : StaffLast(lStaff);
    Paste_RelinkSlurs(pelUndoPlace, pelUndoEnd);
    if (bAutoLayout)
    {
        FullAdjust();
        InvalidateRect(hwnd);
    }
}
} // namespace zarn

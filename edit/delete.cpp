// Deletion. The order of the steps is part of the behaviour: each looks at the staff as the one ahead has left it.
#include "edit/delete.h"

#include "core/messages.h"
#include "edit/add.h"
#include "edit/modifiers.h"
#include "edit/ties.h"
#include "layout/adjust.h"
#include "render/geometry.h"
#include "render/ruling.h"
#include "render/symbols.h"
#include "tab/fingering.h"

#include <algorithm>
#include <cstring>

namespace zarn
{
constexpr int32_t lCrotchet = 48;     ///< ticks
constexpr int32_t lLongestEdited = 4; ///< characters of a harmony that edit mode takes over
constexpr COLORREF colorWhite = 0xFFFFFF;

/// Draws the element in white over itself.
static void Erase(HDC hdc, HWND hwnd, Element* pel)
{
    if (!hdc)
        return;
    HBRUSH const hbrOld = SelectObject(hdc, GetStockObject(WHITE_BRUSH));
    HPEN const hpenWhite = CreatePen(PS_SOLID, 1, colorWhite);
    HPEN const hpenOld = SelectObject(hdc, hpenWhite);
    COLORREF const crOld = SetTextColor(hdc, colorWhite);
    DrawSymbol(hdc, hwnd, pel, ClefAt(pel), false);
    SetTextColor(hdc, crOld);
    SelectObject(hdc, hpenOld);
    SelectObject(hdc, hbrOld);
    DeleteObject(hpenWhite);
}

static void BreakBeam(Element* pel)
{
    if (pel->beam == BEAM_NONE)
        return;
    if (pel->sort != NOTE)
        Serious("BEAM set on something that's not a note");
    else if (pel->lDuration >= lCrotchet)
        Serious("BEAM set on something that's longer than quaver");
    UnbeamSet(pel);
}

/// Deletes the nearest TIE in one direction with the flags of its chords.
static void DeleteTie(Element* pel, Element* (*pStep)(Element const*), char const* sMissing)
{
    Element* pelTie = pStep(pel);
    while (pelTie && pelTie->sort != TIE)
        pelTie = pStep(pelTie);
    if (!pelTie)
    {
        Serious(sMissing);
        return;
    }
    TieBreak(pelTie);
    Mark_StepOff(pelTie);
    Undo_StepOff(pel);
    Element_Remove(pelTie);
}

/// The neighbour in the chord becomes its first or last. The walk back for the last one begins ahead of pel and goes
/// forward: with another symbol directly ahead it comes to pel itself, and the flag of the note before stays until the
/// chords are put in order by the next load.
static void LeaveChord(Element* pel)
{
    if ((pel->lA & fChordBits) == fChordMore)
    {
        if (Element* const pelNext = NextNote(Next(pel)))
            pelNext->lA &= ~fChordBefore;
    }
    else if ((pel->lA & fChordBits) == fChordBefore)
    {
        if (Element* const pelPrev = NextNote(Prev(pel)))
            pelPrev->lA &= ~fChordMore;
    }
}

static void ForgetKey(Element const* pel)
{
    for (Element* pelNext = Next(pel); pelNext; pelNext = Next(pelNext))
        if (pelNext->sort == KEYSIG)
        {
            pelNext->lB = KeyAt(Prev(pel));
            return;
        }
}

/// Edit mode: what was deleted is the next to be added.
static void TakeAsCurrent(Element const* pel)
{
    RoomyElement el;
    static_cast<Element&>(el) = *pel;
    el.up = 1;
    if (el.sort == NOTE)
    {
        el.lA = 0;
        el.beam = BEAM_NONE;
    }
    if (el.sort == CHORD)
    {
        el.lA = std::min(el.lA, lLongestEdited);
        auto const cch = static_cast<size_t>(std::max(el.lA, 0));
        std::string_view const sText = Element_Text(pel).substr(0, cch);
        std::memset(el.text, 0, sizeof el.text);
        sText.copy(el.text, sText.size());
    }
    else
        el.text[sizeof el.text - 1] = '\0';
    el.storage = std::min(el.storage, cbPlainElement);
    elCurrent = el;
}

/// Out of its staff and into the undo store, alone there.
static void MoveToUndo(Element* pel)
{
    lUndoState = UNDO_DELETE;
    lUndoStaff = pel->lStaff;
    pelUndoPlace = SkipPunctuationBack(Prev(pel));
    List const staff = aStaffList[pel->lStaff];
    List temp = List_Create();
    List_SplitBefore(staff, temp, pel);
    List_SplitAfter(temp, listUndo, pel);
    List_Join(staff, temp);
    List_Destroy(&temp);
}

int32_t DeleteElement(HDC hdc, HWND hwnd, Element* pel, bool bLayout)
{
    Erase(hdc, hwnd, pel);
    int32_t bRepaint = pel->sort == TIE || (pel->sort == NOTE && pel->beam != BEAM_NONE);
    BreakBeam(pel);
    Mark_StepOff(pel);
    if (pel == pelInsertPoint)
        pelInsertPoint = Prev(pel);
    if (pel->sort == NOTE && (pel->lA & fTiedOn))
    {
        DeleteTie(pel, Next, "Start tie delete bug");
        bRepaint = 1;
    }
    bool const bNoLayout =
        pel->sort == BAR || pel->sort == CLEF || pel->sort == SPACE || pel->sort == KEYSIG || pel->sort == TIE;
    if (pel->sort == NOTE && (pel->lA & fTiedFrom))
    {
        DeleteTie(pel, Prev, "End tie delete bug");
        bRepaint = 1;
    }
    if (pel->sort == NOTE)
        LeaveChord(pel);
    if (pel->sort == CLEF && pel->lA != ClefAt(Prev(pel)))
        ShiftForClef(Next(pel), pel->lA, ClefAt(Prev(pel)));
    if (pel->sort == TIE)
        TieBreak(pel);
    if (pel->sort == KEYSIG)
        ForgetKey(pel);
    bool const bSlurGone = pel->sort == SLUR;
    if (bSlurGone && pel->pelPartner)
        Element_Remove(pel->pelPartner);
    if (!bSlurGone && hdc)
        RuleSystem(hdc, LineOfColumn(pel->lStrX)); // the erased symbol stood on it
    if (!bSlurGone && bEditMode)
        TakeAsCurrent(pel);
    Cursors_StepOff(pel);
    Element* const pelNext = Next(pel);
    MoveToUndo(pel);
    if (Sort_IsAccidental(pel->sort))
        RefreshBarFingering(pelNext);
    if (bSlurGone)
        lUndoState = UNDO_NOTHING;
    bScoreDirty = true;
    bTimesValid = false;
    if (bAutoLayout && bLayout && !bNoLayout)
    {
        FullAdjust();
        return 1;
    }
    return bRepaint;
}
} // namespace zarn

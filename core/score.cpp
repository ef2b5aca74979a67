// The Score's state and its walkers.
//
// Nothing here is cached: what is in force at a place is what a walk back finds. Passes over a whole staff carry that
// along instead of asking for each element.
#include "core/score.h"

#include "core/messages.h"
#include "core/score_count.h"

#include <algorithm>
#include <limits>

namespace zarn
{
void Score_CreateLists()
{
    for (List& list : aStaffList)
        list = List_Create();
    listClipboard = List_Create();
    listUndo = List_Create();
}

static void NullCursors()
{
    pelInsertPoint = nullptr;
    pelMarkBegin = pelMarkEnd = nullptr;
    pelHighlight = pelPopup = nullptr;
    KeptCursors_Null();
    pelUndoPlace = pelUndoEnd = nullptr; // what the last edit was stays known; only its place is gone
}

void Score_EmptyStaffs()
{
    for (List const list : aStaffList)
        List_Clear(list);
    NullCursors();
    ++cScoresBegun;
}

void Score_DestroyLists()
{
    NullCursors();
    for (List& list : aStaffList)
        List_Destroy(&list);
    List_Destroy(&listClipboard);
    List_Destroy(&listUndo);
}

Element* StaffFirst(int32_t lStaff)
{
    return lStaff >= 0 && lStaff < lStaffLists ? List_FirstAs<Element>(aStaffList[lStaff]) : nullptr;
}

Element* StaffLast(int32_t lStaff)
{
    return lStaff >= 0 && lStaff < lStaffLists ? List_LastAs<Element>(aStaffList[lStaff]) : nullptr;
}

int32_t ClefAt(Element const* pel)
{
    for (; pel; pel = Prev(pel))
        if (pel->sort == CLEF)
            return pel->lA;
    return 1;
}

int32_t ClefAtEnd(int32_t lStaff) { return ClefAt(StaffLast(lStaff)); }

int32_t ClefOffset(int32_t lClef)
{
    switch (lClef)
    {
    case 1:
        return 0;
    case 2:
        return 6;
    case 3:
        return 12;
    case 4:
        return 8;
    default:
        Serious("Bad clef offset - tell Odrian");
        return 0;
    }
}

int32_t KeyAt(Element const* pel)
{
    if (!pel)
        return 0;
    int32_t const lStaff = pel->lStaff;
    for (; pel; pel = Prev(pel))
        if (pel->sort == KEYSIG && pel->lStaff == lStaff)
            return pel->lA;
    return 0;
}

int32_t TransposeAt(Element const* pel)
{
    for (; pel; pel = Prev(pel))
        if (pel->sort == TRANSPOSE)
            return pel->lA;
    return 0;
}

int32_t VolumeAt(Element const* pel)
{
    for (pel = Prev(pel); pel; pel = Prev(pel))
        if (pel->sort == VOLUME)
            return pel->lA;
    return 64;
}

Element* FindPlace(int32_t lStrX, int32_t lScreenPitch, int32_t lStaff, int32_t sort)
{
    Element* pel = StaffFirst(lStaff);
    while (pel && pel->lStrX < lStrX)
        pel = Next(pel);
    if (sort == CHORD)
    {
        // A harmony goes straight ahead of the note that it stands over.
        while (pel && pel->lStrX == lStrX && pel->sort != NOTE && pel->sort != REST)
            pel = Next(pel);
    }
    else if (sort == NOTE && pel && pel->sort == NOTE && pel->lStrX == lStrX)
    {
        int64_t const lLowest = int64_t{lScreenPitch} - ClefOffset(ClefAt(pel));
        while (pel && pel->lStrX == lStrX && !(pel->sort == NOTE && pel->lDiaPitch >= lLowest))
            pel = Next(pel);
    }
    return pel;
}

Element* FindAtOrBefore(int32_t lStrX, int32_t lStaff)
{
    Element* pel = StaffLast(lStaff);
    while (pel && pel->lStrX > lStrX)
        pel = Prev(pel);
    return pel;
}

Element* ChordFirst(Element* pel)
{
    for (; pel; pel = Prev(pel))
    {
        if (pel->sort == REST)
            return nullptr;
        if (pel->sort == NOTE && ((pel->lA & fChordBits) == 0 || (pel->lA & fChordBits) == fChordMore))
            return pel;
    }
    return nullptr;
}

Element* ChordLast(Element* pel)
{
    for (; pel; pel = Next(pel))
    {
        if (pel->sort == REST)
            return nullptr;
        if (pel->sort == NOTE && ((pel->lA & fChordBits) == 0 || (pel->lA & fChordBits) == fChordBefore))
            return pel;
    }
    return nullptr;
}

Element* NextNoteInBar(Element* pel)
{
    while (pel && pel->sort != NOTE && pel->sort != BAR)
        pel = Next(pel);
    return pel && pel->sort == NOTE ? pel : nullptr;
}

Element* NextNote(Element* pel)
{
    while (pel && pel->sort != NOTE)
        pel = Next(pel);
    return pel;
}

Element* LastInBar(Element* pel)
{
    if (!pel || pel->sort == BAR)
        return nullptr;
    for (Element* pelNext = Next(pel); pelNext && pelNext->sort != BAR; pelNext = Next(pel))
        pel = pelNext;
    return pel;
}

Element* NextRepeatEnd(Element* pel)
{
    while (pel && pel->sort != REPEATEND && pel->sort != REPEATENDSTART)
        pel = Next(pel);
    return pel;
}

Element* LastOnLine(Element* pel)
{
    if (!pel)
        return nullptr;
    int32_t const lLine = pel->lStrX / lColsPerLine;
    for (Element* pelNext = Next(pel); pelNext && pelNext->lStrX / lColsPerLine == lLine; pelNext = Next(pel))
        pel = pelNext;
    return pel;
}

int32_t MinLY(Element const* pel, Element const* pelStop)
{
    int32_t lLeast = std::numeric_limits<int32_t>::max();
    for (; pel && pel != pelStop; pel = Next(pel))
        lLeast = std::min(lLeast, pel->lY);
    return lLeast;
}

static bool IsPunctuation(int32_t sort)
{
    return sort == BAR || sort == KEYSIG || sort == SPACE || sort == TIE || sort == CLEF;
}

Element* SkipPunctuationForward(Element* pel)
{
    while (pel && IsPunctuation(pel->sort))
        pel = Next(pel);
    return pel;
}

Element* SkipPunctuationBack(Element* pel)
{
    while (pel && IsPunctuation(pel->sort))
        pel = Prev(pel);
    return pel;
}

void Mark_StepOff(Element* pel)
{
    if (pel == pelMarkBegin)
    {
        if (pelMarkBegin != pelMarkEnd)
        {
            pelMarkBegin = Next(pel);
            return;
        }
        Element* const pelTo = Next(pel) ? Next(pel) : Prev(pel);
        pelMarkBegin = pelMarkEnd = pelTo;
    }
    else if (pel == pelMarkEnd)
        pelMarkEnd = Prev(pel);
}

void Undo_StepOff(Element* pel)
{
    if (pel == pelUndoPlace)
    {
        if (lUndoState == UNDO_ADD)
            pelUndoPlace = nullptr;
        else if (lUndoState == UNDO_DELETE || lUndoState == UNDO_CUT)
            pelUndoPlace = Next(pel);
        else if (lUndoState == UNDO_PASTE)
        {
            if (pel == pelUndoEnd)
                pelUndoPlace = pelUndoEnd = nullptr;
            else
                pelUndoPlace = Next(pel);
        }
    }
    if (lUndoState == UNDO_PASTE && pel == pelUndoEnd)
        pelUndoEnd = Prev(pel);
}

static KeptCursor* pInnermostKept = nullptr;

KeptCursor::KeptCursor(Element* pel) : pel(pel), pOuter(pInnermostKept) { pInnermostKept = this; }

KeptCursor::~KeptCursor() { pInnermostKept = pOuter; }

void KeptCursors_Null()
{
    for (KeptCursor* p = pInnermostKept; p; p = p->pOuter)
        p->pel = nullptr;
}

void Cursors_StepOff(Element* pel)
{
    Mark_StepOff(pel);
    Undo_StepOff(pel);
    // The rules above pass over a mark with one end only and over states that use no place; nothing may be left behind.
    if (pel == pelMarkBegin)
        pelMarkBegin = Next(pel);
    if (pel == pelMarkEnd)
        pelMarkEnd = Prev(pel);
    if (pel == pelUndoPlace)
        pelUndoPlace = nullptr;
    if (pel == pelUndoEnd)
        pelUndoEnd = nullptr;
    if (pel == pelInsertPoint)
        pelInsertPoint = Prev(pel);
    if (pel == pelHighlight)
        pelHighlight = nullptr;
    if (pel == pelPopup)
        pelPopup = nullptr;
    for (KeptCursor* p = pInnermostKept; p; p = p->pOuter)
        if (p->pel == pel)
            p->pel = Prev(pel);
    if (pel->sort == SLUR && pel->pelPartner)
        pel->pelPartner->pelPartner = nullptr;
}

Element* Element_Remove(Element* pel)
{
    Cursors_StepOff(pel);
    return static_cast<Element*>(List_DeleteBackwards(pel));
}

void ScoreOpening(int32_t& lClef, int32_t& lKey, int32_t& lNum, int32_t& lDen)
{
    bool bClef = false;
    bool bKey = false;
    bool bTime = false;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            if (pel->sort == CLEF && !bClef)
            {
                lClef = pel->lA;
                bClef = true;
            }
            else if (pel->sort == KEYSIG && !bKey)
            {
                lKey = pel->lA;
                bKey = true;
            }
            else if (pel->sort == TIMESIG && !bTime)
            {
                lNum = pel->lA;
                lDen = pel->lB;
                bTime = true;
            }
            else if (pel->sort == NOTE)
            {
                if (!bKey)
                    lKey = 0;
                return;
            }
            if (bClef && bKey && bTime)
                return;
        }
    }
}
} // namespace zarn

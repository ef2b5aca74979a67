// The sequential adders.
//
// They have no position on the page: each puts its symbol behind pelInsertPoint and moves on, with lStrX as it lies in
// elCurrent, so that such a staff has no layout until an adjust.
#include "edit/insert.h"

#include "core/messages.h"
#include "edit/insert_run.h"
#include "render/geometry.h"

namespace zarn
{
namespace
{
constexpr int32_t lHighestUpStem = 6;     ///< diatonic position: the notes above it have their stem down
constexpr int32_t lLongestWithStem = 144; ///< ticks; a longer note has no stem to care for
constexpr int32_t lMinimTriplet = 128;    ///< ticks

/// The current symbol as a plain element of the insert staff, whatever text it holds.
Element CopyOfCurrent(int32_t lDiaPitch)
{
    Element el = elCurrent;
    el.storage = cbPlainElement;
    el.lStaff = lInsertStaff;
    el.lDiaPitch = lDiaPitch;
    return el;
}

/// The same, with what depends on the place behind which it goes.
Element SymbolFor(StaffTail const& tail, int32_t lDiaPitch)
{
    Element el = CopyOfCurrent(lDiaPitch);
    if (el.sort == NOTE)
    {
        el.up = lDiaPitch <= lHighestUpStem || el.lDuration > lLongestWithStem || el.lDuration == lMinimTriplet;
        el.lPitch = tail.MidiPitch(lDiaPitch);
    }
    else if (el.sort == KEYSIG)
        el.lB = tail.Key();
    return el;
}

/// Adds elCurrent directly ahead of the nearest chord-starting note, however far back that is, or at the head of the
/// staff. The insert point stays. The first note of a chord has no chord flag yet when its accidental comes in, which
/// therefore lands ahead of an earlier chord: files that depend on it read back the same.
void AddAheadOfChord(int32_t lDiaPitch)
{
    StaffTail& tail = InsertTail();
    Element* const pelAhead = Prev(tail.ChordStart());
    StaffTail there;
    if (elCurrent.sort == NOTE || elCurrent.sort == KEYSIG) // no other sort asks what is in force
        there.Rebuild(pelAhead, lInsertStaff);
    Element const el = SymbolFor(there, lDiaPitch);
    List_AddAfter(aStaffList[lInsertStaff], pelAhead, &el, cbPlainElement);
    tail.AddedAheadOfChord(&el);
}

/// Where a note belongs in the open chord at the insert point: behind pelBelow, or ahead of pelFirst. Both are null
/// when no chord is open there.
struct ChordPlace
{
    Element* pelBelow = nullptr;
    Element* pelFirst = nullptr;
};

ChordPlace FindInOpenChord(StaffTail const& tail, int32_t lDiaPitch)
{
    if (tail.OpenChordKnown())
    {
        Element* const pelBelow = tail.NotAbove(lDiaPitch);
        return {pelBelow, pelBelow ? nullptr : tail.ChordStart()};
    }
    for (Element* pel = pelInsertPoint; pel; pel = Prev(pel))
    {
        if (pel->sort != NOTE)
            continue;
        if ((pel->lA & fChordMore) == 0)
            break; // all notes of an open chord have that bit: here another one begins
        if (pel->lDiaPitch <= lDiaPitch)
            return {pel, nullptr};
        if ((pel->lA & fChordBits) == fChordMore)
            return {nullptr, pel};
    }
    return {};
}

void BeginChord(int32_t lDiaPitch)
{
    AddAtInsertPoint(lDiaPitch, false);
    if (!pelInsertPoint || pelInsertPoint->sort != NOTE)
        return; // the note went to the head of a staff that wasn't empty
    StaffTail& tail = InsertTail();
    pelInsertPoint->lA |= fChordMore;
    tail.ChordBegun();
}
} // namespace

void AddAtInsertPoint(int32_t lDiaPitch, bool bBeforeChord)
{
    bScoreDirty = true;
    bTimesValid = false;
    if (bBeforeChord)
    {
        AddAheadOfChord(lDiaPitch);
        return;
    }
    Element const el = SymbolFor(InsertTail(), lDiaPitch);
    List_AddAfter(aStaffList[lInsertStaff], pelInsertPoint, &el, cbPlainElement);
    InsertPoint_Advance();
}

void AddChordNote(int32_t lDiaPitch, bool bFirst, int32_t lPitch)
{
    bScoreDirty = true;
    bTimesValid = false;
    if (bFirst || !pelInsertPoint)
    {
        BeginChord(lDiaPitch);
        return;
    }
    if (pelInsertPoint->lDuration != elCurrent.lDuration)
    {
        Serious("All notes in a chord must have same duration");
        return;
    }
    StaffTail& tail = InsertTail();
    ChordPlace const place = FindInOpenChord(tail, lDiaPitch);
    Element el = CopyOfCurrent(lDiaPitch);
    el.lPitch = lPitch;
    el.up = pelInsertPoint->up;
    List const list = aStaffList[lInsertStaff];
    if (place.pelBelow)
    {
        el.lA |= fChordBits;
        List_AddAfter(list, place.pelBelow, &el, cbPlainElement);
        bool const bTop = place.pelBelow == pelInsertPoint;
        Element* const pelNew = Next(place.pelBelow);
        if (!pelNew)
            return;
        if (bTop)
            pelInsertPoint = pelNew;
        tail.ChordGrown(pelNew, false, bTop);
    }
    else if (place.pelFirst)
    {
        place.pelFirst->lA |= fChordBefore;
        el.lA |= fChordMore;
        List_AddBefore(list, place.pelFirst, &el, cbPlainElement);
        if (Element* const pelNew = Prev(place.pelFirst))
            tail.ChordGrown(pelNew, true, false);
    }
    else
        BeginChord(lDiaPitch);
}

void CloseChord()
{
    if (!pelInsertPoint || pelInsertPoint->sort != NOTE)
        return;
    StaffTail& tail = InsertTail();
    pelInsertPoint->lA &= ~fChordMore;
    tail.ChordClosed();
}

void SelectInsertStaff(int32_t lStaff)
{
    if (lStaff < 0 || lStaff > lHighestStaff)
        return;
    pelInsertPoint = StaffLast(lStaff);
    lInsertStaff = lStaff;
    if (lStaff >= 1 && !IsVisible(lStaff))
        ToggleStaff(lStaff);
}

void MoveInsertPoint(int32_t x, int32_t y)
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(x, y, &lStrX, &lDiaPitch, &lStaff, 1);
    pelInsertPoint = FindAtOrBefore(lStrX, lStaff);
}
} // namespace zarn

// The carried state of the sequential adders.
//
// Order on the staff is told by stamps: an element added behind the place gets the next even number, and one added
// ahead of a chord the odd number below that of the chord's first note. Equal stamps came in one behind the other, so
// of two the later is the nearer; at the head of the staff it is the other way round, since each new one goes ahead.
#include "edit/insert_run.h"

#include "core/pitch.h"

#include <limits>

namespace zarn
{
namespace
{
InsertRun* pRun = nullptr;

constexpr int64_t lHeadOfStaff = std::numeric_limits<int64_t>::min();

bool StartsChord(Element const* pel) { return pel->sort == NOTE && (pel->lA & fChordBits) == fChordMore; }
} // namespace

InsertRun::InsertRun() : pOuter(pRun) { pRun = this; }

InsertRun::~InsertRun() { pRun = pOuter; }

StaffTail& InsertTail()
{
    static StaffTail tailOfWalk;
    if (!pRun)
        tailOfWalk.Forget();
    StaffTail& tail = pRun ? pRun->aTail[lInsertStaff] : tailOfWalk;
    if (!tail.Fits(pelInsertPoint))
        tail.Rebuild(pelInsertPoint, lInsertStaff);
    return tail;
}

void InsertPoint_Advance()
{
    Element* const pelNew = pelInsertPoint ? Next(pelInsertPoint) : StaffFirst(lInsertStaff);
    if (!pelNew)
        return;
    StaffTail* const pTail = pRun ? &pRun->aTail[lInsertStaff] : nullptr;
    bool const bCarried = pTail && pTail->Fits(pelInsertPoint);
    pelInsertPoint = pelInsertPoint ? pelNew : StaffLast(lInsertStaff);
    if (bCarried && pelInsertPoint == pelNew)
        pTail->Appended(pelNew);
    else if (pTail)
        pTail->Forget();
}

void StaffTail::Rebuild(Element* pel, int32_t lStaff)
{
    *this = StaffTail{};
    bKnown = true;
    pelAt = pel;
    lBarrier = lHeadOfStaff;
    bool bClef = false;
    bool bKey = false;
    bool bTranspose = false;
    int64_t lPlace = 0;
    for (; pel; pel = Prev(pel), lPlace -= 2)
    {
        bool const bOwn = pel->lStaff == lStaff;
        if (pel->sort == CLEF && !bClef)
        {
            lClef = pel->lA;
            bClef = true;
        }
        if (pel->sort == KEYSIG && bOwn && !bKey)
        {
            lKey = pel->lA;
            bKey = true;
        }
        if (pel->sort == TRANSPOSE && !bTranspose)
        {
            lTranspose = pel->lA;
            bTranspose = true;
        }
        if (!start.pel && StartsChord(pel))
            start = {pel, lPlace};
        if (!bOwn || lBarrier != lHeadOfStaff)
            continue;
        if (Sort_EndsAccidentals(pel->sort))
            lBarrier = lPlace;
        else if (Sort_IsAccidental(pel->sort))
            accidentals.try_emplace(pel->lDiaPitch, Accidental{AccidentalState(pel->sort), lPlace});
    }
}

int32_t StaffTail::Accid(int32_t lDiaPitch) const
{
    auto const found = accidentals.find(lDiaPitch);
    return found == accidentals.end() ? 0 : found->second.lState;
}

int32_t StaffTail::MidiPitch(int32_t lDiaPitch) const
{
    return MidiFromPitch(lDiaPitch, lKey, Accid(lDiaPitch), lTranspose);
}

Element* StaffTail::NotAbove(int32_t lDiaPitch) const
{
    auto const above = openChord.upper_bound(lDiaPitch);
    return above == openChord.begin() ? nullptr : std::prev(above)->second;
}

void StaffTail::Barrier()
{
    lBarrier = lStamp;
    accidentals.clear();
}

void StaffTail::Appended(Element* pel)
{
    pelAt = pel;
    lStamp += 2;
    if (pel->sort == NOTE)
        openChord.clear(); // a single note ends the walk of one that looks for its chord
    if (Sort_EndsAccidentals(pel->sort))
        Barrier();
    if (pel->sort == CLEF)
        lClef = pel->lA;
    else if (pel->sort == KEYSIG)
        lKey = pel->lA;
    else if (pel->sort == TRANSPOSE)
        lTranspose = pel->lA;
    else if (Sort_IsAccidental(pel->sort))
        accidentals.insert_or_assign(pel->lDiaPitch, Accidental{AccidentalState(pel->sort), lStamp});
}

void StaffTail::AddedAheadOfChord(Element const* pel)
{
    if (!Sort_IsAccidental(pel->sort))
    {
        // Signs that rule what follows never come in here; one that did would ask for a new walk.
        if (Sort_EndsAccidentals(pel->sort) || pel->sort == TRANSPOSE)
            Forget();
        return;
    }
    int64_t const lPlace = start.pel ? start.lStamp - 1 : lHeadOfStaff;
    if (!pelAt || lPlace < lBarrier)
        return;
    auto const [place, bNew] = accidentals.try_emplace(pel->lDiaPitch, Accidental{AccidentalState(pel->sort), lPlace});
    if (!bNew && start.pel && place->second.lStamp <= lPlace)
        place->second = {AccidentalState(pel->sort), lPlace};
}

void StaffTail::ChordBegun()
{
    startBefore = start;
    bStartBefore = true;
    start = {pelAt, lStamp};
    openChord.clear();
    openChord.emplace(pelAt->lDiaPitch, pelAt);
}

void StaffTail::ChordGrown(Element* pel, bool bNewFirst, bool bNewTop)
{
    openChord.insert_or_assign(pel->lDiaPitch, pel);
    if (bNewFirst)
        start.pel = pel; // it stands where the old first one stood, as seen from all other elements
    if (bNewTop)
    {
        pelAt = pel;
        lStamp += 2;
    }
}

void StaffTail::ChordClosed()
{
    openChord.clear();
    if (start.pel != pelAt)
        return;
    // A chord of one note is none: the chord before it is the nearest again.
    if (!bStartBefore)
        Forget();
    start = startBefore;
    bStartBefore = false;
}
} // namespace zarn

// The search by its plain rules: every chord keeps a List of records, each with the cheapest path that ends with it.
#include "tab/fingering.h"

#include "core/messages.h"
#include "core/text.h"
#include "midi/refresh_pitches.h"
#include "platform/user.h"
#include "render/geometry.h"
#include "tab/chord_notes.h"
#include "tab/fingers_cost.h"
#include "tab/fingers_place.h"

#include <algorithm>

namespace zarn
{
namespace
{
constexpr int32_t lBestStart = 999999; ///< a path that costs as much is no better than none
constexpr int32_t cbFingers = static_cast<int32_t>(sizeof(Fingers));

/// A chord on the way.
struct Chord
{
    ChordPlace first;
    ChordPlace last;
    bool bHoldsStop = false;
    std::vector<int32_t> aPitches = {};
};

Chord GatherChord(ChordPlace first, Element const* pelStop)
{
    Chord chord{.first = first, .last = first};
    bool bFull = false;
    for (ChordPlace place = first; place.pel; place = Tab_NextChordNote(place))
    {
        for (Element const* pel = chord.last.pel; pel != place.pel; pel = Next(pel))
            chord.bHoldsStop |= pel == pelStop;
        chord.bHoldsStop |= place.pel == pelStop;
        chord.last = place;
        if (bFull || std::ranges::find(chord.aPitches, place.pel->lPitch) != chord.aPitches.end())
            continue;
        bFull = std::ssize(chord.aPitches) >= Tab_UsedStrings();
        if (bFull)
            Serious("You have a chord with more notes in it than there are strings!");
        else
            chord.aPitches.push_back(place.pel->lPitch);
    }
    return chord;
}

bool BuildPrimary(Chord const& chord)
{
    Element* const pel = chord.first.pel;
    pel->listFingers = List_Create();
    if (chord.aPitches.empty())
    {
        Serious("No notes in chord??");
        return false;
    }
    for (Fingers const& f : PrimeFingerings(chord.aPitches))
        List_AddLast(pel->listFingers, &f, cbFingers);
    return !List_IsEmpty(pel->listFingers);
}

/// The first note of the next chord.
ChordPlace BuildPrimeFingerings(ChordPlace place, Element const* pelStop, bool& bFailed, bool bVerbose)
{
    bFailed = false;
    if (place.pel->sort != NOTE)
    {
        Serious("BuildPrimeFingerings called for non-note!");
        bFailed = true;
        return {};
    }
    Chord const chord = GatherChord(place, pelStop);
    if (!BuildPrimary(chord))
    {
        bFailed = true;
        if (bVerbose)
            Serious("No fingerings possible.");
        return {};
    }
    return chord.bHoldsStop ? ChordPlace{} : Tab_NextNote(chord.last, pelStop);
}

/// Drops a record, and its ancestors that nobody else leads to.
void Fingers_Purge(pf p)
{
    while (p)
    {
        pf const pPrev = p->pfPrev;
        List_Delete(p);
        if (pPrev && --pPrev->lRefCount < 0)
            Serious("Bug! Negative RefCount in Fingers::Purge");
        p = pPrev && pPrev->lRefCount < 1 ? pPrev : nullptr;
    }
}

void Fingers_Link(Element* pelPrev, Element* pel)
{
    pf pfBest = nullptr;
    for (pf b = List_FirstAs<Fingers>(pel->listFingers); b; b = List_NextAs(b))
    {
        int32_t lBest = lBestStart;
        for (pf a = List_FirstAs<Fingers>(pelPrev->listFingers); a; a = List_NextAs(a))
            if (int32_t const lCost = Fingers_Transition(*a, *b); lCost < lBest)
            {
                lBest = lCost;
                pfBest = a;
            }
        if (!pfBest)
            pfBest = List_FirstAs<Fingers>(pelPrev->listFingers);
        b->pfPrev = pfBest;
        b->lCost = lBest;
        ++pfBest->lRefCount;
    }
    for (pf a = List_FirstAs<Fingers>(pelPrev->listFingers); a;)
    {
        pf const pNext = List_NextAs(a);
        if (a->lRefCount == 0)
            Fingers_Purge(a);
        a = pNext;
    }
}

/// Ahead of each record go copies of it with fingers that stay down from the chord before: every choice of those that
/// the record doesn't use itself.
void Fingers_CarryHeld(List list)
{
    for (pf b = List_FirstAs<Fingers>(list); b; b = List_NextAs(b))
    {
        std::vector<size_t> aFree;
        for (size_t i = 0; i < b->aFinger.size(); ++i)
            if (b->pfPrev->aFinger[i].bMask != 0 && b->aFinger[i].bMask == 0)
                aFree.push_back(i);
        for (uint32_t lSubset = 1; lSubset < 1u << aFree.size(); ++lSubset)
        {
            Fingers held = *b;
            ++held.pfPrev->lRefCount;
            for (size_t n = 0; n < aFree.size(); ++n)
                if (lSubset >> n & 1)
                    held.aFinger[aFree[n]] = b->pfPrev->aFinger[aFree[n]];
            List_AddBefore(list, b, &held, cbFingers);
        }
    }
}

void Fingers_KeepBest(Element* pel, bool bVerbose)
{
    if (!pel->listFingers)
    {
        Serious("!!No fingering list found!!");
        return;
    }
    if (List_IsEmpty(pel->listFingers))
    {
        if (bVerbose)
            Serious("No way to finger the entire piece!");
        return;
    }
    int32_t lBest = lBestStart;
    pf pfBest = nullptr;
    for (pf p = List_FirstAs<Fingers>(pel->listFingers); p; p = List_NextAs(p))
        if (p->lCost < lBest)
        {
            lBest = p->lCost;
            pfBest = p;
        }
    for (pf p = List_FirstAs<Fingers>(pel->listFingers); p;)
    {
        pf const pNext = List_NextAs(p);
        if (p != pfBest)
            Fingers_Purge(p);
        p = pNext;
    }
}

void StoreNote(Element* pel, Fingers const& f)
{
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
    {
        FingersString const& string = f.aString[static_cast<size_t>(i)];
        if (Tab_OpenPitch(i + 1, string.bFret) != pel->lPitch)
            continue;
        pel->lString = i + 1;
        pel->lFret = string.bFret;
        pel->lFinger = string.bFinger;
    }
}

ChordFingering Told(Element* pel, Fingers const& f)
{
    int32_t const lOwn = Fingers_OwnCost(f);
    int32_t const lBefore = f.pfPrev ? f.pfPrev->lCost : 0;
    int32_t const lStep = f.pfPrev ? Clamp32(int64_t{f.lCost} - lOwn - lBefore) : 0;
    return {.pelFirst = pel, .lOwnCost = lOwn, .lStepCost = lStep, .lTotalCost = f.lCost};
}

/// One chord of the back-trace: its notes take over its first record. True when the stretch ends in it.
bool StoreChord(ChordPlace first, Element const* pelLast, ChordPlace& last, std::vector<ChordFingering>* pSteps)
{
    Chord const chord = GatherChord(first, pelLast);
    last = chord.last;
    List& list = first.pel->listFingers;
    if (!list)
    {
        Serious("Bug!  This is how!! Tell Odrian.");
        return chord.bHoldsStop;
    }
    if (pf const p = List_FirstAs<Fingers>(list))
    {
        for (ChordPlace place = first; place.pel; place = Tab_NextChordNote(place))
            StoreNote(place.pel, *p);
        if (pSteps)
            pSteps->push_back(Told(first.pel, *p));
    }
    return chord.bHoldsStop;
}
} // namespace

Element* Tab_DoFingering(Element* pelFirst, Element* pelLast, bool bVerbose, std::vector<ChordFingering>* pSteps)
{
    if (!pelFirst)
    {
        Serious("Bug!  Duff call to Tab_DoFingering.");
        return nullptr;
    }
    SetWaitCursor(hwndMain, true);
    bool bFailed = false;
    ChordPlace const first = {pelFirst, Tab_InArpeggio(pelFirst)};
    Element* pelPrev = nullptr;
    ChordPlace current = first;
    std::vector<Element*> aLists;
    for (;;)
    {
        ChordPlace const next = BuildPrimeFingerings(current, pelLast, bFailed, bVerbose);
        aLists.push_back(current.pel);
        if (bFailed)
            current.pel->fOverBar = fUnplayable;
        if (next.pel)
            next.pel->pelPrevNote = current.pel;
        if (pelPrev && !bFailed)
        {
            Fingers_Link(pelPrev, current.pel);
            Fingers_CarryHeld(current.pel->listFingers);
        }
        if (!next.pel || bFailed)
            break;
        pelPrev = current.pel;
        current = next;
    }
    if (bFailed)
        pelLast = current.pel;
    Fingers_KeepBest(current.pel, bVerbose);
    ChordPlace last;
    for (ChordPlace place = first; place.pel; place = Tab_NextNote(last, pelLast))
        if (place.pel->sort != NOTE || StoreChord(place, pelLast, last, pSteps))
            break;
    for (Element* pel : aLists)
        if (pel->listFingers)
            List_Destroy(&pel->listFingers);
    SetWaitCursor(hwndMain, false);
    return bFailed ? current.pel : nullptr;
}

void Tab_FingerStaffs()
{
    RefreshPitches(lHighestStaff);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        Element* const pelFirst = IsVisible(lStaff) ? NextNote(StaffFirst(lStaff)) : nullptr;
        if (!pelFirst)
            continue;
        if (Element* const pelFailed = Tab_DoFingering(pelFirst, StaffLast(lStaff), true))
            pelFailed->fOverBar = fUnplayable;
    }
}

void RefreshBarFingering(Element* pel)
{
    if (!bTabShowing || !pel)
        return;
    RefreshPitches(lHighestStaff);
    Element* const pelStart = NextNoteInBar(pel);
    if (!pelStart)
        return;
    Tab_DoFingering(pelStart, LastInBar(pelStart), true);
}

void Tab_FingerChord(Element* pelNote)
{
    Element* const pelFirst = ChordFirst(pelNote);
    Element* const pelLast = ChordLast(pelNote);
    // A chord that has lost its last note ends with the notes that it has: the first one's chain tells them.
    if (Element* const pelFailed = Tab_DoFingering(pelFirst, pelLast ? pelLast : pelFirst, false))
        pelFailed->fOverBar = fUnplayable;
}
} // namespace zarn

// The search itself, on Lists.
#include "tab/plain_search.h"

#include "core/messages.h"
#include "core/text.h"

#include <algorithm>

namespace zarn::test
{
constexpr int32_t lBestStart = 999999;

static bool Tab_InArpeggio(Element* pelNote)
{
    for (Element* pel = pelNote; pel; pel = Prev(pel))
    {
        if (pel->sort == ARPEGSTART)
            return true;
        if (pel->sort == ARPEGEND)
            return false;
    }
    return false;
}

bool Tab_InLaterArpeggioNote(Element* pelNote)
{
    bool bLater = false;
    for (Element* pel = pelNote; pel; pel = Prev(pel))
    {
        if (pel->sort == NOTE && pel->lStrX != pelNote->lStrX)
            bLater = true;
        if (pel->sort == ARPEGSTART)
            return bLater;
        if (pel->sort == ARPEGEND)
            return false;
    }
    return false;
}

Element* Tab_NextChordNote(Element* pelNote)
{
    bool const bInArpeggio = Tab_InArpeggio(pelNote);
    if (pelNote->sort != NOTE)
        return nullptr;
    int32_t const lFlags = pelNote->lA & fChordBits;
    if (!bInArpeggio && (lFlags == 0 || lFlags == fChordBefore))
        return nullptr;
    Element* pel = Next(pelNote);
    for (; pel && pel->sort != NOTE; pel = Next(pel))
        if (pel->sort == ARPEGEND)
            return nullptr;
    if (!pel)
        return nullptr;
    int32_t const lNext = pel->lA & fChordBits;
    return (lNext == 0 || lNext == fChordMore) && !bInArpeggio ? nullptr : pel;
}

static bool PrimaryList(Element* pelFirst)
{
    pelFirst->listFingers = List_Create();
    std::vector<int32_t> aPitches;
    for (Element* pel = pelFirst; pel && pel->sort == NOTE; pel = Tab_NextChordNote(pel))
    {
        if (std::ranges::find(aPitches, pel->lPitch) != aPitches.end())
            continue;
        if (std::ssize(aPitches) >= Tab_UsedStrings())
        {
            Serious("You have a chord with more notes in it than there are strings!");
            break;
        }
        aPitches.push_back(pel->lPitch);
    }
    if (aPitches.empty())
    {
        Serious("No notes in chord??");
        return false;
    }
    BuildPrimary(pelFirst->listFingers, aPitches);
    return !List_IsEmpty(pelFirst->listFingers);
}

/// The stop may stand between two notes of the chord: it is reached all the same.
static bool Passes(Element* pelFrom, Element* pelTo, Element* pelStop)
{
    for (Element* pel = pelFrom; pel != pelTo; pel = Next(pel))
        if (pel == pelStop)
            return true;
    return pelTo == pelStop;
}

Element* BuildPrimeFingerings(Element* pel, Element* pelStop, int32_t& fFailed, bool bVerbose)
{
    fFailed = 0;
    if (pel->sort != NOTE)
    {
        Serious("BuildPrimeFingerings called for non-note!");
        fFailed = 1;
        return nullptr;
    }
    if (!PrimaryList(pel))
    {
        fFailed = 1;
        if (bVerbose)
            Serious("No fingerings possible.");
        return nullptr;
    }
    if (pel == pelStop)
        return nullptr;
    while (Element* const pelNext = Tab_NextChordNote(pel))
    {
        if (Passes(pel, pelNext, pelStop))
            return nullptr;
        pel = pelNext;
    }
    for (pel = Next(pel); pel; pel = Next(pel))
    {
        if (pel->sort == NOTE)
            return pel;
        if (pel == pelStop)
            return nullptr;
    }
    return nullptr;
}

void Fingers_Copy(pf pTarget, PlainFingers const& source)
{
    *pTarget = source;
    if (pTarget->pfPrev)
        ++pTarget->pfPrev->lRefCount;
}

void Fingers_Purge(pf p)
{
    if (!p)
    {
        Serious("Bug! pf==NULL in Fingers::Purge");
        return;
    }
    while (p)
    {
        pf const pPrev = p->pfPrev;
        List_Delete(p);
        if (pPrev && --pPrev->lRefCount < 0)
            Serious("Bug! Negative RefCount in Fingers::Purge");
        p = pPrev && pPrev->lRefCount < 1 ? pPrev : nullptr;
    }
}

void Fingers_CarryRing(PlainFingers const& from, PlainFingers& to)
{
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
    {
        FingersString const rings = from.aString[static_cast<size_t>(i)];
        if (rings.bFret == bNoFret || to.aString[static_cast<size_t>(i)].bFret != bNoFret)
            continue;
        to.aString[static_cast<size_t>(i)] = rings;
        if (rings.bFret == 0)
            continue;
        int32_t cMatches = 0;
        for (size_t n = 0; n < from.aFinger.size(); ++n)
            if ((from.aFinger[n].bMask >> i & 1) && from.aFinger[n].bFret == rings.bFret)
            {
                if (++cMatches == 2)
                    Serious("Multiple fingers on same string/fret");
                to.aFinger[n] = from.aFinger[n];
            }
        if (cMatches == 0)
            Serious("Trying to carry forward arpeggio string/fret with no finger");
    }
}

void Fingers_Link(Element* pelPrev, Element* pel)
{
    bool const bArpeggio = Tab_InLaterArpeggioNote(pel);
    pf pfBest = nullptr;
    for (pf b = List_FirstAs<PlainFingers>(pel->listFingers); b; b = List_NextAs(b))
    {
        int32_t lBest = lBestStart;
        for (pf a = List_FirstAs<PlainFingers>(pelPrev->listFingers); a; a = List_NextAs(a))
        {
            int32_t const c = Fingers_Transition(*a, *b, bArpeggio);
            if (c < lBest)
            {
                lBest = c;
                pfBest = a;
            }
        }
        if (!pfBest)
            pfBest = List_FirstAs<PlainFingers>(pelPrev->listFingers);
        b->pfPrev = pfBest;
        b->lCost = lBest;
        b->lStepCost = Clamp32(int64_t{lBest} - b->lOwnCost - pfBest->lCost);
        ++pfBest->lRefCount;
        if (bArpeggio)
            Fingers_CarryRing(*pfBest, *b);
    }
    for (pf a = List_FirstAs<PlainFingers>(pelPrev->listFingers); a;)
    {
        pf const pNext = List_NextAs(a);
        if (a->lRefCount == 0)
            Fingers_Purge(a);
        a = pNext;
    }
}

void Fingers_CarryHeld(List list)
{
    for (pf b = List_FirstAs<PlainFingers>(list); b; b = List_NextAs(b))
    {
        PlainFingers const& a = *b->pfPrev;
        std::vector<size_t> aFree;
        for (size_t i = 0; i < a.aFinger.size(); ++i)
            if (a.aFinger[i].bMask != 0 && b->aFinger[i].bMask == 0)
                aFree.push_back(i);
        for (uint32_t lSubset = 1; lSubset < 1u << aFree.size(); ++lSubset)
        {
            PlainFingers held;
            Fingers_Copy(&held, *b);
            for (size_t n = 0; n < aFree.size(); ++n)
                if (lSubset >> n & 1)
                    held.aFinger[aFree[n]] = a.aFinger[aFree[n]];
            List_AddBefore(list, b, &held, cbPlainFingers);
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
    for (pf p = List_FirstAs<PlainFingers>(pel->listFingers); p; p = List_NextAs(p))
        if (p->lCost < lBest)
        {
            lBest = p->lCost;
            pfBest = p;
        }
    for (pf p = List_FirstAs<PlainFingers>(pel->listFingers); p;)
    {
        pf const pNext = List_NextAs(p);
        if (p != pfBest)
            Fingers_Purge(p);
        p = pNext;
    }
}

static void StoreNote(Element* pel, Fingers const& f)
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

static ChordFingering Told(Element* pel, PlainFingers const& f)
{
    return {.pelFirst = pel, .lOwnCost = f.lOwnCost, .lStepCost = f.lStepCost, .lTotalCost = f.lCost};
}

/// Walks from the first element of the stretch; an end inside a chord is met with the chord.
static void BackTrace(Element* pel, Element* pelLast, std::vector<ChordFingering>* pSteps)
{
    for (; pel; pel = Next(pel))
    {
        bool bEnd = pel == pelLast;
        if (pel->sort == NOTE)
        {
            List& list = pel->listFingers;
            pf const p = list ? List_FirstAs<PlainFingers>(list) : nullptr;
            if (p && pSteps)
                pSteps->push_back(Told(pel, *p));
            Element* pelNote = pel;
            for (; pelNote; pelNote = Tab_NextChordNote(pelNote))
            {
                bEnd |= Passes(pel, pelNote, pelLast);
                pel = pelNote;
                if (p)
                    StoreNote(pel, *p);
            }
            if (list)
                List_Destroy(&list);
            else
                Serious("Bug!  This is how!! Tell Odrian.");
        }
        if (bEnd)
            return;
    }
}

Element* PlainDoFingering(Element* pelFirst, Element* pelLast, bool bVerbose, std::vector<ChordFingering>* pSteps)
{
    if (!pelFirst)
    {
        Serious("Bug!  Duff call to Tab_DoFingering.");
        return nullptr;
    }
    int32_t fFailed = 0;
    Element* pelPrev = nullptr;
    Element* pelCurrent = pelFirst;
    for (;;)
    {
        Element* const pelNext = BuildPrimeFingerings(pelCurrent, pelLast, fFailed, bVerbose);
        if (fFailed)
            pelCurrent->fOverBar = fUnplayable;
        if (pelNext)
            pelNext->pelPrevNote = pelCurrent;
        if (pelPrev && !fFailed)
        {
            Fingers_Link(pelPrev, pelCurrent);
            Fingers_CarryHeld(pelCurrent->listFingers);
        }
        if (!pelNext || fFailed)
            break;
        pelPrev = pelCurrent;
        pelCurrent = pelNext;
    }
    if (fFailed)
        pelLast = pelCurrent;
    Fingers_KeepBest(pelCurrent, bVerbose);
    BackTrace(pelFirst, pelLast, pSteps);
    return fFailed ? pelCurrent : nullptr;
}
} // namespace zarn::test

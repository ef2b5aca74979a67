// Strings for the pitches, then fingers for the strings: every turn taken on a fresh copy, every rule asked in full.
#include "tab/fingers_cost.h"
#include "tab/plain_search.h"

#include <algorithm>

namespace zarn::test
{
static int32_t UsedMask(Fingers const& f)
{
    int32_t lMask = 0;
    for (FingersFinger const& finger : f.aFinger)
        lMask |= finger.bMask;
    return lMask;
}

static FingersString const& StringOf(Fingers const& f, int32_t lString)
{
    return f.aString[static_cast<size_t>(lString - 1)];
}

static int32_t LowestNotHeld(Fingers const& f)
{
    int32_t lLow = bNoFret;
    for (int32_t s = 1; s <= Tab_UsedStrings(); ++s)
        if (StringOf(f, s).bFret != 0 && (UsedMask(f) >> (s - 1) & 1) == 0)
            lLow = std::min<int32_t>(lLow, StringOf(f, s).bFret);
    return lLow;
}

static void Advance(Placement& p, int32_t lFinger)
{
    int32_t const n = Tab_UsedStrings();
    if (p.lo == -1)
        p.lo = p.hi = 1;
    else if (p.hi == n && p.lo == n)
        p.lo = p.hi = 0;
    else if (p.hi == n)
        p.lo = p.hi = p.lo + 1;
    else if (lFinger == 1 && (p.lo == 1 || p.hi <= p.lo))
        ++p.hi;
    else
        p.lo = p.hi = p.lo + 1;
}

bool Fingers_NextPlacement(Fingers const& f, int32_t lFinger, int32_t lLowestFret, Placement& p)
{
    int32_t const lLow = LowestNotHeld(f);
    if (lLow == bNoFret && p.lo != 0)
        p.lo = p.hi = Tab_UsedStrings();
    while (p.lo != 0)
    {
        Advance(p, lFinger);
        if (p.lo == 0)
        {
            p.lFret = -1;
            return true;
        }
        int32_t m = bNoFret;
        for (int32_t s = p.lo; s <= p.hi; ++s)
            m = std::min<int32_t>(m, StringOf(f, s).bFret);
        if (m == bNoFret || m == 0 || m < lLowestFret || m != lLow)
            continue;
        if (p.hi > p.lo && p.lo >= 2 && StringOf(f, p.lo - 1).bFret < m)
            continue;
        bool bSomeNew = false;
        for (int32_t s = p.lo; s <= p.hi; ++s)
            if (StringOf(f, s).bFret == m && (UsedMask(f) >> (s - 1) & 1) == 0)
                bSomeNew = true;
        if (!bSomeNew)
            continue;
        p.lFret = m;
        return true;
    }
    p.lFret = 0;
    return false;
}

void Fingers_Place(Fingers& f, int32_t lFinger, Placement const& p)
{
    if (p.lo == 0 && p.hi == 0)
        return;
    FingersFinger& finger = f.aFinger[static_cast<size_t>(lFinger - 1)];
    finger.bFret = static_cast<uint8_t>(p.lFret);
    finger.bMask = 0;
    for (int32_t s = p.lo; s <= p.hi; ++s)
    {
        FingersString& string = f.aString[static_cast<size_t>(s - 1)];
        if (string.bFret > p.lFret && string.bFret != bNoFret)
            continue;
        finger.bMask = static_cast<uint8_t>(finger.bMask | 1 << (s - 1));
        string.bFinger = static_cast<uint8_t>(lFinger);
        if (string.bFret != bNoFret)
            string.bFret = static_cast<uint8_t>(p.lFret);
    }
}

bool Fingers_IsComplete(Fingers const& f)
{
    uint8_t bCovered = static_cast<uint8_t>(UsedMask(f));
    for (int32_t s = 1; s <= Tab_UsedStrings(); ++s)
        if (StringOf(f, s).bFret == 0 || StringOf(f, s).bFret == bNoFret)
            bCovered = static_cast<uint8_t>(bCovered | 1 << (s - 1));
    if (bCovered != (1 << Tab_UsedStrings()) - 1)
        return false;
    for (int32_t s = 1; s <= Tab_UsedStrings(); ++s)
    {
        FingersString const& string = StringOf(f, s);
        if (string.bFinger != 0 && string.bFret != bNoFret &&
            f.aFinger[static_cast<size_t>(string.bFinger - 1)].bFret != string.bFret)
            return false;
    }
    return true;
}

bool Fingers_AllPairsOK(Fingers const& f)
{
    for (auto const& [a, b] : {std::pair{1, 2}, {1, 3}, {1, 4}, {2, 3}, {2, 4}, {3, 4}})
        if (!Fingers_PairOK(a, f.aFinger[static_cast<size_t>(a - 1)], b, f.aFinger[static_cast<size_t>(b - 1)]))
            return false;
    return true;
}

static void Fingers_Add(List list, Fingers const& f)
{
    PlainFingers record;
    static_cast<Fingers&>(record) = f;
    record.lCost = record.lOwnCost = Fingers_OwnCost(f);
    List_AddLast(list, &record, cbPlainFingers);
}

static void AssignFrom(List list, Fingers const& f, int32_t lFinger, int32_t lLowestFret)
{
    Placement placement;
    while (Fingers_NextPlacement(f, lFinger, lLowestFret, placement))
    {
        Fingers placed = f;
        Fingers_Place(placed, lFinger, placement);
        if (Fingers_IsComplete(placed))
        {
            if (lFinger == 1 || Fingers_AllPairsOK(placed))
                Fingers_Add(list, placed);
        }
        else if (lFinger < lFingers)
            AssignFrom(list, placed, lFinger + 1, placement.lFret);
    }
}

void Fingers_AssignAndAdd(List list, Fingers const& f)
{
    Fingers clear = f;
    clear.aFinger = {};
    for (FingersString& string : clear.aString)
        string.bFinger = 0;
    if (Fingers_IsComplete(clear))
        Fingers_Add(list, clear);
    else
        AssignFrom(list, clear, 1, 0);
}

static void ChooseString(List list, Fingers const& f, std::vector<int32_t> const& aPitches, size_t nPitch)
{
    constexpr size_t nSixth = 5;
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
    {
        auto const inx = static_cast<size_t>(i);
        int64_t const lFret = int64_t{aPitches[nPitch]} - aOpenPitch[inx];
        if (f.aString[inx].bFret != bNoFret || lFret < 0)
            continue;
        Fingers chosen = f;
        chosen.aString[inx].bFret = static_cast<uint8_t>(lFret);
        if (!Fingers_StretchOK(chosen))
            continue;
        if (nPitch + 1 == aPitches.size() || nPitch == nSixth)
            Fingers_AssignAndAdd(list, chosen);
        else
            ChooseString(list, chosen, aPitches, nPitch + 1);
    }
}

void BuildPrimary(List list, std::vector<int32_t> const& aPitches) { ChooseString(list, Fingers{}, aPitches, 0); }
} // namespace zarn::test

// Strings for the pitches, then fingers for the strings, both depth-first, each level on a copy of the one above.
#include "tab/fingers_place.h"

#include "tab/fingers_cost.h"

#include <algorithm>

namespace zarn
{
namespace
{
constexpr int32_t lNoStringYet = -1;
constexpr int32_t lAnyFret = -1; ///< the fret of an idle finger: the next one may go below any

/// The strings that a finger is tried on, from 1; 0 is the idle turn that ends them.
struct Span
{
    int32_t lo = lNoStringYet;
    int32_t hi = lNoStringYet;
};

int32_t UsedMask(Fingers const& f)
{
    int32_t lMask = 0;
    for (FingersFinger const& finger : f.aFinger)
        lMask |= finger.bMask;
    return lMask;
}

FingersString const& StringOf(Fingers const& f, int32_t lString) { return f.aString[static_cast<size_t>(lString - 1)]; }

/// The lowest stopped fret that no finger holds yet; 255 when there is none.
int32_t LowestOpen(Fingers const& f, int32_t lUsed)
{
    int32_t lLow = bNoFret;
    for (int32_t s = 1; s <= Tab_UsedStrings(); ++s)
        if (StringOf(f, s).bFret != 0 && !(lUsed >> (s - 1) & 1))
            lLow = std::min<int32_t>(lLow, StringOf(f, s).bFret);
    return lLow;
}

void Advance(Span& span, int32_t lFinger)
{
    int32_t const lLast = Tab_UsedStrings();
    if (span.lo == lNoStringYet)
        span.lo = span.hi = 1;
    else if (span.hi == lLast && span.lo == lLast)
        span.lo = span.hi = 0;
    else if (span.hi == lLast)
        span.lo = span.hi = span.lo + 1;
    else if (lFinger == 1 && (span.lo == 1 || span.hi <= span.lo))
        ++span.hi;
    else
        span.lo = span.hi = span.lo + 1;
}

/// The next place for a finger; false when there is no more. Gives its fret, lAnyFret for the idle turn.
bool Fingers_NextPlacement(Fingers const& f, int32_t lFinger, int32_t lLowestFret, Span& span, int32_t& lFret)
{
    int32_t const lUsed = UsedMask(f);
    int32_t const lLow = LowestOpen(f, lUsed);
    if (lLow == bNoFret && span.lo != 0)
        span.lo = span.hi = Tab_UsedStrings(); // nothing to do: only the idle turn
    while (span.lo != 0)
    {
        Advance(span, lFinger);
        if (span.lo == 0)
        {
            lFret = lAnyFret;
            return true;
        }
        int32_t m = bNoFret;
        for (int32_t s = span.lo; s <= span.hi; ++s)
            m = std::min<int32_t>(m, StringOf(f, s).bFret);
        if (m == bNoFret || m == 0 || m < lLowestFret || m != lLow)
            continue;
        if (span.hi > span.lo && span.lo >= 2 && StringOf(f, span.lo - 1).bFret < m)
            continue; // a short bar has no string on its treble side that is stopped lower
        bool bNew = false;
        for (int32_t s = span.lo; s <= span.hi; ++s)
            bNew |= StringOf(f, s).bFret == m && !(lUsed >> (s - 1) & 1);
        if (!bNew)
            continue;
        lFret = m;
        return true;
    }
    lFret = 0;
    return false;
}

void Fingers_Place(Fingers& f, int32_t lFinger, Span span, int32_t lFret)
{
    if (span.lo == 0)
        return;
    FingersFinger& finger = f.aFinger[static_cast<size_t>(lFinger - 1)];
    finger.bFret = static_cast<uint8_t>(lFret);
    finger.bMask = 0;
    for (int32_t s = span.lo; s <= span.hi; ++s)
    {
        FingersString& string = f.aString[static_cast<size_t>(s - 1)];
        if (string.bFret > lFret && string.bFret != bNoFret)
            continue; // stopped higher: the bar lies under it, and another finger has to stop it
        finger.bMask = static_cast<uint8_t>(finger.bMask | 1 << (s - 1));
        string.bFinger = static_cast<uint8_t>(lFinger);
        if (string.bFret != bNoFret)
            string.bFret = static_cast<uint8_t>(lFret);
    }
}

void Fingers_Add(std::vector<Fingers>& aList, Fingers const& f)
{
    aList.push_back(f);
    aList.back().lCost = Fingers_OwnCost(f);
}

void AssignFrom(std::vector<Fingers>& aList, Fingers const& f, int32_t lFinger, int32_t lLowestFret)
{
    Span span;
    int32_t lFret = 0;
    while (Fingers_NextPlacement(f, lFinger, lLowestFret, span, lFret))
    {
        Fingers placed = f;
        Fingers_Place(placed, lFinger, span, lFret);
        if (!Fingers_IsComplete(placed))
        {
            if (lFinger < lFingers)
                AssignFrom(aList, placed, lFinger + 1, lFret);
        }
        else if (lFinger == 1 || Fingers_AllPairsOK(placed))
            Fingers_Add(aList, placed);
    }
}

/// All strings of f are set, no finger is.
void Fingers_AssignAndAdd(std::vector<Fingers>& aList, Fingers const& f)
{
    if (Fingers_IsComplete(f))
        Fingers_Add(aList, f); // open strings need no hand
    else
        AssignFrom(aList, f, 1, 0);
}

void ChooseStrings(std::vector<Fingers>& aList, Fingers const& f, std::span<int32_t const> aPitches)
{
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
    {
        auto const inx = static_cast<size_t>(i);
        int64_t const lFret = int64_t{aPitches[0]} - aOpenPitch[inx];
        if (f.aString[inx].bFret != bNoFret || lFret < 0)
            continue;
        Fingers chosen = f;
        chosen.aString[inx].bFret = static_cast<uint8_t>(lFret);
        if (!Fingers_StretchOK(chosen))
            continue;
        if (aPitches.size() == 1)
            Fingers_AssignAndAdd(aList, chosen);
        else
            ChooseStrings(aList, chosen, aPitches.subspan(1));
    }
}
} // namespace

std::vector<Fingers> PrimeFingerings(std::span<int32_t const> aPitches)
{
    std::vector<Fingers> aList;
    if (!aPitches.empty())
        ChooseStrings(aList, Fingers{}, aPitches.first(std::min(aPitches.size(), cMostPitches)));
    return aList;
}
} // namespace zarn

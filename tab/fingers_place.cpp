// Strings for the pitches, then fingers for the strings, both depth-first.
//
// For finger 1 every bar is tried, for the others single strings. Each finger takes the lowest fret that nobody holds
// yet, so that what is left tells at once whether the fingers left over can hold it; and two fingers that can't lie
// together now won't later. Such branches are cut, which changes nothing of what is found, nor its order.
#include "tab/fingers_place.h"

#include "tab/fingers_cost.h"

#include <algorithm>
#include <bit>

namespace zarn
{
namespace
{
/// One choice of strings, while fingers are laid on them.
class Laying
{
public:
    Laying(Fingers const& chosen, std::vector<Fingers>& aFound) : aFound(aFound), f(chosen)
    {
        for (int32_t s = 0; s < Tab_UsedStrings(); ++s)
            if (Fret(s) != 0 && Fret(s) != bNoFret)
                lStopped |= 1 << s;
    }

    void Lay()
    {
        if (lStopped == 0)
            Add();
        else
            LayFirst();
    }

private:
    [[nodiscard]] uint8_t Fret(int32_t s) const { return f.aString[static_cast<size_t>(s)].bFret; }

    /// The lowest fret of some stopped strings.
    [[nodiscard]] int32_t Lowest(int32_t lStrings) const
    {
        int32_t lLow = bNoFret;
        for (; lStrings; lStrings &= lStrings - 1)
            lLow = std::min<int32_t>(lLow, Fret(std::countr_zero(static_cast<uint32_t>(lStrings))));
        return lLow;
    }

    /// Finger 1: bars of any width from string 1, elsewhere of two strings, and single strings; idle last.
    void LayFirst()
    {
        int32_t const lLow = Lowest(lStopped);
        int32_t const lEnd = Tab_UsedStrings();
        for (int32_t lo = 0; lo < lEnd; ++lo)
            for (int32_t hi = lo; hi < (lo == 0 ? lEnd : std::min(lo + 2, lEnd)); ++hi)
                if (CanBar(lo, hi, lLow))
                {
                    BarStrings(lo, hi, lLow);
                    LayNext(1, lStopped & ~f.aFinger[0].bMask);
                    Lift(0);
                }
        LayNext(1, lStopped);
    }

    [[nodiscard]] bool CanBar(int32_t lo, int32_t hi, int32_t lLow) const
    {
        int32_t lSpanLow = bNoFret;
        for (int32_t s = lo; s <= hi; ++s)
            lSpanLow = std::min<int32_t>(lSpanLow, Fret(s));
        // A short bar has no string on its treble side that is stopped lower or open.
        return lSpanLow == lLow && !(hi > lo && lo > 0 && Fret(lo - 1) < lLow);
    }

    /// A string of the span that is stopped higher stays out: the bar lies under it.
    void BarStrings(int32_t lo, int32_t hi, int32_t lLow)
    {
        int32_t lMask = 0;
        for (int32_t s = lo; s <= hi; ++s)
            if (Fret(s) == lLow || Fret(s) == bNoFret)
                lMask |= 1 << s;
        Hold(0, lMask, lLow);
    }

    /// Finger i from index 1 and those behind it, for the stopped strings that nobody holds yet.
    void LayNext(size_t i, int32_t lLeft)
    {
        if (lLeft == 0)
        {
            Add();
            return;
        }
        if (std::popcount(static_cast<uint32_t>(lLeft)) > lFingers - static_cast<int32_t>(i))
            return;
        int32_t const lLow = Lowest(lLeft);
        for (int32_t lRest = lLeft; lRest; lRest &= lRest - 1)
        {
            int32_t const s = std::countr_zero(static_cast<uint32_t>(lRest));
            if (Fret(s) != lLow)
                continue;
            Hold(i, 1 << s, lLow);
            if (GoesWithThoseBelow(i))
                LayNext(i + 1, lLeft & ~(1 << s));
            Lift(i);
        }
        LayNext(i + 1, lLeft);
    }

    [[nodiscard]] bool GoesWithThoseBelow(size_t i) const
    {
        for (size_t j = 0; j < i; ++j)
            if (!Fingers_PairOK(static_cast<int32_t>(j) + 1, f.aFinger[j], static_cast<int32_t>(i) + 1, f.aFinger[i]))
                return false;
        return true;
    }

    void Hold(size_t i, int32_t lMask, int32_t lFret)
    {
        f.aFinger[i] = {static_cast<uint8_t>(lMask), static_cast<uint8_t>(lFret)};
        for (; lMask; lMask &= lMask - 1)
            f.aString[static_cast<size_t>(std::countr_zero(static_cast<uint32_t>(lMask)))].bFinger =
                static_cast<uint8_t>(i + 1);
    }

    void Lift(size_t i)
    {
        for (int32_t lMask = f.aFinger[i].bMask; lMask; lMask &= lMask - 1)
            f.aString[static_cast<size_t>(std::countr_zero(static_cast<uint32_t>(lMask)))].bFinger = 0;
        f.aFinger[i] = {};
    }

    void Add()
    {
        aFound.push_back(f);
        aFound.back().lCost = Fingers_OwnCost(f);
    }

    std::vector<Fingers>& aFound;
    Fingers f;
    int32_t lStopped = 0;
};

void ChooseStrings(Fingers& f, std::span<int32_t const> aPitches, std::vector<Fingers>& aFound)
{
    if (aPitches.empty())
    {
        Laying(f, aFound).Lay();
        return;
    }
    for (int32_t s = 0; s < Tab_UsedStrings(); ++s)
    {
        auto const inx = static_cast<size_t>(s);
        int64_t const lFret = int64_t{aPitches[0]} - aOpenPitch[inx];
        if (f.aString[inx].bFret != bNoFret || lFret < 0)
            continue;
        f.aString[inx].bFret = static_cast<uint8_t>(lFret);
        if (Fingers_StretchOK(f))
            ChooseStrings(f, aPitches.subspan(1), aFound);
        f.aString[inx].bFret = bNoFret;
    }
}
} // namespace

std::vector<Fingers> PrimeFingerings(std::span<int32_t const> aPitches)
{
    std::vector<Fingers> aFound;
    constexpr int32_t lMaskedStrings = 8; // a ninth string has no bit in a finger's mask: no hand ever covers it
    if (!aPitches.empty() && Tab_UsedStrings() <= lMaskedStrings)
    {
        Fingers f;
        ChooseStrings(f, aPitches.first(std::min(aPitches.size(), cMostPitches)), aFound);
    }
    return aFound;
}
} // namespace zarn

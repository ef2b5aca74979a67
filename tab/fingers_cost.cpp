// The prices, term by term. Small weights vanish, since every product is divided by itself.
#include "tab/fingers_cost.h"

#include "core/text.h"
#include "tab/weights.h"

#include <cstdlib>

namespace zarn
{
namespace
{
constexpr int32_t lTenths = 10; ///< weights that are scaled count in tenths

/// What fingers in use cost, by the set of them, finger 1 at bit 0.
constexpr int32_t aFingerUseCost[1 << lFingers] = {0, 10, 11, 24, 12, 25, 26, 44, 15, 28, 29, 47, 30, 48, 50, 66};

int64_t BarCost(int32_t lMask) { return lMask < lPricedMasks ? aBarCost[static_cast<size_t>(lMask)] : 0; }

/// What one finger does between two chords.
int32_t FingerChange(FingersFinger a, FingersFinger b)
{
    int32_t const lWidthA = BarWidth(a.bMask);
    int32_t const lWidthB = BarWidth(b.bMask);
    if (a.bMask == b.bMask)
    {
        if (a.bMask == 0 || a.bFret == b.bFret)
            return 0;
        return lWidthA > 1 ? lMoveBarlock : lMoveFinger;
    }
    if (lWidthA == 0)
        return lWidthB > 1 ? lAddBarlock : lAddFinger;
    if (lWidthB == 0)
        return lWidthA > 1 ? lRemoveBarlock : lRemoveFinger;
    return lWidthA > 1 || lWidthB > 1 ? lMoveBarlock : lMoveFinger;
}

/// The hand's position before b: a's, or the one found at most three records before it; and over how many steps.
int32_t HandBefore(Fingers const& a, int32_t& lSteps)
{
    constexpr int32_t lTooFar = 4;
    lSteps = 1;
    int32_t lPosition = Fingers_HandPosition(a);
    for (pf p = a.pfPrev; lPosition == lNoHand && p; p = p->pfPrev)
    {
        lPosition = Fingers_HandPosition(*p);
        if (lPosition == lNoHand && ++lSteps == lTooFar)
            break;
    }
    return lPosition;
}
} // namespace

int32_t Fingers_OwnCost(Fingers const& f)
{
    int64_t lSum = 0;
    bool bBare = true;
    size_t set = 0;
    for (size_t i = 0; i < f.aFinger.size(); ++i)
    {
        if (f.aFinger[i].bMask == 0)
            continue;
        lSum += BarCost(f.aFinger[i].bMask) * lHoldBarlock / lTenths;
        bBare = false;
        set |= size_t{1} << i;
    }
    if (lAvoidOpenStrings != 0)
        for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
            if (f.aString[static_cast<size_t>(i)].bFret == 0)
            {
                lSum += lAvoidOpenStrings;
                bBare = false;
            }
    int64_t lCost = bBare ? -1 : lSum + int64_t{aFingerUseCost[set]} * lFingersInUse;
    if (Fingers_IsUnnatural(f))
        lCost += lUnnaturalFingerings;
    return Clamp32(lCost);
}

int32_t Fingers_Transition(Fingers const& a, Fingers const& b)
{
    int64_t lTotal = a.lCost;
    for (size_t i = 0; i < a.aFinger.size(); ++i)
        lTotal += int64_t{FingerChange(a.aFinger[i], b.aFinger[i])} * lFingerMovement / lTenths;

    int32_t lSteps = 1;
    int32_t const lPosA = HandBefore(a, lSteps);
    int32_t const lPosB = Fingers_HandPosition(b);
    int32_t const lMove = lPosA == lNoHand || lPosB == lNoHand ? 0 : std::abs(lPosB - lPosA) / lSteps;

    if (Fingers_Sounded(a) == 1 && Fingers_Sounded(b) == 1)
    {
        bool const bRose = Fingers_TopPitch(a) < Fingers_TopPitch(b);
        bool const bTrebleward = Fingers_TopString(b) < Fingers_TopString(a);
        if (bRose != bTrebleward)
            lTotal += lUnnaturalTransitions;
    }
    if (lPosB > 0)
        lTotal += int64_t{lWristPosition} * lPosB / lTenths;
    lTotal += int64_t{lMove} * lWristMovement / lTenths;
    return Clamp32(lTotal + b.lCost);
}
} // namespace zarn

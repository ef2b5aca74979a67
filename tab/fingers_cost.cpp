// The prices, term by term. Small weights vanish, since every product is divided by itself.
#include "tab/fingers_cost.h"

#include "core/text.h"
#include "tab/weights.h"

#include <algorithm>
#include <cstdlib>

namespace zarn
{
namespace
{
/// What fingers in use cost, by the set of them, finger 1 at bit 0.
constexpr int32_t aFingerUseCost[1 << lFingers] = {0, 10, 11, 24, 12, 25, 26, 44, 15, 28, 29, 47, 30, 48, 50, 66};

/// The hand lies between finger 4 at the first fret and finger 1 at the highest one.
constexpr int32_t lFurthestMove = (lHighestFret - 1 + lFingers - 1) * lPositionsToFret;

int64_t BarCost(int32_t lMask) { return lMask < lPricedMasks ? aBarCost[static_cast<size_t>(lMask)] : 0; }
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

FingerUse Finger_Use(FingersFinger finger)
{
    int32_t const lWidth = aBarWidth[finger.bMask];
    return lWidth == 0 ? IDLE : lWidth == 1 ? ON_ONE_STRING : BARRING;
}

MelodyNote Fingers_MelodyNote(Fingers const& f)
{
    return Fingers_Sounded(f) == 1 ? MelodyNote{Fingers_TopPitch(f), Fingers_TopString(f)} : MelodyNote{};
}

StepPrices::StepPrices() : lWristMoved(lWristMovement)
{
    int32_t const aaWeight[lFingerUses][lFingerUses] = {{0, lAddFinger, lAddBarlock},
                                                        {lRemoveFinger, lMoveFinger, lMoveBarlock},
                                                        {lRemoveBarlock, lMoveBarlock, lMoveBarlock}};
    int64_t lFurthestChange = 0;
    int64_t lLeastChange = 0;
    for (size_t before = 0; before < lFingerUses; ++before)
        for (size_t after = 0; after < lFingerUses; ++after)
        {
            aaChange[before][after] = int64_t{aaWeight[before][after]} * lFingerMovement / lTenths;
            lFurthestChange = std::max(lFurthestChange, std::abs(aaChange[before][after]));
            lLeastChange = std::min(lLeastChange, aaChange[before][after]);
        }
    int64_t const lFurthestMoved = Move(lFurthestMove, 1);
    int64_t const lDirection = lUnnaturalTransitions;
    lFurthest = lFingers * lFurthestChange + std::abs(lFurthestMoved) + std::abs(lDirection);
    lLeast = lFingers * lLeastChange + std::min<int64_t>(lFurthestMoved, 0) + std::min<int64_t>(lDirection, 0);
}

int64_t StepPrices::Direction(MelodyNote before, MelodyNote after) const
{
    if (before.inxString < 0 || after.inxString < 0)
        return 0;
    bool const bRose = before.lPitch < after.lPitch;
    bool const bTrebleward = after.inxString < before.inxString;
    return bRose != bTrebleward ? lUnnaturalTransitions : 0;
}

int64_t StepPrices::Position(int32_t lPosition) const
{
    return lPosition > 0 ? int64_t{lWristPosition} * lPosition / lTenths : 0;
}
} // namespace zarn

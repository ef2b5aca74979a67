// The price of a step, asked anew for every pair of records.
#include "core/text.h"
#include "tab/plain_search.h"
#include "tab/weights.h"

#include <cstdlib>

namespace zarn::test
{
int32_t Fingers_SoundedMask(Fingers const& f)
{
    int32_t lMask = 0;
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
        if (f.aString[static_cast<size_t>(i)].bFret != bNoFret)
            lMask |= 1 << i;
    return lMask;
}

int32_t Fingers_HandPosition(Fingers const& f)
{
    int32_t c = 0;
    int32_t lSum = 0;
    for (int32_t i = 0; i < lFingers; ++i)
    {
        uint8_t const bFret = f.aFinger[static_cast<size_t>(i)].bFret;
        if (bFret == bNoFret)
            continue;
        ++c;
        lSum += bFret - i;
    }
    return c == 0 ? lNoHand : lSum * (lPositionsToFret / c);
}

static int32_t FingerPrice(FingersFinger a, FingersFinger b)
{
    int32_t const lWidthA = aBarWidth[a.bMask];
    int32_t const lWidthB = aBarWidth[b.bMask];
    if (a.bMask != b.bMask)
    {
        if (lWidthA > 1 && lWidthB > 1)
            return lMoveBarlock;
        if ((lWidthA > 1 && lWidthB > 0) || (lWidthB > 1 && lWidthA > 0))
            return lMoveBarlock;
        if (lWidthB > 1)
            return lAddBarlock;
        if (lWidthA > 1)
            return lRemoveBarlock;
        if (lWidthA == 1 && lWidthB == 1)
            return lMoveFinger;
        return lWidthB == 1 ? lAddFinger : lRemoveFinger;
    }
    if (a.bMask != 0 && a.bFret != b.bFret)
        return lWidthA > 1 ? lMoveBarlock : lMoveFinger;
    return 0;
}

int32_t Fingers_Transition(PlainFingers const& a, PlainFingers const& b, bool bArpeggio)
{
    int32_t lPosA = Fingers_HandPosition(a);
    int32_t const lPosB = Fingers_HandPosition(b);
    int32_t lSteps = 1;
    int64_t lTotal = a.lCost;
    for (size_t i = 0; i < a.aFinger.size(); ++i)
        lTotal += int64_t{FingerPrice(a.aFinger[i], b.aFinger[i])} * lFingerMovement / 10;
    if (lPosA == -100)
        for (pf p = a.pfPrev; p; p = p->pfPrev)
        {
            lPosA = Fingers_HandPosition(*p);
            if (lPosA != -100)
                break;
            ++lSteps;
            if (lSteps == 4)
                break;
        }
    int32_t lMove = 0;
    if (lPosA != -100 && lPosB != -100)
        lMove = std::abs(lPosB - lPosA) / lSteps;
    if (Fingers_Sounded(a) == 1 && Fingers_Sounded(b) == 1)
    {
        bool const bRose = Fingers_TopPitch(a) < Fingers_TopPitch(b);
        bool const bTrebleward = Fingers_TopString(b) < Fingers_TopString(a);
        if (bRose != bTrebleward)
            lTotal += lUnnaturalTransitions;
    }
    if (bArpeggio)
        lTotal += Fingers_ArpeggioCost(a, b);
    if (lPosB > 0)
        lTotal += int64_t{lWristPosition} * lPosB / 10;
    lTotal += int64_t{lMove} * lWristMovement / 10;
    return Clamp32(lTotal + b.lCost);
}

int32_t Fingers_ShapeCost(Fingers const& a, Fingers const& b)
{
    Fingers both;
    for (size_t i = 0; i < both.aFinger.size(); ++i)
        both.aFinger[i] = b.aFinger[i].bMask != 0 ? b.aFinger[i] : a.aFinger[i];
    return Fingers_AllPairsOK(both) ? 0 : lImpossible;
}

int32_t Fingers_ArpeggioCost(Fingers const& a, Fingers const& b)
{
    int32_t const lSoundsA = Fingers_SoundedMask(a);
    int32_t const lSoundsB = Fingers_SoundedMask(b);
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
    {
        uint8_t const bFretA = a.aString[static_cast<size_t>(i)].bFret;
        uint8_t const bFretB = b.aString[static_cast<size_t>(i)].bFret;
        if (bFretB == bNoFret)
            continue;
        if (bFretA != bNoFret && bFretA != bFretB)
            return lImpossible;
        for (FingersFinger const& finger : a.aFinger)
            if ((finger.bMask >> i & 1) && finger.bFret > bFretB && (finger.bMask & lSoundsA))
                return lImpossible;
    }
    for (size_t i = 0; i < b.aFinger.size(); ++i)
    {
        FingersFinger const fingerB = b.aFinger[i];
        if ((fingerB.bMask & lSoundsB) == 0)
            continue;
        if ((a.aFinger[i].bMask & lSoundsA) && a.aFinger[i] != fingerB)
            return lImpossible;
        for (size_t j = 0; j < a.aFinger.size(); ++j)
            if (j != i && a.aFinger[j].bFret == fingerB.bFret && (a.aFinger[j].bMask & fingerB.bMask))
                return lImpossible;
    }
    return Fingers_ShapeCost(a, b);
}
} // namespace zarn::test

// What a hand can do, asked of one way of playing one chord.
#include "tab/fingers.h"

#include "platform/memory.h"
#include "platform/types.h"

#include <algorithm>

namespace zarn
{
namespace
{
constexpr int32_t lFullStretch = 175; ///< the lMaxStretch that the tables are made for

/// The limit between two fingers on one string each, by lower and higher finger from 1.
constexpr int32_t aFingerSpan[lFingers + 1][lFingers + 1] = {
    {}, {0, 0, 97, 150, 175}, {0, 0, 0, 61, 95}, {0, 0, 0, 0, 97}, {}};

constexpr int32_t lBarRows = 6;
/// The limit from a bar to a higher finger, by the bar's width from 1. The row behind these is the tuning itself.
constexpr int32_t aBarSpan[lBarRows][lFingers + 1] = {
    {}, {0, 0, 97, 127, 175}, {0, 0, 82, 112, 174}, {0, 0, 72, 106, 160}, {0, 0, 61, 95, 150}, {0, 0, 58, 89, 146}};

int32_t FretPos(int32_t lFret) { return aFretPos[static_cast<size_t>(std::min(lFret, lFrets))]; }

/// The limit from a bar of a mask to a higher finger. A bar of all six strings reaches beyond the table into the open
/// strings, string 2 and on, so that its limit goes with the tuning; so does every bar that holds a seventh string.
int32_t BarLimit(int32_t lMask, int32_t lHigherFinger)
{
    int32_t const lWidth = aBarWidth[static_cast<size_t>(lMask)];
    if (lMask >= lPricedMasks || lWidth >= lBarRows)
        return aOpenPitch[static_cast<size_t>(lHigherFinger - 1)];
    return aBarSpan[lWidth][lHigherFinger];
}
} // namespace

int32_t Fingers_Sounded(Fingers const& f)
{
    int32_t c = 0;
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
        c += f.aString[static_cast<size_t>(i)].bFret != bNoFret;
    return c;
}

int32_t Fingers_TopString(Fingers const& f)
{
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
        if (f.aString[static_cast<size_t>(i)].bFret != bNoFret)
            return i;
    DebugBreak();
    return -1;
}

int32_t Fingers_TopPitch(Fingers const& f)
{
    int32_t const i = Fingers_TopString(f);
    return i < 0 ? -1 : Tab_OpenPitch(i + 1, f.aString[static_cast<size_t>(i)].bFret);
}

bool Fingers_IsUnnatural(Fingers const& f)
{
    int32_t lHighest = 0;
    for (int32_t i = Tab_UsedStrings() - 1; i >= 0; --i)
    {
        uint8_t const bFret = f.aString[static_cast<size_t>(i)].bFret;
        if (bFret == bNoFret)
            continue;
        int32_t const lPitch = Tab_OpenPitch(i + 1, bFret);
        if (lPitch < lHighest)
            return true;
        lHighest = lPitch;
    }
    return false;
}

bool Fingers_StretchOK(Fingers const& f)
{
    int32_t lLowest = bNoFret;
    int32_t lHighest = 0;
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
    {
        uint8_t const bFret = f.aString[static_cast<size_t>(i)].bFret;
        if (bFret == bNoFret || bFret == 0)
            continue;
        if (bFret > lHighestFret)
            return false;
        lLowest = std::min<int32_t>(lLowest, bFret);
        lHighest = std::max<int32_t>(lHighest, bFret);
    }
    return lHighest == 0 || FretPos(lLowest) - FretPos(lHighest) <= lMaxStretch;
}

bool Fingers_PairOK(int32_t lFingerA, FingersFinger a, int32_t lFingerB, FingersFinger b)
{
    if (lFingerA > lFingerB)
    {
        std::swap(lFingerA, lFingerB);
        std::swap(a, b);
    }
    if (a.bFret == bNoFret || b.bFret == bNoFret)
        return true;
    if (b.bFret < a.bFret)
        return false;
    int32_t const lWidth = aBarWidth[a.bMask];
    if (lWidth == 1 && a.bFret == b.bFret && b.bMask > a.bMask)
        return false; // on one fret a higher finger can't lie nearer the bass
    int32_t const lDistance = FretPos(a.bFret) - FretPos(b.bFret);
    int32_t const lLimit = lWidth >= 2 ? BarLimit(a.bMask, lFingerB) : aFingerSpan[lFingerA][lFingerB];
    return MulDiv(lLimit, lMaxStretch, lFullStretch) >= lDistance;
}
} // namespace zarn

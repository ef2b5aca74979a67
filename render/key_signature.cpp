// Key signatures.
#include "render/key_signature.h"

#include "core/messages.h"
#include "core/score.h"
#include "render/accidental_glyphs.h"
#include "render/geometry.h"

#include <algorithm>
#include <cstdlib>

namespace zarn
{
namespace
{
constexpr int32_t lMostSigns = 7;
using Signs = int32_t[lMostSigns];

/// Diatonic positions in the order in which keys take them up. The tenor row is the alto's: a tenor key stands two rows
/// off its staff, as it always has.
constexpr Signs aSharpPitches[] = {
    {10, 7, 11, 8, 5, 9, 6}, {3, 0, 4, 1, -2, 2, -1}, {-4, -7, -3, -6, -9, -5, -8}, {3, 0, 4, 1, -2, 2, -1}};
constexpr Signs aFlatPitches[] = {
    {6, 9, 5, 8, 4, 7, 3}, {-1, 2, -2, 1, -3, 0, -4}, {-8, -5, -9, -6, -10, -7, -11}, {-1, 2, -2, 1, -3, 0, -4}};

/// In a cursor there is no old key; the naturals show what a key of few signs would take away.
int32_t OldKeyInCursor(int32_t lKey, int32_t lOldKey)
{
    return lKey == 0 ? 2 : lKey == 1 ? -1 : lKey == -1 ? 1 : lOldKey;
}

int32_t SignCount(int32_t lKey) { return static_cast<int32_t>(std::min<int64_t>(std::abs(int64_t{lKey}), lMostSigns)); }
} // namespace

int32_t DrawKeySigElement(HDC hdc, int32_t lStrX, int32_t lDiaPitch, int32_t lStaff, int32_t lSort, int32_t lClef)
{
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(lStrX, lDiaPitch, lStaff, lClef, &x, &y);
    switch (lSort)
    {
    case SHARP:
        return SharpGlyph(hdc, x, y);
    case FLAT:
        return FlatGlyph(hdc, x, y);
    case NATURAL:
        return NaturalGlyph(hdc, x, y);
    default:
        Serious("Invalid DrawKeySigElement sort");
        return 0;
    }
}

int32_t DrawKeySig(HDC hdc, int32_t lX, int32_t lY, int32_t lKey, int32_t lOldKey, int32_t lClef, bool bCursor)
{
    if (lClef < 1 || lClef > 4)
    {
        Serious("Duff Clef type found in DrawKeySig");
        return 0;
    }
    int32_t lCol = 0;
    int32_t lPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(lX, lY, &lCol, &lPitch, &lStaff, lClef);
    constexpr int32_t lScorePitchBase = 6;
    int32_t const lPitchBase = bCursor ? lPitch : lScorePitchBase;
    if (bCursor)
        lOldKey = OldKeyInCursor(lKey, lOldKey);

    int32_t const n = SignCount(lKey);
    int32_t const o = SignCount(lOldKey);
    bool const bOtherKind = (lOldKey > 0 && lKey < 1) || (lOldKey < 0 && lKey >= 0);
    int32_t const lSkip = bOtherKind ? 0 : n; // signs of the old key that the new one keeps
    int32_t r = 0;
    auto const Sign = [&](int32_t lAt, int32_t lSort)
    { r |= DrawKeySigElement(hdc, lCol, lAt - lScorePitchBase + lPitchBase, lStaff, lSort, lClef); };

    Signs const& aOld = (lOldKey > 0 ? aSharpPitches : aFlatPitches)[lClef - 1];
    for (int32_t i = lSkip; i < o; ++i, ++lCol)
        Sign(aOld[i], NATURAL);
    if (bShowLayout && lKey == 0 && lOldKey == 0)
        for (int32_t const lAt : {10, 6, 2}) // the invisible key of C, to be seen and clicked
            Sign(lAt, NATURAL);
    if (lSkip <= o)
        ++lCol; // the gap behind the naturals, also when there were none
    Signs const& aNew = (lKey > 0 ? aSharpPitches : aFlatPitches)[lClef - 1];
    for (int32_t i = 0; i < n; ++i, ++lCol)
        Sign(aNew[i], lKey > 0 ? SHARP : FLAT);
    return r;
}
} // namespace zarn

// Leger lines. A pitch out of a damaged file may lie thousands of lines away; only those on the page cost anything.
#include "render/legers.h"

#include "core/text.h"
#include "render/geometry.h"
#include "render/strokes.h"

#include <bit>

namespace zarn
{
/// Positions of the bottom line; the top line is eight steps higher. A clef that doesn't exist has both at 0.
static void StaffEdges(int32_t lClef, int32_t* plLow, int32_t* plHigh)
{
    static constexpr int32_t aLow[] = {2, -4, -10, -6};
    bool const bKnown = lClef >= 1 && lClef <= 4;
    *plLow = bKnown ? aLow[lClef - 1] : 0;
    *plHigh = bKnown ? *plLow + 8 : 0;
}

int32_t DrawLegers(HDC hdc, int32_t lX, int32_t lStrX, int32_t lStaff, int32_t lDiaPitch, int32_t lClef)
{
    int32_t lLow = 0;
    int32_t lHigh = 0;
    StaffEdges(lClef, &lLow, &lHigh);
    bool const bBelow = lDiaPitch < lLow - 1;
    if (!bBelow && lDiaPitch <= lHigh + 1)
        return 0;
    int32_t const lFirst = bBelow ? lLow - 2 : lHigh + 2;
    int32_t const lStep = bBelow ? -2 : 2;
    auto const PixelRow = [&](int64_t lLeger)
    {
        int32_t x = 0;
        int32_t y = 0;
        Draw_Fold(lStrX, Clamp32(lFirst + lStep * lLeger), lStaff, lClef, &x, &y);
        return y;
    };
    // Each leger lies further out than the one before, so those on the page stand in one run.
    auto const IsAhead = [&](int64_t lLeger)
    { return OffPage(PixelRow(lLeger)) && (PixelRow(lLeger) < lTopMarginPx) == bBelow; };
    // Under a clef that doesn't exist all fold to one place.
    int64_t const cLegers = lLow == lHigh ? 1 : (int64_t{lDiaPitch} - lFirst) / lStep + 1;
    int64_t lLeger = 0;
    for (int64_t lStride = std::bit_floor(static_cast<uint64_t>(cLegers)); lStride > 0; lStride /= 2)
        if (lLeger + lStride <= cLegers && IsAhead(lLeger + lStride - 1))
            lLeger += lStride;
    int32_t r = 0;
    for (; lLeger < cLegers && !OffPage(PixelRow(lLeger)); ++lLeger)
        r |= LegerLine(hdc, lX, PixelRow(lLeger));
    return r;
}
} // namespace zarn

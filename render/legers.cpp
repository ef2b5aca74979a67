// Leger lines. A pitch out of a damaged file may lie thousands of lines away; lines that stand off the page on the far
// side end the work.
#include "render/legers.h"

#include "render/geometry.h"
#include "render/strokes.h"

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
    int32_t const lStep = bBelow ? -2 : 2;
    int32_t r = 0;
    for (int32_t lPitch = bBelow ? lLow - 2 : lHigh + 2; bBelow ? lPitch >= lDiaPitch : lPitch <= lDiaPitch;
         lPitch += lStep)
    {
        int32_t x = 0;
        int32_t y = 0;
        Draw_Fold(lStrX, lPitch, lStaff, lClef, &x, &y);
        r |= LegerLine(hdc, lX, y);
        // From here on each line lies further off.
        bool const bGoneForGood = bBelow ? y > lPageHeight : y < 0;
        if (bGoneForGood && OffPage(y))
            break;
    }
    return r;
}
} // namespace zarn

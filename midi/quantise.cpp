// Quantising: a power of two times 1, 3 or 9 is a length that the notation writes.
#include "midi/quantise.h"

#include "core/text.h"

namespace zarn
{
int32_t Quantise(int32_t lTicks)
{
    static constexpr int32_t aLengths[] = {1,  2,  3,  4,  6,  8,  9,   12,  16,  18, 24,
                                           32, 36, 48, 64, 72, 96, 128, 144, 192, 288};
    int64_t const lNearest = (int64_t{lTicks} + lQuantum / 2) / lQuantum * lQuantum;
    if (lNearest <= 0)
    {
        if (pDebugLogSink) // formatting a line for nobody would cost more than the rest
            DebugLog(Format("Quantise0(%d) = 0\r\n", lTicks));
        return 0;
    }
    int64_t lOdd = lNearest;
    while (lOdd % 2 == 0)
        lOdd /= 2;
    if (lOdd == 1 || lOdd == 3 || lOdd == 9)
    {
        int32_t const lLength = Clamp32(lNearest);
        if (pDebugLogSink)
            DebugLog(Format("Quantise2(%d) = %d\r\n", lTicks, lLength));
        return lLength;
    }
    int32_t lLength = 0;
    for (int32_t const l : aLengths)
        if (l <= lNearest)
            lLength = l;
    return lLength;
}
} // namespace zarn

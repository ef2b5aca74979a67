// MulDiv: the one piece of arithmetic that the platform lends.
#include "platform/types.h"

#include <limits>

namespace zarn
{
int32_t MulDiv(int32_t lNumber, int32_t lNumerator, int32_t lDenominator)
{
    if (lDenominator == 0)
        return -1;
    int64_t lProduct = int64_t{lNumber} * lNumerator;
    int64_t lDivisor = lDenominator;
    if (lDivisor < 0)
    {
        lProduct = -lProduct;
        lDivisor = -lDivisor;
    }
    int64_t const lHalf = lDivisor / 2;
    int64_t const lResult = (lProduct < 0 ? lProduct - lHalf : lProduct + lHalf) / lDivisor;
    if (lResult < std::numeric_limits<int32_t>::min() || lResult > std::numeric_limits<int32_t>::max())
        return -1;
    return static_cast<int32_t>(lResult);
}
} // namespace zarn

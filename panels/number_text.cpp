// Reading a number that a user typed: whatever follows the digits is passed over.
#include "panels/number_text.h"

#include "core/text.h"

namespace zarn
{
int32_t AtoiLoose(std::string_view sText)
{
    bool const bSigned = !sText.empty() && (sText.front() == '-' || sText.front() == '+');
    bool const bNegative = bSigned && sText.front() == '-';
    if (bSigned)
        sText.remove_prefix(1);
    int64_t lValue = 0;
    for (char const c : sText)
    {
        if (c < '0' || c > '9')
            break;
        lValue = lValue * 10 + (c - '0');
        if (lValue > int64_t{INT32_MAX} + 1)
            break;
    }
    return Clamp32(bNegative ? -lValue : lValue);
}
} // namespace zarn

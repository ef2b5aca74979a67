// Ruling. The screen always has the following system ruled too, which covers that a line's first column counts to the
// line before it.
#include "render/ruling.h"

#include "core/text.h"
#include "render/bar_glyphs.h"
#include "render/geometry.h"
#include "render/ruled_lines.h"

#include <algorithm>

namespace zarn
{
void RuleSystem(HDC hdc, int32_t lSystem)
{
    for (int32_t lBand = 0; lBand < lStaffCount; ++lBand)
    {
        int64_t const lRow = int64_t{lBand} * lStaffHeight - lScroll + (int64_t{lSystem} - 1) * SystemHeight() +
                             lTopOffset + lLegersAbove;
        StaffLines(hdc, 0, Clamp32(lRow), lColsPerLine);
    }
}

static void RuleOnce(HDC hdc, int32_t lLine)
{
    if (lLine >= lFirstLineRuled && lLine <= lLastLineRuled)
        return;
    RuleSystem(hdc, lLine);
    bool const bNone = lLastLineRuled < lFirstLineRuled;
    lFirstLineRuled = bNone ? lLine : std::min(lFirstLineRuled, lLine);
    lLastLineRuled = bNone ? lLine : std::max(lLastLineRuled, lLine);
}

void RuleLine(HDC hdc, HWND, int32_t lStrX)
{
    int32_t const lLine = std::max(LineOfColumn(lStrX), 1);
    RuleOnce(hdc, lLine);
    if (!bPrinting)
        RuleOnce(hdc, lLine + 1);
}
} // namespace zarn

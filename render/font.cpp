// The score's font: bold, and sized by the grid's units once a scale is known.
#include "render/font.h"

#include "core/settings.h"
#include "core/text.h"
#include "render/geometry.h"

#include <utility>

namespace zarn
{
static HFONT hFont = nullptr;       ///< in use
static HFONT hScreenFont = nullptr; ///< put aside while pages are drawn
static HFONT hPrintFont = nullptr;  ///< of the last pages, kept until the next ones

bool Font_Make()
{
    constexpr int32_t lBoldWeight = 700;
    if (hFont)
        return true;
    if (lFontScale == -1)
        (void)LoadSetting(&lFontScale, "Font size scaling factor");
    // Without a scale both come out as next to nothing, and the platform takes its default size.
    hFont = CreateFontA(Clamp32(int64_t{yunit} * lFontScale * 4 / 100), Clamp32(int64_t{xunit} * lFontScale / 100),
                        lBoldWeight);
    return hFont != nullptr;
}

void Font_Select(HDC hdc)
{
    if (Font_Make())
        SelectObject(hdc, hFont);
}

void Font_Renew()
{
    DeleteObject(hFont);
    hFont = nullptr;
}

void Font_BeginPrint()
{
    DeleteObject(hPrintFont);
    hScreenFont = std::exchange(hFont, nullptr);
    Font_Make();
    hPrintFont = hFont;
}

void Font_EndPrint() { hFont = std::exchange(hScreenFont, nullptr); }

void Font_Free()
{
    Font_Renew();
    DeleteObject(hPrintFont);
    hPrintFont = nullptr;
}
} // namespace zarn

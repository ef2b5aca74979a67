// Text symbols. An empty one shows a placeholder, so that it can still be found and deleted.
#include "render/text_symbols.h"

#include "render/strokes.h"

#include <string_view>

namespace zarn
{
namespace
{
struct TextLook
{
    int32_t sort;
    std::string_view sSample;
    std::string_view sPlaceholder;
    bool bCentred; ///< on the page; in a cursor none is
};
constexpr TextLook aLooks[] = {{CHORD, "F#dim?", "chord??", true},
                               {LYRICS, "lyr", "lyr??", false},
                               {TITLE, "Ttl", "Title?", true},
                               {TEXT, "tx", "tx??", false},
                               {ANNOT, "an", "an??", false}};

bool HasVisibleCharacter(std::string_view sText) { return sText.find_last_not_of(" \t\r\b") != sText.npos; }
} // namespace

int32_t DrawTextSymbol(HDC hdc, Element const* pel, bool bCursor)
{
    for (TextLook const& look : aLooks)
    {
        if (look.sort != pel->sort)
            continue;
        std::string_view const sText = Element_Text(pel);
        std::string_view const sShown = bCursor && pel->lA == 0      ? look.sSample
                                        : HasVisibleCharacter(sText) ? sText
                                                                     : look.sPlaceholder;
        return DrawText(hdc, pel->lX, pel->lY, sShown, look.bCentred && !bCursor);
    }
    return 0;
}
} // namespace zarn

// The keyboard's picture and its keys.
#include "panels/piano.h"

#include "core/messages.h"
#include "edit/piano_add.h"
#include "layout/adjust.h"
#include "panels/panel_size.h"
#include "platform/memory.h"
#include "shell/command_numbers.h"

#include <algorithm>
#include <array>

namespace zarn
{
namespace
{
constexpr COLORREF colorWhite = 0xFFFFFF;
constexpr int32_t lPianoStaff = 1; ///< whatever staff is shown

/// The palette lies over the lower half of the piano.
void TakeSize(Panel& window)
{
    SIZE const size = window.ClientSize();
    lPanelWidth = size.cx;
    lPanelHeight = bPaletteShowing ? size.cy / 2 : size.cy;
}

/// True when a black key sits on the line to the left of white key i; there is none between E and F nor B and C.
bool HasBlackKey(int64_t i) { return i % 7 == 1 || i % 7 == 2 || (i % 7 >= 4 && i % 7 <= 6); }

int64_t LineX(int64_t lWidth, int64_t i) { return lWidth * i / cPianoKeys; }

int64_t HalfBlackWidth(int64_t lWidth) { return lWidth * 3 / cPianoKeys / 8; }

class PianoContent : public PanelContent
{
public:
    void Paint(Panel& panel, HDC hdc) override { Piano_Paint(panel, hdc); }
    [[nodiscard]] COLORREF Background() const override { return colorWhite; }
    [[nodiscard]] std::string TipAt(Panel& panel, POINT place) override;
};

std::string PianoContent::TipAt(Panel& panel, POINT place)
{
    static constexpr std::array<char const*, 7> aSteps = {"C", "D", "E", "F", "G", "A", "B"};
    TakeSize(panel);
    PianoKey const key = Piano_KeyAt({lPanelWidth, lPanelHeight}, place);
    int32_t const lKey = key.lDiaPitch + lMiddleCKey;
    std::string sTip = aSteps[static_cast<size_t>(lKey % 7)];
    if (key.bBlack)
        sTip += " sharp";
    return lKey == lMiddleCKey && !key.bBlack ? "Middle C" : sTip;
}
} // namespace

Panel* Piano_Create(HWND hwndParent)
{
    static PianoContent content;
    constexpr char const* szClass = "piano";
    if (!RegisterClassA(szClass, {.sName = "Piano keyboard",
                                  .pContent = &content,
                                  .click = EventKind::PIANO,
                                  .lCloseCommand = COMMAND_PIANOCLOSED,
                                  .pointer = PanelPointer::UPARROW}))
    {
        OutputDebugStringA("Piano didn't register\n");
        return nullptr;
    }
    Panel* const pPanel = CreatePanel(hwndParent, szClass);
    if (!pPanel)
        OutputDebugStringA("Piano creation failed\n");
    return pPanel;
}

void Piano_Paint(Panel& window, HDC hdc)
{
    TakeSize(window);
    int32_t const lFoot = window.ClientSize().cy; // the lines run on behind the palette
    HGDIOBJ const hpenBefore = SelectObject(hdc, GetStockObject(BLACK_PEN));
    HGDIOBJ const hbrBefore = SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    auto const lHalf = static_cast<int32_t>(HalfBlackWidth(lPanelWidth));
    for (int32_t i = 1; i < cPianoKeys; ++i)
    {
        auto const x = static_cast<int32_t>(LineX(lPanelWidth, i));
        MoveToEx(hdc, x, 0);
        LineTo(hdc, x, lFoot);
        if (HasBlackKey(i))
            Rectangle(hdc, x - lHalf, 0, x + lHalf, lPanelHeight / 2);
    }
    SelectObject(hdc, hbrBefore);
    SelectObject(hdc, hpenBefore);
}

PianoKey Piano_KeyAt(SIZE size, POINT place)
{
    if (size.cx <= 0)
        return {-lMiddleCKey, false};
    int64_t const w = size.cx;
    int64_t const x = std::clamp(place.x, 0, size.cx - 1);
    int64_t const lAlong = x * cPianoKeys;
    if (place.y <= size.cy / 2)
    {
        int64_t const i = (w / 2 + lAlong) / w; // the nearest line
        int64_t const lOff = x - LineX(w, i);
        if (HasBlackKey(i) && (lOff < 0 ? -lOff : lOff) < HalfBlackWidth(w))
            return {static_cast<int32_t>(i) - lMiddleCKey - 1, true};
    }
    return {static_cast<int32_t>(lAlong / w) - lMiddleCKey, false};
}

void Piano_Click(Panel& window, int32_t x, int32_t y)
{
    TakeSize(window);
    PianoKey const key = Piano_KeyAt({lPanelWidth, lPanelHeight}, {x, y});
    HDC const hdc = GetDC(hwndMain);
    Piano_AddNote(hdc, hwndMain, key.lDiaPitch, lPianoStaff, 0, key.bBlack ? 1 : 0);
    ReleaseDC(hwndMain, hdc);
    MiniAdjust();
    InvalidateRect(hwndMain);
}
} // namespace zarn

// The main window.
#include "shell/main_window.h"

#include "core/messages.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "render/draw_score.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/ruled_lines.h"
#include "shell/page_commands.h"

#include <algorithm>

namespace zarn
{
constexpr POINT pointerAtStart{20, 20};

void ScorePainter::Paint(HWND hwnd, HDC hdc)
{
    if (bPrinting || !hwndMain) // the units are the paper's, or the score has gone
        return;
    SIZE const size = hwnd->ClientSize();
    FillRect(hdc, {0, 0, size.cx, size.cy}, GetStockObject(WHITE_BRUSH));
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    Font_Select(hdc);
    DrawVisible(hdc, hwnd);
}

void MainWindow_Created()
{
    LoadPageSettings();
    SetCursorPos(hwndMain, pointerAtStart);
}

void MainWindow_Resized(SIZE size)
{
    SetWindowUnits({0, 0, size.cx, size.cy});
    RuledLines_Reset();
    ReGrid();
    Font_Renew();
    InvalidateRect(hwndMain);
}

void MainWindow_Scrolled(ScrollAction action, int32_t lPlace)
{
    switch (action)
    {
    case ScrollAction::LINEUP:
        ScrollLines(-1);
        break;
    case ScrollAction::LINEDOWN:
        ScrollLines(1);
        break;
    case ScrollAction::PAGEUP:
        ScrollPages(-1);
        break;
    case ScrollAction::PAGEDOWN:
        ScrollPages(1);
        break;
    case ScrollAction::THUMB:
        lScroll = std::max(lPlace, 0);
        break;
    }
    MiniAdjust();
    InvalidateRect(hwndMain);
}
} // namespace zarn

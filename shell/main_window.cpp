// The main window.
#include "shell/main_window.h"

#include "core/messages.h"
#include "core/text.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "render/draw_score.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/ruled_lines.h"
#include "render/symbol_cursor.h"
#include "shell/modes.h"
#include "shell/page_commands.h"
#include "shell/panels_shown.h"
#include "shell/play_marker.h"
#include "shell/watched_fingering.h"

#include <algorithm>

namespace zarn
{
constexpr POINT pointerAtStart{20, 20};

void ScorePainter::Paint(HWND hwnd, HDC hdc)
{
    // The units are the paper's, or the score has gone, or is being fingered.
    if (bPrinting || !hwndMain || bFingeringRuns)
        return;
    Serious_Rearm(); // a paint may tell of an error of its own
    if (fMouseMode)
    {
        MakeSymbolCursor(hwnd);
        ShowModePointer(hwnd);
    }
    SIZE const size = hwnd->ClientSize();
    FillRect(hdc, {0, 0, size.cx, size.cy}, GetStockObject(WHITE_BRUSH));
    PlayMarker_Paint(hdc);
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    Font_Select(hdc);
    DrawVisible(hdc, hwnd);
}

void MainWindow_Created()
{
    LoadPageSettings();
    ShowCursor(hwndMain, true); // the window has the keys
    SetCursorPos(hwndMain, pointerAtStart);
}

void MainWindow_Resized(SIZE size)
{
    SetWindowUnits({0, 0, size.cx, size.cy});
    RuledLines_Reset();
    ReGrid();
    Font_Renew();
    Panels_Place(size);
    InvalidateRect(hwndMain);
}

void ScrollBy(HWND hwnd, int32_t lDelta, bool fBySystem, bool fLeavePointer)
{
    int32_t const lBefore = lScroll;
    if (fBySystem)
        ScrollPages(lDelta);
    else
        ScrollLines(lDelta);
    int32_t const lChange = lScroll - lBefore;
    // The bar is told the change and not the place: it stands near its top however far down the view is. A thumb that
    // is dragged begins there, and users know it so.
    SetScrollPos(hwnd, lChange);
    MiniAdjust();
    InvalidateRect(hwnd);
    if (fLeavePointer)
        return;
    POINT place = GetCursorPos(hwnd);
    place.y = Clamp32(place.y - int64_t{lChange} * yunit);
    SetCursorPos(hwnd, fMouseMode ? place : SnapToGrid(place));
}

void MainWindow_Scrolled(ScrollAction action, int32_t lPlace)
{
    switch (action)
    {
    case ScrollAction::LINEUP:
        ScrollBy(hwndMain, -1, false, true);
        break;
    case ScrollAction::LINEDOWN:
        ScrollBy(hwndMain, 1, false, true);
        break;
    case ScrollAction::PAGEUP:
        ScrollBy(hwndMain, -1, true, true);
        break;
    case ScrollAction::PAGEDOWN:
        ScrollBy(hwndMain, 1, true, true);
        break;
    case ScrollAction::THUMB:
        lScroll = std::max(lPlace, 0);
        SetScrollPos(hwndMain, lScroll);
        MiniAdjust();
        InvalidateRect(hwndMain);
        break;
    case ScrollAction::STRETCH:
        StretchHorizCommand();
        break;
    case ScrollAction::SQUEEZE:
        SqueezeHorizCommand();
        break;
    }
}
} // namespace zarn

/// The main window: what paints it, and what its size and its scroll bar do.
#pragma once
#include "platform/event.h"
#include "platform/user.h"

namespace zarn
{
/// Draws the score on white.
class ScorePainter : public Painter
{
public:
    void Paint(HWND hwnd, HDC hdc) override;
};

/// The first actions of a new main window, in their order.
void MainWindow_Created();
/// The client area has become that large.
void MainWindow_Resized(SIZE size);
/// Scrolls by systems or by staff bands, with the pointer staying on its note unless it is to be left alone.
void ScrollBy(HWND hwnd, int32_t lDelta, bool fBySystem, bool fLeavePointer);
/// lPlace is for THUMB: rows from the top.
void MainWindow_Scrolled(ScrollAction action, int32_t lPlace);
} // namespace zarn

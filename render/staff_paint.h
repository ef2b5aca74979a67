/// A run of one staff, painted.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Where a walk along a staff stands: the element to come and the clef in force ahead of it.
struct StaffPlace
{
    Element* pel = nullptr;
    int32_t lClef = 1;

    /// Goes on to the next element.
    void Step()
    {
        if (pel->sort == CLEF)
            lClef = pel->lA;
        pel = Next(pel);
    }
    /// The clef that pel itself is drawn under.
    [[nodiscard]] int32_t ClefHere() const { return pel->sort == CLEF ? pel->lA : lClef; }
};

/// Paints from a place on what stands from lFromStrX up to lToStrX; the colours of the staff end with it. Gives where
/// it stopped: the first element at or beyond lToStrX, or the end.
StaffPlace PaintStaff(HDC hdc, HWND hwnd, StaffPlace place, int32_t lFromStrX, int32_t lToStrX);

/// True when something real is left from an element on: anything but NEWLINE and SPACE.
[[nodiscard]] bool IsAnythingLeft(Element const* pel);
} // namespace zarn

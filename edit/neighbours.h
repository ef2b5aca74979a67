/// Keeping the pointer's place across an edit: in proportion between the symbols on both sides of it.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Where a place stands between two elements, either of which may be null: hundredths of the way from A to B, or
/// columns from the one that is there. lDiaPitch and lStaff are the place's, in the treble frame.
struct BetweenPlace
{
    int32_t lPercent = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
};
[[nodiscard]] BetweenPlace FollowNeighbours(POINT place, Element const* pelA, Element const* pelB);
/// The way back, in device pixels; with neither element, the place is left as handed in.
[[nodiscard]] POINT ToPositionBetween(Element const* pelA, Element const* pelB, BetweenPlace const& between,
                                      POINT place);

/// Deletes the nearest element; gives where the pointer then belongs, in device pixels. hdc may be null.
[[nodiscard]] POINT DeleteAtMouse(HDC hdc, HWND hwnd, POINT place);
} // namespace zarn

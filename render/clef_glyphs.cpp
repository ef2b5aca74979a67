// Clefs: paths of the glyph pen, in half columns and half rows.
#include "render/clef_glyphs.h"

#include "core/messages.h"
#include "render/geometry.h"
#include "render/note_glyphs.h"
#include "render/strokes.h"

#include <span>

namespace zarn
{
static void Path(HDC hdc, std::span<POINT const> steps)
{
    for (POINT const step : steps)
        PenStep(hdc, step.x, step.y, lThickStroke);
}

static void TrebleClef(HDC hdc, int32_t x, int32_t y)
{
    static constexpr POINT aSteps[] = {{0, -3}, {2, -2},  {2, 0},  {2, 3},   {0, 4},  {-3, 4}, {-3, 0}, {-3, -4},
                                       {0, -6}, {8, -10}, {0, -8}, {-1, -1}, {-1, 0}, {-1, 1}, {0, 35}};
    ptPen = {x, y};
    MoveToEx(hdc, x, y);
    Path(hdc, aSteps);
    NoteHead(hdc, ptPen.x - lBlobX / 2, ptPen.y, true); // the curl at the foot
}

static void AltoClef(HDC hdc, int32_t x, int32_t y)
{
    static constexpr POINT aSteps[] = {{2, 0}, {2, -2}, {0, -2}, {-2, -2}, {-2, 0}, {0, -4},
                                       {2, 0}, {2, -2}, {0, -2}, {-2, -2}, {-2, 0}};
    ptPen = {x + lBlobX / 2, y};
    MoveToEx(hdc, x, y);
    LineTo(hdc, x, y - 8 * yunit);
    MoveToEx(hdc, ptPen.x, ptPen.y);
    Path(hdc, aSteps);
}

static void BassClef(HDC hdc, int32_t x, int32_t y)
{
    static constexpr POINT aSteps[] = {{-1, 0}, {-1, -2}, {0, -2}, {1, -2}, {2, 0},
                                       {2, 2},  {1, 3},   {0, 3},  {-1, 3}, {-2, 3}};
    NoteHead(hdc, x, y + lBlobY / 2, true);
    ptPen = {x - lBlobX / 2, y + lBlobY};
    Path(hdc, aSteps);
    Dot(hdc, x + 2 * xunit, y - yunit);
    Dot(hdc, x + 2 * xunit, y + yunit);
}

int32_t DrawClef(HDC hdc, int32_t x, int32_t y, int32_t lClef)
{
    if (lClef < 1 || lClef > 4)
    {
        Serious("Duff clef type in DrawSymbol");
        return 0;
    }
    if (OffPage(y))
        return 0;
    if (lClef == 1)
        TrebleClef(hdc, x, y);
    else if (lClef == 3)
        BassClef(hdc, x, y);
    else
        AltoClef(hdc, x, y);
    return 1;
}
} // namespace zarn

// Rests: a block that hangs or sits, a crotchet's zigzag, and hooks on a slanted line.
#include "render/rest_glyphs.h"

#include "render/geometry.h"
#include "render/note_glyphs.h"
#include "render/strokes.h"

#include <algorithm>

namespace zarn
{
/// The durations whose rest carries a 3.
static bool IsTupletRest(int32_t lDuration)
{
    static constexpr int32_t aTuplets[] = {256, 128, 64, 32, 16, 8, 4, 2};
    return std::find(std::begin(aTuplets), std::end(aTuplets), lDuration) != std::end(aTuplets);
}

static void RestBlock(HDC hdc, int32_t x, int32_t y, bool bSitting)
{
    if (bSitting)
        Rectangle(hdc, x, y, x + 2 * lBlobX, y - lBlobY * 3 / 4);
    else
        Rectangle(hdc, x, y + 1, x + 2 * lBlobX, y + 1 + lBlobY * 3 / 4);
}

static void CrotchetRest(HDC hdc, int32_t x, int32_t y)
{
    int32_t const a = (xunit + 1) / 2;
    int32_t const b = (yunit + 1) / 2;
    int32_t const y0 = y + 4 * yunit;
    MoveToEx(hdc, x, y0);
    Stroke(hdc, x, y0, x - a, y0 - b, lThickStroke);
    MoveToEx(hdc, x - a, y0 - b);
    LineTo(hdc, x - a, y0 - 2 * b);
    int32_t const y1 = y0 - 3 * b;
    LineTo(hdc, x, y1);
    LineTo(hdc, x + a, y1);
    int32_t const x3 = x + a - xunit;
    int32_t const y2 = y1 - yunit;
    Stroke(hdc, x3, y2, x + a, y1, lThickStroke);
    MoveToEx(hdc, x3, y2);
    LineTo(hdc, x3 + xunit, y2 - yunit);
    Stroke(hdc, x3, y2 - 2 * yunit, x3 + xunit, y2 - yunit, lThickStroke);
}

/// A hook whose foot lies at yFoot and whose tip is half a blob higher.
static void Hook(HDC hdc, int32_t x, int32_t yFoot, int32_t yTip)
{
    Stroke(hdc, x - lBlobX / 2, yFoot, x, yFoot, lThickStroke);
    Stroke(hdc, x, yFoot, x + lBlobX / 2, yTip, lThickStroke);
}

static void QuaverRest(HDC hdc, int32_t x, int32_t y)
{
    Hook(hdc, x, y + lBlobY / 2, y);
    MoveToEx(hdc, x + lBlobX / 2, y);
    LineTo(hdc, x, y + lStemLength);
}

static void SemiquaverRest(HDC hdc, int32_t x, int32_t y)
{
    Hook(hdc, x, y + lBlobY / 2, y);
    Hook(hdc, x, y - lBlobY / 2, y - lBlobY);
    MoveToEx(hdc, x + lBlobX / 2, y - lBlobY);
    LineTo(hdc, x + lBlobX / 2, y);
    LineTo(hdc, x, y + lStemLength);
}

static void DemisemiquaverRest(HDC hdc, int32_t x, int32_t y)
{
    Hook(hdc, x, y + lBlobY / 2, y);
    Hook(hdc, x, y - lBlobY / 2, y - lBlobY);
    Hook(hdc, x, y - lBlobY * 3 / 2, y - 2 * lBlobY);
    MoveToEx(hdc, x + lBlobX / 2, y - 2 * lBlobY);
    LineTo(hdc, x + lBlobX / 2, y);
    LineTo(hdc, x, y + lStemLength);
}

/// The shape for a plain duration; those below a demisemiquaver have none.
static int32_t RestShape(HDC hdc, int32_t x, int32_t y, int32_t d)
{
    if (d >= 97)
        RestBlock(hdc, x, y, false);
    else if (d >= 49)
        RestBlock(hdc, x, y, true);
    else if (d >= 25)
        CrotchetRest(hdc, x, y);
    else if (d >= 13)
        QuaverRest(hdc, x, y);
    else if (d >= 7)
        SemiquaverRest(hdc, x, y);
    else if (d >= 4)
        DemisemiquaverRest(hdc, x, y);
    else
        return 0;
    return 1;
}

int32_t DrawRest(HDC hdc, int32_t x, int32_t y, int32_t lDuration, bool bDotted)
{
    if (OffPage(y))
        return 0;
    auto const lPlain = static_cast<int32_t>(int64_t{lDuration} * 2 / 3);
    int32_t const d = bDotted ? lPlain : lDuration;
    int32_t r = RestShape(hdc, x, y, d);
    if (bDotted)
    {
        if (lPlain >= 96) // a block is wider than the other rests
            x += lBlobX * 3 / 2;
        r |= NoteDot(hdc, x, y);
    }
    if (IsTupletRest(d))
        r |= TripletMark(hdc, x, y - 9 * yunit);
    return r;
}
} // namespace zarn

// Heads, stems, flags and the marks of a note.
#include "render/note_glyphs.h"

#include "core/text.h"
#include "render/colours.h"
#include "render/geometry.h"
#include "render/strokes.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lStemPerCent = 15; ///< of a staff space

/// The durations whose note carries a 3. 512 stands here and 256 in the list of rests; neither occurs in music.
static bool IsTupletNote(int32_t lDuration)
{
    static constexpr int32_t aTuplets[] = {512, 128, 64, 32, 16, 8, 4, 2};
    return std::find(std::begin(aTuplets), std::end(aTuplets), lDuration) != std::end(aTuplets);
}

int32_t NoteHead(HDC hdc, int32_t x, int32_t y, bool bSolid)
{
    if (OffPage(y))
        return 0;
    int32_t const a = std::max((lBlobX + 1) / 2, 1);
    int32_t const b = std::max((lBlobY + 1) / 2, 1);
    if (bSolid)
    {
        Ellipse(hdc, x - a, y - b, x + a, y + b);
        return 1;
    }
    // An open head is a thick ring.
    HGDIOBJ const hbrBefore = SelectObject(hdc, GetStockObject(NULL_BRUSH));
    HGDIOBJ const hpenBefore = bDrawingCursor ? nullptr : SelectObject(hdc, WidePen());
    Ellipse(hdc, x - a, y - b, x + a, y + b);
    if (!bDrawingCursor)
        SelectObject(hdc, hpenBefore);
    SelectObject(hdc, hbrBefore);
    return 1;
}

/// A slash in place of a head.
static int32_t GraceHead(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    HairLine(hdc, x - lBlobX / 2, y + lBlobY / 2, x + lBlobX / 2, y - lBlobY / 2);
    return 1;
}

int32_t Stem(HDC hdc, int32_t x, int32_t y, bool bUp)
{
    if (OffPage(y))
        return 0;
    if (bUp)
        VLine(hdc, x + (lBlobX >> 1), y, y - lStemLength, lStemPerCent);
    else
        VLine(hdc, x - (lBlobX >> 1), y, y + lStemLength, lStemPerCent);
    return 1;
}

POINT StemEnd(int32_t x, int32_t y, bool bUp)
{
    int64_t const lSign = bUp ? 1 : -1;
    return {Clamp32(x + lSign * (lBlobX / 2)), Clamp32(y - lSign * lStemLength)};
}

int32_t NoteDot(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    Dot(hdc, x + lBlobX + lBlobX / 4, y - std::max(lBlobY / 3, 1));
    return 1;
}

static int32_t OrnamentMark(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    ptPen = {x, y};
    MoveToEx(hdc, x - lBlobX / 2, y);
    PenStep(hdc, 1, 1, 20);
    PenStep(hdc, 1, -1, 20);
    PenStep(hdc, 1, 1, 20);
    return 1;
}

static int32_t Staccato(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    Dot(hdc, x, y);
    return 1;
}

int32_t TripletMark(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    static constexpr POINT aSteps[] = {{2, 0}, {-2, 2}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}};
    ptPen = {x, y};
    for (POINT const step : aSteps)
        PenStep(hdc, step.x, step.y, 30);
    return 1;
}

/// The flag that begins lTowardsHead pixels nearer the head than the stem's end.
static int32_t Flag(HDC hdc, int32_t x, int32_t y, bool bUp, int32_t lTowardsHead, bool bGrace)
{
    POINT end = StemEnd(x, y, bUp);
    end.y += bUp ? lTowardsHead : -lTowardsHead;
    if (OffPage(y))
        return 0;
    int32_t const yTip = end.y + (bUp ? yunit : -yunit);
    if (bGrace)
        HairLine(hdc, end.x, end.y, end.x + xunit, yTip);
    else
        Stroke(hdc, end.x, end.y, end.x + xunit, yTip, lThickStroke);
    return 1;
}

int32_t DrawNote(HDC hdc, int32_t x, int32_t y, NoteLook const& look)
{
    auto const d = static_cast<int32_t>(look.bDotted ? int64_t{look.lDuration} * 2 / 3 : look.lDuration);
    bool const bGrace = look.lDuration < 2;
    bool const bFlags = look.lBeam == 0 && look.bFlagged;
    if (OffPage(y))
        return 0;
    int32_t r = bGrace ? GraceHead(hdc, x, y) : NoteHead(hdc, x, y, d < 49);
    if (d < 97 && look.lBeam != 3)
        r |= Stem(hdc, x, y, look.bUp);
    if (d < 25 && bFlags)
    {
        r |= Flag(hdc, x, y, look.bUp, 0, bGrace);
        if (d < 13 && !bGrace)
            r |= Flag(hdc, x, y, look.bUp, lBlobY, false);
        if (d < 7 && !bGrace)
            r |= Flag(hdc, x, y, look.bUp, 2 * lBlobY, false);
    }
    if (IsTupletNote(d) && bFlags)
    {
        POINT const end = StemEnd(x, y, look.bUp);
        r |= TripletMark(hdc, end.x - (look.bUp ? lBlobX : 0), look.bUp ? end.y - 5 * yunit : end.y + 5 * yunit);
    }
    if (look.bMarked)
    {
        if (look.bOrnament)
            r |= OrnamentMark(hdc, x, look.bUp ? y + 2 * yunit : y - 2 * yunit);
        if (look.bStaccato)
            r |= Staccato(hdc, x, look.bUp ? y + yunit * 9 / 4 : y - yunit * 9 / 4);
    }
    if (look.bDotted)
        r |= NoteDot(hdc, x, y);
    return r;
}
} // namespace zarn

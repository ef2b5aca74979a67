// Ties.
#include "render/ties.h"

#include "core/messages.h"
#include "core/score.h"
#include "render/geometry.h"
#include "render/reach.h"
#include "render/strokes.h"

namespace zarn
{
constexpr int32_t lTiePerCent = 40; ///< of a row

int32_t TieCurve(HDC hdc, POINT from, POINT to, bool bUnder)
{
    if ((OffPage(from.y) && OffPage(to.y)) || TooFar(from.x) || TooFar(to.x))
        return 0;
    int32_t const r = (bUnder ? 1 : -1) * yunit * lStaffSpace;
    int32_t const lBulge = r * 5 / 4;
    auto const Piece = [hdc](int32_t x1, int32_t y1, int32_t x2, int32_t y2)
    { Stroke(hdc, x1, y1, x2, y2, lTiePerCent); };
    if (from.y == to.y)
    {
        auto const xa = static_cast<int32_t>((int64_t{3} * from.x + to.x) / 4);
        auto const xb = static_cast<int32_t>((int64_t{3} * to.x + from.x) / 4);
        Piece(from.x, from.y + r / 2, xa, from.y + lBulge);
        Piece(xa, from.y + lBulge, xb, to.y + lBulge);
        Piece(xb, to.y + lBulge, to.x, to.y + r / 2);
        return 1;
    }
    constexpr int32_t lFirstNoteColumn = 8;
    int32_t xSecond = 0;
    int32_t yIgnored = 0;
    Draw_Fold(lFirstNoteColumn, 2, 1, 1, &xSecond, &yIgnored);
    if (!OffPage(from.y))
    {
        Piece(from.x, from.y + r / 2, from.x + lBlobX, from.y + lBulge);
        Piece(from.x + lBlobX, from.y + lBulge, lLeftMarginPx + lPageWidth, from.y + lBulge);
    }
    if (!OffPage(to.y))
    {
        Piece(xSecond, to.y + lBulge, to.x - lBlobX, to.y + lBulge);
        Piece(to.x - lBlobX, to.y + lBulge, to.x, to.y + r / 2);
    }
    return 1;
}

/// Sorts that no tie reaches over.
static bool EndsTie(int32_t sort)
{
    switch (sort)
    {
    case REST:
    case REPEATEND:
    case REPEATENDSTART:
    case INSTRUMENT:
    case TRANSPOSE:
    case SORT22:
    case MARKBEGIN:
    case MARKEND:
        return true;
    default:
        return false;
    }
}

static Element* LeftNote(Element* pel)
{
    int32_t lWalked = 0;
    for (pel = Prev(pel); pel && pel->sort != NOTE; pel = Prev(pel))
        if (EndsTie(pel->sort) || pel->sort == TIE || ++lWalked > lLongestReach)
            return nullptr;
    return ChordFirst(pel);
}

/// A tie looks forward less far than back.
static Element* RightNote(Element* pel)
{
    for (; pel && pel->sort != NOTE; pel = Next(pel))
        if (EndsTie(pel->sort) || pel->sort == TIE || pel->sort == NEWLINE || pel->sort == REPEATFIRST ||
            pel->sort == ARPEGSTART || pel->sort == ARPEGEND)
            return nullptr;
    return ChordFirst(pel);
}

int32_t DrawTies(HDC hdc, Element* pelTie)
{
    Element* pelLeft = LeftNote(pelTie);
    if (!pelLeft)
        return 0;
    Element* pelRight = RightNote(pelTie->sort == NOTE ? pelTie : Next(pelTie));
    int32_t r = 0;
    while (pelLeft && pelRight && pelLeft->sort == NOTE && pelRight->sort == NOTE)
    {
        int32_t const lLeft = pelLeft->lPitch;
        int32_t const lRight = pelRight->lPitch;
        if ((pelLeft->lA & fTiedOn) && lLeft == lRight)
            r |= TieCurve(hdc, {pelLeft->lX, pelLeft->lY}, {pelRight->lX, pelRight->lY}, pelLeft->up != 0);
        if (lRight >= lLeft)
            pelLeft = Next(pelLeft);
        if (lRight <= lLeft)
            pelRight = Next(pelRight);
    }
    return r;
}

Element* FindTieTo(Element* pel)
{
    Element* pelTo = pel;
    int32_t lWalked = 0;
    // The chord that pel stands in isn't looked at.
    while (pelTo && (pelTo->sort != NOTE || (pelTo->lA & fChordMore)) && ++lWalked <= lLongestReach)
        pelTo = Next(pelTo);
    for (pelTo = Next(pelTo); pelTo && ++lWalked <= lLongestReach; pelTo = Next(pelTo))
    {
        if (EndsTie(pelTo->sort) || pelTo->sort == REPEATFIRST || pelTo->sort < NOTE || pelTo->sort > lHighestSort)
            return nullptr;
        if (pelTo->sort == NOTE && pelTo->lPitch == pel->lPitch)
            return pelTo->lA & fTiedFrom ? pelTo : nullptr;
    }
    return nullptr;
}

void CheckTie(Element* pel, Element* pelTo)
{
    if (!pelTo)
    {
        Serious("Tell Odrian: NULL tie-to note!! Breaking tie...");
        pel->lA &= ~fTiedOn;
    }
    else if ((pelTo->lA & fTiedFrom) == 0)
    {
        Serious("Tell Odrian: tie-from without tie-to!!  Breaking tie...");
        pelTo->lA &= ~fTiedFrom;
    }
}
} // namespace zarn

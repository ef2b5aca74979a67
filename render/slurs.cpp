// Slurs: an arc under notes whose stems all point up, over any others.
#include "render/slurs.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "render/geometry.h"
#include "render/note_glyphs.h"
#include "render/reach.h"
#include "render/strokes.h"
#include "render/ties.h"

#include <algorithm>

namespace zarn
{
int32_t SlurCurve(HDC hdc, POINT from, POINT to, bool bUnder)
{
    if ((OffPage(from.y) && OffPage(to.y)) || TooFar(from.x) || TooFar(to.x))
        return 0;
    int32_t const lOff = bUnder ? lBlobY : -lBlobY;
    return TieCurve(hdc, {from.x - lBlobX / 2, Wrap_Add(from.y, lOff)}, {to.x + lBlobX / 2, Wrap_Add(to.y, lOff)},
                    bUnder);
}

namespace
{
/// What a slur's notes have in common.
struct Slurred
{
    Element const* pelLast = nullptr; ///< the last note
    bool bAllUp = true;
    bool bAnyUp = false;
    int32_t lMaxY = INT32_MIN;
    int32_t lMinY = INT32_MAX;
    int32_t lTopY = INT32_MAX; ///< of heads and stems

    void Add(Element const* pel)
    {
        bAllUp = bAllUp && pel->up;
        bAnyUp = bAnyUp || pel->up;
        lMaxY = std::max(lMaxY, pel->lY);
        lMinY = std::min(lMinY, pel->lY);
        int64_t const lStemY = int64_t{pel->lY} + (pel->up ? -lStemLength : lStemLength);
        lTopY = std::min({lTopY, pel->lY, Clamp32(lStemY)});
        pelLast = pel;
    }
};

/// Pixels from the system of one column to that of another.
int32_t DropBetween(int32_t lFromStrX, int32_t lToStrX)
{
    constexpr int32_t lMiddleOfStaff = 6;
    int32_t x = 0;
    int32_t yFrom = 0;
    int32_t yTo = 0;
    Draw_Fold(lFromStrX, lMiddleOfStaff, 1, 1, &x, &yFrom);
    Draw_Fold(lToStrX, lMiddleOfStaff, 1, 1, &x, &yTo);
    return Clamp32(int64_t{yTo} - yFrom);
}

int32_t SlurOverNothing(HDC hdc, Element const* pel, Element const* pelPartner)
{
    POINT const from{pel->lX, pel->lY};
    if (pelPartner->lStrX <= pel->lStrX)
        return SlurCurve(hdc, from, {from.x + xunit, from.y}, false);
    bool const bSameLine = LineStart(pel->lStrX) == LineStart(pelPartner->lStrX);
    int32_t const lDrop = bSameLine ? 0 : DropBetween(pel->lStrX, pelPartner->lStrX);
    return SlurCurve(hdc, from, {pelPartner->lX, Clamp32(int64_t{from.y} + lDrop)}, false);
}
} // namespace

int32_t DrawSlur(HDC hdc, Element* pel)
{
    if (pel->lA != 0)
        return 0;
    Element* const pelPartner = pel->pelPartner;
    if (!pelPartner)
    {
        Serious("Tell Odrian:  SLUR element1 with no partner.  (OK to continue)");
        return 0;
    }
    Slurred notes;
    int32_t lWalked = 0;
    for (Element const* pelAt = pel; pelAt != pelPartner; pelAt = Next(pelAt))
    {
        if (!pelAt || ++lWalked > lLongestReach)
        {
            Serious("Tell Odrian, NULL pel in DrawSlur");
            return 0;
        }
        if (pelAt->sort == NOTE)
            notes.Add(pelAt);
    }
    if (!notes.pelLast)
        return SlurOverNothing(hdc, pel, pelPartner);

    bool const bUnder = notes.bAllUp;
    int32_t const y = bUnder ? notes.lMaxY : notes.bAnyUp ? notes.lTopY : notes.lMinY;
    bool const bSameLine = LineStart(pel->lStrX) == LineStart(notes.pelLast->lStrX);
    int32_t const lDrop = bSameLine ? 0 : DropBetween(pel->lStrX, notes.pelLast->lStrX);
    int32_t const r = SlurCurve(hdc, {pel->lX, y}, {notes.pelLast->lX, Clamp32(int64_t{y} + lDrop)}, bUnder);
    pel->lY = pelPartner->lY = y;
    return r;
}
} // namespace zarn

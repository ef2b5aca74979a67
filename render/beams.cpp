// Beams. The slope is that of the two outer heads; the whole beam is lifted until it clears the inner ones, and not so
// far that it runs through a head.
#include "render/beams.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "render/beam_groups.h"
#include "render/geometry.h"
#include "render/note_glyphs.h"
#include "render/strokes.h"
#include "render/symbols.h"

namespace zarn
{
namespace
{
constexpr int32_t lStemPerCent = 15; ///< of a staff space

/// y of a line at x, the products in 64 bits.
int32_t LineAt(POINT from, POINT to, int32_t x)
{
    if (to.x == from.x)
        return from.y;
    return Clamp32((int64_t{x} - from.x) * (int64_t{to.y} - from.y) / (int64_t{to.x} - from.x) + from.y);
}

POINT Head(Element const* pel) { return {pel->lX, pel->lY}; }

POINT StemTip(Element const* pel, bool bUp) { return StemEnd(pel->lX, pel->lY, bUp); }

/// How near the other end of a beam may come to a head: the limit of its y.
int32_t BeamLimit(POINT head, POINT stem, int32_t xOther)
{
    int64_t const lHalfBlob = lBlobY / 2;
    if (xOther <= stem.x)
    {
        if (stem.y > head.y)
            return 9999999;
        if (stem.x == head.x)
            return 999999;
        return Clamp32((stem.y - lHalfBlob - head.y) * (int64_t{stem.x} - xOther) / ((int64_t{head.x} - stem.x) * 2) +
                       stem.y);
    }
    if (stem.y < head.y || stem.x == head.x)
        return -999999;
    return Clamp32((head.y - lHalfBlob - stem.y) * (int64_t{stem.x} - xOther) / ((int64_t{stem.x} - head.x) * 2) +
                   stem.y);
}

/// One beam line for each flag that the duration would have, and a 3 for a triplet.
void BeamLines(HDC hdc, POINT from, POINT to, int32_t lDuration, bool bUp)
{
    if (OffPage(from.y) || OffPage(to.y) || TooFar(from.x) || TooFar(to.x))
        return;
    if (lDuration == 0)
    {
        HairLine(hdc, from.x, from.y, to.x, to.y);
        return;
    }
    constexpr int32_t lBelowQuavers = 16;
    constexpr int32_t lBelowSemiquavers = 8;
    int32_t const cLines = lDuration < lBelowSemiquavers ? 3 : lDuration < lBelowQuavers ? 2 : 1;
    for (int32_t lLine = 0; lLine < cLines; ++lLine)
    {
        int32_t const lOff = bUp ? lLine * lBlobY : -lLine * lBlobY;
        Stroke(hdc, from.x, from.y + lOff, to.x, to.y + lOff, lThickStroke);
    }
    if (lDuration == 16 || lDuration == 8 || lDuration == 4)
        TripletMark(hdc, ((from.x + to.x) / 2 + to.x) / 2 - lBlobX,
                    (from.y + to.y) / 2 + (bUp ? -5 * yunit : 5 * yunit));
}

/// One beam set while it is drawn.
class BeamSet
{
public:
    BeamSet(HDC hdc, Element* pelStart, Element* pelEnd) : hdc(hdc), ps(pelStart), pe(pelEnd), bUp(pelStart->up != 0) {}

    void Draw()
    {
        lLift = Lift();
        lLongest = LongestInSet(ps);
        tipStart = StemTip(ps, bUp);
        tipEnd = StemTip(pe, pe->up != 0);
        Flatten();
        tipStart.y = Clamp32(int64_t{tipStart.y} + lLift);
        tipEnd.y = Clamp32(int64_t{tipEnd.y} + lLift);
        BeamLines(hdc, tipStart, tipEnd, lLongest, bUp);
        DrawNotes();
    }

private:
    /// How far the inner heads push the beam out.
    [[nodiscard]] int32_t Lift() const
    {
        int64_t lMost = 0;
        for (Element const* pel = ps; pel && pel != pe; pel = Next(pel))
        {
            if (pel->sort != NOTE)
                continue;
            int64_t const d = int64_t{pel->lY} - LineAt(Head(ps), Head(pe), pel->lX);
            if ((pel->up && d < lMost) || (!bUp && d > lMost))
                lMost = d;
        }
        return Clamp32(lMost);
    }

    /// Keeps the lifted beam off the outer heads.
    void Flatten()
    {
        auto const Lifted = [this](POINT tip) { return POINT{tip.x, Clamp32(int64_t{tip.y} + lLift)}; };
        if (bUp)
        {
            int64_t const lLimit = BeamLimit(Head(pe), Lifted(tipEnd), tipStart.x);
            if (int64_t{tipStart.y} + lLift > lLimit)
                lLift = Clamp32(lLimit - tipStart.y);
        }
        else
        {
            int64_t const lLimit = BeamLimit(Head(ps), Lifted(tipStart), tipEnd.x);
            if (int64_t{tipEnd.y} + lLift < lLimit)
                lLift = Clamp32(lLimit - tipEnd.y);
        }
    }

    void DrawNotes()
    {
        int32_t const lBaseLongest = BaseDuration(lLongest);
        int64_t lRun = 0;
        Element* pelPrev = nullptr; // where the extra beams of a shorter note point
        for (Element* pel = ps; pel; pel = Next(pel))
        {
            if (pel->sort != NOTE || pel->lDuration < 1)
                continue;
            StemToBeam(pel);
            if (BaseDuration(pel->lDuration) < lBaseLongest)
            {
                if (!pelPrev || lRun % lBaseLongest == 0)
                    pelPrev = PointForward(pel, pelPrev);
                if (!pelPrev)
                {
                    Serious("!DrawBeamSet BUG!!");
                    return;
                }
                ShortBeam(pel, pelPrev);
            }
            lRun += pel->lDuration;
            if (pel->beam == BEAM_LAST)
                return;
            pelPrev = pel;
        }
    }

    void StemToBeam(Element const* pel)
    {
        if (TooFar(pel->lX) || (OffPage(ps->lY) && OffPage(pel->lY) && OffPage(pe->lY)))
            return;
        POINT const tip = StemTip(pel, pel->up != 0);
        int64_t const lWidth = int64_t{tipEnd.x} - tipStart.x;
        int64_t const y =
            lWidth == 0
                ? tipStart.y
                : ((int64_t{tipEnd.x} - tip.x) * tipStart.y + (int64_t{tip.x} - tipStart.x) * tipEnd.y) / lWidth;
        VLine(hdc, tip.x, pel->lY, Clamp32(y), lStemPerCent);
    }

    /// The next note of the set with a stem of its own, for a short beam at the start of a beat.
    [[nodiscard]] Element* PointForward(Element* pel, Element* pelPrev) const
    {
        int32_t const xStem = StemTip(pel, bUp).x;
        Element* pelNext = NextBeamable(pel, true);
        if (pelNext && StemTip(pelNext, bUp).x == xStem)
            pelNext = NextBeamable(pelNext, true);
        bool const bInSet = pelNext && pelNext->beam != BEAM_NONE && pelNext->beam != BEAM_FIRST;
        return !pelPrev || bInSet ? pelNext : pelPrev;
    }

    void ShortBeam(Element const* pel, Element const* pelTowards)
    {
        int32_t const xStem = StemTip(pel, bUp).x;
        auto const xMiddle = static_cast<int32_t>((int64_t{StemTip(pelTowards, bUp).x} + xStem) / 2);
        BeamLines(hdc, {xStem, LineAt(tipStart, tipEnd, xStem)}, {xMiddle, LineAt(tipStart, tipEnd, xMiddle)},
                  pel->lDuration, bUp);
    }

    HDC hdc;
    Element* ps; ///< the stem-ward note of the first chord
    Element* pe; ///< and of the last
    bool bUp;
    int32_t lLift = 0;
    int32_t lLongest = 0;
    POINT tipStart; ///< the beam's ends
    POINT tipEnd;
};
} // namespace

void DrawBeamSet(HDC hdc, HWND hwnd, Element* pel)
{
    Element* const pelEnd = EndOfBeamSet(pel);
    if (!pelEnd || pelEnd->sort != NOTE)
        return; // a damaged set without an end: its first note has just lost its beam, or a sign stands for the end
    bool const bUp = pelEnd->up != 0;
    Element* const pe = bUp ? ChordLast(pelEnd) : ChordFirst(pelEnd);
    Element* const ps = bUp ? ChordLast(pel) : ChordFirst(pel);
    if (!ps)
        return;
    if (!pe)
    {
        DrawSymbol(hdc, hwnd, ps, ClefAt(ps), false);
        return;
    }
    BeamSet(hdc, ps, pe).Draw();
}
} // namespace zarn

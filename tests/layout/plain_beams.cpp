// The beams by their plain rules.
#include "layout/plain_layout.h"

#include "core/score.h"
#include "render/geometry.h"

#include <array>
#include <vector>

namespace zarn::test
{
static bool SameOdd(int32_t a, int32_t b)
{
    for (int32_t* const pl : {&a, &b})
        while (*pl != 0 && *pl % 2 == 0)
            *pl /= 2;
    return a == b || (a == 3 && b == 9) || (a == 9 && b == 3);
}

void PlainLayout::SetGroup(PlainStaff& staff, Pos first, Pos last)
{
    if (first == staff.end() || last == staff.end())
        return;
    for (Pos pos = first;; ++pos)
    {
        if (pos == last)
            return;
        if (Is(*pos, NOTE) && (Bits(*pos) == 0 || Bits(*pos) == 8))
            break;
    }
    if (Bits(*last) == 4 || Bits(*last) == 12)
        for (Pos pos = std::next(last); pos != staff.end(); ++pos)
        {
            if (!Is(*pos, NOTE) || pos->el.lDuration == 0 || Bits(*pos) == 0 || Bits(*pos) == 4)
                break;
            last = pos;
            if (Bits(*pos) == 8)
                break;
        }
    int32_t const lClef = InForce(staff, first, CLEF, 1);
    int32_t const lLow = lClef == 1 ? 1 : lClef == 2 ? -5 : lClef == 3 ? -11 : 0;
    int32_t const lHigh = lClef == 1 ? 11 : lClef == 2 ? 5 : lClef == 3 ? -1 : 0;
    int32_t lMin = INT32_MAX;
    int32_t lMax = INT32_MIN;
    int32_t lSum = 0;
    int32_t lN = 0;
    Pos const behind = std::next(last);
    for (Pos pos = first; pos != behind; ++pos)
    {
        if (!Is(*pos, NOTE) || pos->el.lDuration < 1)
            continue;
        lMin = std::min(lMin, pos->el.lDiaPitch);
        lMax = std::max(lMax, pos->el.lDiaPitch);
        lSum += pos->el.lDiaPitch;
        ++lN;
    }
    bool const bAbove = lMax > lHigh;
    bool const bBelow = lMin < lLow;
    bool bUp = false;
    if (bBelow && !bAbove)
        bUp = true;
    else if (bAbove && !bBelow)
        bUp = false;
    else if (bAbove)
        bUp = lMax - lHigh <= lLow - lMin;
    else
        bUp = (lLow + lHigh) * lN / 2 >= lSum;
    for (Pos pos = first; pos != behind; ++pos)
        if (Is(*pos, NOTE) && pos->el.lDuration > 0)
            pos->el.up = bUp;
    auto const SetChord = [&](Pos pos, int32_t lBeam)
    {
        while (!Is(*pos, NOTE) || (Bits(*pos) != 0 && Bits(*pos) != 4))
            --pos;
        for (;; ++pos)
        {
            if (!Is(*pos, NOTE))
                continue;
            pos->el.beam = lBeam;
            if (Bits(*pos) == 0 || Bits(*pos) == 8)
                return pos;
        }
    };
    for (Pos pos = std::next(SetChord(first, 1)); pos != last; ++pos)
        if (Is(*pos, NOTE) && pos->el.lDuration >= 1)
            SetChord(pos, 3);
    SetChord(last, 2);
}

void PlainLayout::Beam(PlainStaff& staff)
{
    for (PlainElement& p : staff)
        p.el.beam = 0;
    int32_t lMetre = 4;
    int32_t lCount = 0;
    int32_t lRepeatFirst = -1;
    bool bBarSeen = false;
    Pos first = staff.end();
    Pos last = staff.end();
    auto const Close = [&]
    {
        SetGroup(staff, first, last);
        first = last = staff.end();
    };
    for (Pos pos = staff.begin(); pos != staff.end(); ++pos)
    {
        Element const& el = pos->el;
        auto const Family = [&] { return SameOdd(first->el.lDuration, el.lDuration); };
        auto const Open = [&]
        {
            Close();
            first = pos;
        };
        switch (el.sort)
        {
        case TIMESIG:
            lMetre = 0;
            for (auto const& [lA, lB, l] : {std::array{2, 4, 2}, {2, 2, 4}, {3, 4, 3}, {4, 4, 4}, {6, 8, 6}, {9, 8, 9}})
                if (el.lA == lA && el.lB == lB)
                    lMetre = l;
            lCount = 0;
            Close();
            break;
        case BAR:
            bBarSeen = true;
            lCount = 0;
            Close();
            break;
        case REPEATSTART:
            if (lCount >= 1 && !bBarSeen)
            {
                bBarSeen = true;
                lCount = 0;
            }
            Close();
            break;
        case REPEATFIRST:
            lRepeatFirst = lCount;
            Close();
            break;
        case REPEATEND:
            if (lRepeatFirst != -1)
                lCount = lRepeatFirst;
            lRepeatFirst = -1;
            Close();
            break;
        case NOTE:
            if (!bBeamQuavers)
                break;
            if (BaseDuration(el.lDuration) > 24)
                Close();
            else if (el.lDuration == 0)
                break;
            else if (first == staff.end())
                first = pos;
            else if (lMetre % 3 == 0 && lMetre >= 4)
            {
                if (el.lA & 8)
                    last = pos;
                else if (lCount % 72 != 0 && Family())
                    last = pos;
                else
                    Open();
            }
            else
            {
                int32_t lShortest = first->el.lDuration;
                bool bTriplet = IsTriplet(lShortest);
                if (last != staff.end())
                {
                    lShortest = std::min(lShortest, last->el.lDuration);
                    bTriplet = bTriplet || IsTriplet(last->el.lDuration);
                }
                if (el.lA & 8)
                    last = pos;
                else if (lMetre == 4 && lCount % 96 == 0)
                    Open();
                else if (lMetre != 4 && lCount % 48 == 0)
                    Open();
                else if (bTriplet && lCount % (lShortest * 3) == 0)
                    Open();
                else if (Family())
                    last = pos;
                else
                    Open();
            }
            break;
        case SHARP:
        case FLAT:
        case NATURAL:
        case SPACE:
        case CHORD:
        case TEXT:
        case ANNOT:
        case LYRICS:
        case TIE:
        case SLUR:
        case INSTRUMENT:
        case VOLUME:
        case ABC:
        case TITLE:
            break;
        default:
            Close();
        }
        if (el.sort != NOTE || !(el.lA & 4))
            lCount += el.lDuration;
    }
    Close();
}

void PlainLayout::CheckBeams(PlainStaff& staff)
{
    auto const NextBeamable = [&](Pos pos)
    {
        for (++pos; pos != staff.end(); ++pos)
        {
            Element const& el = pos->el;
            if (el.sort == NOTE)
            {
                if (BaseDuration(el.lDuration) >= 48)
                    return staff.end();
                if (el.lDuration == 0)
                    continue;
                if (Bits(*pos) == 0 || !(el.lA & (el.up ? 4 : 8)))
                    return pos;
            }
            else if (IsBarLike(*pos) || el.sort == CLEF || el.sort == KEYSIG || el.sort == REST || el.sort == NEWLINE ||
                     el.sort == TIMESIG || el.sort == REPEATFIRST)
                return staff.end();
        }
        return staff.end();
    };
    for (Pos pos = staff.begin(); pos != staff.end(); ++pos)
    {
        if (pos->el.beam != 1)
            continue;
        std::vector<Pos> aSet{pos};
        Pos at = NextBeamable(pos);
        for (; at != staff.end(); at = NextBeamable(at))
        {
            aSet.push_back(at);
            if (at->el.beam == 2)
                break;
        }
        if (at != staff.end() && LineStart(at->el.lStrX) == LineStart(pos->el.lStrX))
            continue;
        for (Pos note : aSet)
        {
            while (!Is(*note, NOTE) || (Bits(*note) != 0 && Bits(*note) != 4))
                --note;
            for (; !Is(*note, NOTE) || (Bits(*note) != 0 && Bits(*note) != 8); ++note)
                if (Is(*note, NOTE))
                    note->el.beam = 0;
            note->el.beam = 0;
        }
    }
}
} // namespace zarn::test

// The bars by their plain rules.
#include "layout/plain_layout.h"

#include "core/score.h"
#include "render/geometry.h"

namespace zarn::test
{
void PlainLayout::RemoveBars(PlainStaff& staff)
{
    int64_t lCount = 0;
    int64_t lBarLength = 192;
    bool bBarDone = false;
    bool bFresh = true;
    int32_t lLastClef = 0;
    int32_t lLastKey = 0;
    for (Pos pos = staff.begin(); pos != staff.end();)
    {
        Pos const next = std::next(pos);
        Element& el = pos->el;
        el.fOverBar = 0;
        if (lCount >= lBarLength)
            bBarDone = true;
        bool bDelete = false;
        bool const bNext = next != staff.end();
        switch (el.sort)
        {
        case NOTE:
            bFresh = false;
            lCount += el.lA & 4 ? 0 : el.lDuration;
            break;
        case BAR:
            if (lCount > 0 && lCount < lBarLength && !bBarDone &&
                !(bNext && (Is(*next, DOUBLEBAR) || Is(*next, BAR) || Is(*next, REPEATSTART))))
            {
                bBarDone = true;
                bFresh = false;
            }
            else
                bDelete = true;
            break;
        case DOUBLEBAR:
            lCount = 0;
            bBarDone = bFresh = false;
            break;
        case CLEF:
            bDelete = el.lA == lLastClef;
            lLastClef = el.lA;
            bFresh = bFresh && bDelete;
            break;
        case KEYSIG:
            bDelete = el.lA == lLastKey;
            lLastKey = el.lA;
            bFresh = bFresh && bDelete;
            break;
        case REST:
            bFresh = false;
            lCount += el.lDuration;
            break;
        case NEWLINE:
            bDelete = bFresh;
            bFresh = true;
            break;
        case TIMESIG:
            if (el.lB != 0 && el.lA * 192 / el.lB > 0)
                lBarLength = el.lA * 192 / el.lB;
            bFresh = false;
            break;
        case SPACE:
            bDelete = true;
            break;
        case REPEATSTART:
            lCount = 0;
            bFresh = false;
            break;
        default:
            bFresh = false;
        }
        if (bDelete)
            staff.erase(pos);
        pos = next;
    }
}

static bool BarAhead(PlainStaff const& staff, Pos pos)
{
    for (++pos; pos != staff.end(); ++pos)
    {
        if (IsBarLike(*pos))
            return true;
        if (Is(*pos, NOTE) || Is(*pos, REST))
            return false;
    }
    return false;
}

void PlainLayout::InsertBars(PlainStaff& staff)
{
    int64_t lCount = 0;
    int64_t lBarLength = 192;
    int64_t lFirst = -1;
    bool bBarSeen = false;
    PlainElement bar;
    bar.el.sort = BAR;
    bar.el.lWidth = 3;
    for (Pos pos = staff.begin(); pos != staff.end(); ++pos)
    {
        Element& el = pos->el;
        switch (el.sort)
        {
        case BAR:
            if (lCount < lBarLength && !bBarSeen)
            {
                bBarSeen = true;
                lCount = 0;
            }
            break;
        case DOUBLEBAR:
            lCount = 0;
            bBarSeen = false;
            break;
        case CLEF:
            bar.el.lDiaPitch = el.lA == 1 ? 2 : el.lA == 3 ? -10 : el.lA == 2 || el.lA == 4 ? -4 : bar.el.lDiaPitch;
            break;
        case TIMESIG:
            if (el.lB != 0 && el.lA * 192 / el.lB > 0)
                lBarLength = el.lA * 192 / el.lB;
            break;
        case REPEATSTART:
            if (lCount > 0 && lCount < lBarLength && !bBarSeen)
                lCount = 0;
            break;
        case REPEATEND:
            if (lFirst != -1)
                lCount = lFirst;
            lFirst = -1;
            break;
        case REPEATFIRST:
            if (lFirst == -1)
                lFirst = lCount;
            break;
        default:
            if (el.sort != NOTE || !(el.lA & 4))
                lCount += el.lDuration;
            if (lCount < lBarLength)
                break;
            bBarSeen = true;
            if (!BarAhead(staff, pos))
            {
                if (lCount > lBarLength)
                    el.fOverBar |= 1;
                bar.el.lStaff = el.lStaff;
                pos = staff.insert(std::next(pos), bar);
            }
            lCount = 0;
        }
    }
}

void PlainLayout::RemoveRedundant(PlainStaff& staff)
{
    int32_t lClef = 1;
    int32_t lKey = 0;
    for (Pos pos = staff.begin(); pos != staff.end();)
    {
        pos->el.fOverBar &= ~1;
        int32_t* const pl = Is(*pos, CLEF) ? &lClef : Is(*pos, KEYSIG) ? &lKey : nullptr;
        if (pl && *pl == pos->el.lA)
        {
            pos = staff.erase(pos);
            continue;
        }
        if (pl)
            *pl = pos->el.lA;
        ++pos;
    }
}
} // namespace zarn::test

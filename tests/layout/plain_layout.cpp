// Written for being read beside the rules, not for speed.
#include "layout/plain_layout.h"

#include "core/pitch.h"
#include "core/text.h"
#include "layout/element_width.h"
#include "render/geometry.h"

#include <cstdlib>

namespace zarn::test
{
namespace
{
int32_t Width(PlainElement const& p)
{
    Element const& el = p.el;
    switch (el.sort)
    {
    case NOTE:
    {
        int32_t const lBase = BaseDuration(el.lDuration);
        int32_t const lWidth = lBase < 25 ? 2 : lBase < 49 ? 3 : lBase < 97 ? 4 : 5;
        if (IsDotted(el.lDuration))
            return lWidth + 2;
        return lWidth + ((el.beam == 0 || el.beam == 2) && el.up != 0);
    }
    case REST:
        return el.lDuration < 25 ? 2 : el.lDuration < 49 ? 3 : el.lDuration < 97 ? 4 : 5;
    case CHORD:
    case LYRICS:
    case TEXT:
        return p.lTextCols;
    case KEYSIG:
    {
        int32_t const lNew = std::abs(el.lA);
        int32_t const lOld = std::abs(el.lB);
        if ((el.lA > 0 && el.lB < 0) || (el.lA < 0 && el.lB > 0) || (el.lA == 0 && el.lB != 0))
            return lNew + lOld + 3;
        return lNew + 3 + (el.lB != 0 && lNew > lOld ? lNew - lOld : 0);
    }
    case NEWLINE:
        return (el.lStrX / lColsPerLine + 1) * lColsPerLine - el.lStrX;
    default:
        return Element_Width(&el); // a number that depends on the sort alone
    }
}

} // namespace

PlainLayout::PlainLayout()
{
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            aStaff[lStaff].push_back({*pel, Sort_BearsText(pel->sort) ? TextColumns(Element_Text(pel)) : 0});
}

void PlainLayout::AddClef(int32_t lStaff, Pos before, int32_t lClef)
{
    PlainElement p;
    p.el.sort = CLEF;
    p.el.lA = lClef;
    p.el.lStaff = lStaff;
    p.el.lWidth = 6;
    p.el.lDiaPitch = lClef == 1 ? 4 : -4;
    aStaff[lStaff].insert(before, p);
}

void PlainLayout::AddKey(int32_t lStaff, Pos before, int32_t lKey, int32_t lClef)
{
    PlainElement p;
    p.el.sort = KEYSIG;
    p.el.lA = lKey;
    p.el.lStaff = lStaff;
    p.el.lDiaPitch = lClef == 1 ? 6 : lClef == 2 ? 0 : lClef == 3 ? -6 : -2;
    p.el.lWidth = Width(p);
    aStaff[lStaff].insert(before, p);
}

Pos PlainLayout::NextAnchor(int32_t lStaff, Pos pos)
{
    PlainStaff& staff = aStaff[lStaff];
    auto const IsAnchor = [](PlainElement const& p)
    { return (Is(p, NOTE) && !(p.el.lA & 4)) || Is(p, REST) || IsBarLike(p) || Is(p, TIMESIG) || Is(p, NEWLINE); };
    int32_t lFloor = pos->el.lStrX;
    Pos lyric = staff.end();
    for (; pos != staff.end(); ++pos)
    {
        if (IsAnchor(*pos))
            return pos;
        if (!Is(*pos, LYRICS) && !Is(*pos, CHORD))
            continue;
        bool bLyricSeen = false;
        bool bChordSeen = false;
        for (Pos scan = pos; scan != staff.end(); ++scan)
        {
            Element& el = scan->el;
            if (el.sort == NOTE || el.sort == REST)
            {
                el.lStrX = std::max(el.lStrX, lFloor);
                if (el.sort == REST || !(el.lA & 4))
                    return scan;
            }
            else if (el.sort == LYRICS && !bLyricSeen)
            {
                bLyricSeen = true;
                lyric = pos = scan;
                lFloor = std::max(lFloor, el.lStrX);
            }
            else if (el.sort == CHORD && !bChordSeen)
            {
                bChordSeen = true;
                pos = scan;
                if (el.lStrX > lFloor)
                {
                    lFloor = el.lStrX;
                    if (lyric != staff.end())
                        lyric->el.lStrX = lFloor;
                }
            }
            else
                return pos;
        }
    }
    return staff.end();
}

void PlainLayout::TempPlace(int32_t lStaff, Pos from, Pos to)
{
    PlainStaff& staff = aStaff[lStaff];
    int32_t lNextX = from->el.lStrX + from->el.lWidth;
    int32_t lPrevTime = from->el.lTime;
    int32_t lNextTime = from->el.lTime + from->el.lDuration;
    int32_t lColumnWidth = 0;
    bool bLyricSeen = false;
    bool bChordSeen = false;
    for (Pos pos = std::next(from); pos != staff.end(); ++pos)
    {
        Element& el = pos->el;
        if (el.sort == NOTE && (el.lA & 8))
        {
            el.lTime = lPrevTime;
            lNextTime = std::min(lNextTime, lPrevTime + el.lDuration);
        }
        else
        {
            el.lTime = lPrevTime = lNextTime;
            lNextTime += el.lDuration;
        }
        if (el.lStrX < lNextX)
            el.lStrX = lNextX;
        bool const bWord = el.sort == LYRICS || el.sort == CHORD;
        if (bWord)
            for (Pos next = std::next(pos); next != staff.end(); ++next)
                if (next->el.sort == el.sort)
                {
                    next->el.lStrX = el.lStrX + Width(*pos);
                    break;
                }
        int32_t const lW = bWord ? 0 : Width(*pos);
        bool const bFirst = (el.sort == LYRICS && !bLyricSeen) || (el.sort == CHORD && !bChordSeen);
        if (el.sort == NOTE || bFirst)
            lColumnWidth = std::max(lColumnWidth, lW);
        else
            lColumnWidth = lW;
        if (el.sort == CLEF)
        {
            el.lStrX += 3;
            lNextX += 3;
        }
        if (bFirst)
        {
            bLyricSeen = bLyricSeen || el.sort == LYRICS;
            bChordSeen = bChordSeen || el.sort == CHORD;
        }
        else if (el.sort != NOTE || !(el.lA & 4))
        {
            if (el.sort == NOTE || bWord)
                bLyricSeen = bChordSeen = false;
            el.lWidth = lColumnWidth;
            lNextX += lColumnWidth;
            lColumnWidth = 0;
        }
        if (pos == to)
            return;
    }
}

void PlainLayout::Place()
{
    for (int32_t lst = 1; lst <= 8; ++lst)
    {
        PlainStaff& staff = aStaff[lst];
        aDone[lst] = aNext[lst] = aLastBar[lst] = staff.end();
        if (!IsVisible(lst) || staff.empty())
            continue;
        for (PlainElement& p : staff)
            p.el.lStrX = 0;
        if (!Is(staff.front(), CLEF))
            AddClef(lst, staff.begin(), 1);
        aDone[lst] = staff.begin();
        staff.front().el.lStrX = 3;
        staff.front().el.lTime = 0;
        staff.front().el.lWidth = 6;
        aNext[lst] = NextAnchor(lst, aDone[lst]);
        TempPlace(lst, aDone[lst], aNext[lst]);
        abFresh[lst] = true;
    }
    for (;;)
    {
        int32_t lMaster = 0;
        for (int32_t lst = 1; lst <= 8; ++lst)
        {
            if (aNext[lst] == aStaff[lst].end())
                continue;
            if (lMaster == 0)
            {
                lMaster = lst;
                continue;
            }
            Element const& el = aNext[lst]->el;
            Element const& elC = aNext[lMaster]->el;
            if (el.lTime < elC.lTime)
                lMaster = lst;
            else if (el.lTime == elC.lTime && el.sort == NEWLINE)
                lMaster = lst;
            else if (el.lTime == elC.lTime && elC.lStrX < el.lStrX)
                lMaster = lst;
        }
        if (lMaster == 0)
            return;
        PlaceOthers(lMaster);
    }
}

void PlainLayout::PlaceOthers(int32_t lMaster)
{
    Element const& elMaster = aNext[lMaster]->el;
    for (int32_t lst = 1; lst <= 8; ++lst)
    {
        PlainStaff& staff = aStaff[lst];
        Pos const pos = aNext[lst];
        if (pos == staff.end() || pos->el.lTime != elMaster.lTime)
            continue;
        if (pos->el.lStrX < elMaster.lStrX)
        {
            int32_t const lShift = elMaster.lStrX - pos->el.lStrX;
            Pos p = aDone[lst];
            do
            {
                ++p;
                p->el.lStrX += lShift;
            } while (p != pos);
        }
        if (bKeepBarsTogether && !abFresh[lst] && (IsBarLike(*pos) || std::next(pos) == staff.end()))
        {
            Pos const bar = aLastBar[lMaster];
            if (bar != aStaff[lMaster].end() && LineStart(bar->el.lStrX) != LineStart(elMaster.lStrX))
                SpillBar(lMaster);
        }
        if (Is(*aNext[lst], BAR))
            abFresh[lst] = false;
        aDone[lst] = aNext[lst];
        if (IsBarLike(*aDone[lst]))
            aLastBar[lst] = aDone[lst];
        Pos const after = std::next(aDone[lst]);
        aNext[lst] = after == staff.end() ? after : NextAnchor(lst, after);
        if ((after != staff.end() && Is(*after, NEWLINE)) || (aNext[lst] != staff.end() && Is(*aNext[lst], NEWLINE)))
        {
            RestartLine(lst, after);
            abFresh[lst] = true;
        }
        TempPlace(lst, aDone[lst], aNext[lst]);
    }
}

void PlainLayout::RestartLine(int32_t lStaff, Pos pos)
{
    PlainStaff& staff = aStaff[lStaff];
    Pos p = std::next(pos);
    if (p == staff.end() || Is(*p, CLEF))
        return;
    int32_t const lClef = InForce(staff, pos, CLEF, 1);
    AddClef(lStaff, p, lClef);
    Pos const clef = std::prev(p);
    Pos key = p;
    while (key != staff.end() &&
           (Is(*key, TEXT) || Is(*key, INSTRUMENT) || Is(*key, TEMPO) || Is(*key, BOWING) || Is(*key, LYRICS) ||
            Is(*key, TRANSPOSE) || Is(*key, VOLUME) || Is(*key, ABC) || Is(*key, TITLE) || Is(*key, ANNOT)))
        ++key;
    if (key != staff.end() && Is(*key, KEYSIG))
        return;
    AddKey(lStaff, p, InForce(staff, pos, KEYSIG, 0), lClef);
    clef->el.lStrX = NextLine(pos->el.lStrX);
    TempPlace(lStaff, clef, std::prev(p));
}

void PlainLayout::SpillBar(int32_t lMaster)
{
    int32_t const lBarX = aLastBar[lMaster] == aStaff[lMaster].end() ? 0 : aLastBar[lMaster]->el.lStrX;
    for (int32_t lst = 1; lst <= 8; ++lst)
    {
        PlainStaff& staff = aStaff[lst];
        Pos const bar = aLastBar[lst];
        if (bar == staff.end() || std::next(bar) == staff.end() || bar->el.lStrX != lBarX)
            continue;
        Pos p = std::next(bar);
        int32_t const lClef = InForce(staff, p, CLEF, 1);
        AddClef(lst, p, lClef);
        if (Is(*p, KEYSIG))
            ++p;
        else
            AddKey(lst, p, InForce(staff, p, KEYSIG, 0), lClef);
        Pos const key = std::prev(p);
        Pos const clef = std::prev(key);
        clef->el.lStrX = NextLine(bar->el.lStrX) + 3;
        TempPlace(lst, clef, key);
        int32_t const lShift = Width(*key) - Width(*bar) - bar->el.lStrX + key->el.lStrX;
        for (; p != staff.end(); ++p)
        {
            p->el.lStrX += lShift;
            if (p == aNext[lst])
                break;
        }
        aLastBar[lst] = aNext[lst];
        abFresh[lst] = true;
    }
}

void PlainLayout::SetTimes()
{
    int32_t lVolume = 64;
    for (int32_t lst = 0; lst <= 8; ++lst)
    {
        if (!afPlay[lst])
            continue;
        int32_t lClock = 0;
        for (PlainElement& p : aStaff[lst])
        {
            p.el.lTime = lClock;
            if (Is(p, NOTE))
                p.el.lB = lVolume;
            if (Is(p, REST) || (Is(p, NOTE) && !(p.el.lA & 4)))
                lClock += p.el.lDuration;
            if (Is(p, VOLUME))
                lVolume = p.el.lA;
        }
    }
}

void PlainLayout::Finish()
{
    for (int32_t lst = 1; lst <= 8; ++lst)
        if (IsVisible(lst))
            Beam(aStaff[lst]);
    Place();
    for (int32_t lst = 1; lst <= 8; ++lst)
        if (IsVisible(lst))
            CheckBeams(aStaff[lst]);
    SetTimes();
}

void PlainLayout::FullAdjust()
{
    for (int32_t lst = 1; lst <= 8; ++lst)
        if (IsVisible(lst))
        {
            RemoveBars(aStaff[lst]);
            InsertBars(aStaff[lst]);
        }
    Finish();
}

void PlainLayout::MiniAdjust()
{
    for (int32_t lst = 1; lst <= 8; ++lst)
        if (IsVisible(lst))
            RemoveRedundant(aStaff[lst]);
    Finish();
}

static std::string Line(Element const& el)
{
    return Format("%s x%d w%d t%d A%d B%d d%d beam%d up%d over%d p%d staff%d\n", Sort_Name(el.sort, el.lA), el.lStrX,
                  el.lWidth, el.lTime, el.lA, el.lB, el.lDuration, el.beam, el.up, el.fOverBar, el.lDiaPitch,
                  el.lStaff);
}

std::string PlainLayout::Told(int32_t lStaff) const
{
    std::string s;
    for (PlainElement const& p : aStaff[lStaff])
        s += Line(p.el);
    return s;
}

std::string Told(int32_t lStaff)
{
    std::string s;
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        s += Line(*pel);
    return s;
}
} // namespace zarn::test

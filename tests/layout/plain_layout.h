/// The layout once more, by its plain rules: each asks the whole staff anew for what the real one carries along.
#pragma once
#include "core/element.h"

#include <list>
#include <string>

namespace zarn::test
{
/// A symbol of the plain layout.
struct PlainElement
{
    Element el;
    int32_t lTextCols = 0; ///< columns of its text
};
using PlainStaff = std::list<PlainElement>;
using Pos = PlainStaff::iterator;

inline bool Is(PlainElement const& p, int32_t sort) { return p.el.sort == sort; }

inline bool IsBarLike(PlainElement const& p)
{
    return Is(p, BAR) || Is(p, DOUBLEBAR) || Is(p, REPEATEND) || Is(p, REPEATSTART) || Is(p, REPEATENDSTART);
}

/// The chord bits.
inline int32_t Bits(PlainElement const& p) { return p.el.lA & 12; }

/// lA of the nearest element of that sort, from pos backward.
inline int32_t InForce(PlainStaff& staff, Pos pos, int32_t sort, int32_t lElse)
{
    if (pos == staff.end())
        return lElse;
    for (;; --pos)
    {
        if (Is(*pos, sort))
            return pos->el.lA;
        if (pos == staff.begin())
            return lElse;
    }
}

/// The nine staffs as they stand in the Score.
class PlainLayout
{
public:
    PlainLayout();
    void FullAdjust();
    void MiniAdjust();
    /// The fields that the layout decides, a line for each element of a staff.
    [[nodiscard]] std::string Told(int32_t lStaff) const;

private:
    static void RemoveBars(PlainStaff& staff);
    static void InsertBars(PlainStaff& staff);
    static void RemoveRedundant(PlainStaff& staff);
    void Beam(PlainStaff& staff);
    void SetGroup(PlainStaff& staff, Pos first, Pos last);
    void CheckBeams(PlainStaff& staff);
    void Finish();
    void Place();
    void SetTimes();
    void TempPlace(int32_t lStaff, Pos from, Pos to);
    Pos NextAnchor(int32_t lStaff, Pos pos);
    void PlaceOthers(int32_t lMaster);
    void SpillBar(int32_t lMaster);
    void RestartLine(int32_t lStaff, Pos pos);
    void AddClef(int32_t lStaff, Pos before, int32_t lClef);
    void AddKey(int32_t lStaff, Pos before, int32_t lKey, int32_t lClef);

    PlainStaff aStaff[9];
    Pos aDone[9], aNext[9], aLastBar[9];
    bool abFresh[9] = {};
};

/// The same lines of a staff of the Score.
std::string Told(int32_t lStaff);
} // namespace zarn::test

/// The merge of the staffs in time order, in its steps; Place drives it.
///
/// Each staff is laid out by itself up to its next anchor, the anchor with the earliest time is chosen, and every staff
/// that has an anchor at that time is pushed right to meet it. Staffs are only ever pushed right. Columns and times are
/// sums held in 32 bits, for whatever a file brings.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Where the merge stands, by staff; index 0 is never placed.
struct Merge
{
    int32_t lHighest = lHighestStaff;       ///< no staff above it is placed
    Element* apelDone[lStaffLists] = {};    ///< the last element aligned; the first one of the staff at the start
    Element* apelNext[lStaffLists] = {};    ///< the next anchor; null when the staff is finished or hidden
    bool abLineFresh[lStaffLists] = {};     ///< this bar began on a line's start, so it may not spill
    Element* apelLastBar[lStaffLists] = {}; ///< the last bar-like element aligned, or what took its place at a spill
};

/// The first element of the List whose lStaff is lStaff; null when there is none.
[[nodiscard]] Element* FirstOnStaff(int32_t lStaff);

/// The next element from pel on that must be lined up across staffs. A word or a harmony stands in for its note unless
/// the note follows it directly, and then the note takes its column. Null at the end.
Element* NextAnchor(Element* pel);

/// Lays out one staff as if alone, from the element after pelFrom through pelTo, or to the end for a null pelTo.
void TempPlace(Element* pelFrom, Element* pelTo);

/// The staff whose apelNext comes first: the earliest, a NEWLINE before others, then the one furthest right. 0 when all
/// staffs are finished.
[[nodiscard]] int32_t MasterElement(Merge const& merge);

/// Aligns all staffs that have an anchor at the time of lMaster's, and lays each out up to its next anchor.
void PlaceOthers(Merge& merge, int32_t lMaster);

/// Moves what stands behind the last bar to the next line, behind a clef and a key, on each staff whose last bar stands
/// at the column of lMaster's.
void SpillBar(Merge& merge, int32_t lMaster);

/// Puts clef and key in force behind pel, which is a NEWLINE or stands just ahead of one; not when a clef is there.
void RestartLine(Element* pel, int32_t lStaff);
} // namespace zarn

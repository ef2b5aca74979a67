// Where a new line begins: a bar moved to it whole, or what a NEWLINE starts.
//
// Clef and key in force are found by walking back. That stays cheap because the walk ends at the clef and key that the
// last call put there.
#include "core/text.h"
#include "layout/bars.h"
#include "layout/element_width.h"
#include "layout/merge.h"
#include "render/geometry.h"

namespace zarn
{
constexpr int32_t lClefIndent = 3; ///< columns from a line's start to its clef

static void Shift(Element* pel, Element const* pelLast, int64_t lShift)
{
    for (; pel; pel = Next(pel))
    {
        pel->lStrX = Clamp32(pel->lStrX + lShift);
        if (pel == pelLast)
            return;
    }
}

static void SpillStaff(Merge& merge, int32_t lStaff, Element* pelBar, Element* pel)
{
    List const list = aStaffList[lStaff];
    int32_t const lClef = ClefAt(pel);
    AddClefBefore(list, pel, pel->lStaff, lClef);
    if (pel->sort != KEYSIG)
    {
        AddKeySigBefore(list, pel, KeyAt(pel), 0, lClef, pel->lStaff);
        pel = Prev(pel);
    }
    Element* const pelKey = pel;
    Element* const pelClef = Prev(pelKey);
    pelClef->lStrX = Clamp32(int64_t{NextLine(pelBar->lStrX)} + lClefIndent);
    TempPlace(pelClef, pelKey);
    int64_t const lShift = int64_t{Element_Width(pelKey)} - Element_Width(pelBar) - pelBar->lStrX + pelKey->lStrX;
    Shift(Next(pelKey), merge.apelNext[lStaff], lShift);
    merge.apelLastBar[lStaff] = merge.apelNext[lStaff];
    merge.abLineFresh[lStaff] = true;
}

void SpillBar(Merge& merge, int32_t lMaster)
{
    int32_t const lBarX = merge.apelLastBar[lMaster] ? merge.apelLastBar[lMaster]->lStrX : 0;
    for (int32_t lStaff = 1; lStaff <= merge.lHighest; ++lStaff)
    {
        Element* const pelBar = merge.apelLastBar[lStaff];
        Element* const pel = Next(pelBar);
        if (pel && pelBar->lStrX == lBarX)
            SpillStaff(merge, lStaff, pelBar, pel);
    }
}

/// Signs that may stand between a line's clef and its key.
static bool StandsAheadOfKey(int32_t sort)
{
    switch (sort)
    {
    case TEXT:
    case INSTRUMENT:
    case TEMPO:
    case BOWING:
    case LYRICS:
    case TRANSPOSE:
    case VOLUME:
    case ABC:
    case TITLE:
    case ANNOT:
        return true;
    default:
        return false;
    }
}

static bool KeyFollows(Element const* pel)
{
    while (pel && StandsAheadOfKey(pel->sort))
        pel = Next(pel);
    return pel && pel->sort == KEYSIG;
}

void RestartLine(Element* pel, int32_t lStaff)
{
    Element* const pelBehind = Next(pel);
    if (!pelBehind || pelBehind->sort == CLEF)
        return;
    List const list = aStaffList[lStaff];
    int32_t const lClef = ClefAt(pel);
    AddClefBefore(list, pelBehind, pel->lStaff, lClef);
    if (KeyFollows(pelBehind))
        return;
    AddKeySigBefore(list, pelBehind, KeyAt(pel), 0, lClef, pel->lStaff);
    Element* const pelKey = Prev(pelBehind);
    Element* const pelClef = Prev(pelKey);
    pelClef->lStrX = NextLine(pel->lStrX);
    TempPlace(pelClef, pelKey);
}
} // namespace zarn

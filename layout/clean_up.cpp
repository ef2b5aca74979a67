// The removals: one walk of a staff each.
#include "layout/clean_up.h"

namespace zarn
{
/// Removes pel and gives the element to look at next; behind a removed first element that is the new first.
static Element* RemoveAndGoOn(List list, Element* pel)
{
    Element* const pelAhead = Element_Remove(pel);
    return pelAhead ? Next(pelAhead) : List_FirstAs<Element>(list);
}

void RemoveRedundant(List list)
{
    int32_t lClef = 1;
    int32_t alKey[lStaffLists] = {};
    Element* pel = List_FirstAs<Element>(list);
    while (pel)
    {
        pel->fOverBar &= ~fOverruns;
        if (pel->sort == CLEF || pel->sort == KEYSIG)
        {
            bool const bStaff = pel->lStaff >= 0 && pel->lStaff < lStaffLists;
            int32_t& lInForce = pel->sort == CLEF ? lClef : alKey[bStaff ? pel->lStaff : 0];
            if (pel->lA == lInForce)
            {
                pel = RemoveAndGoOn(list, pel);
                continue;
            }
            lInForce = pel->lA;
        }
        pel = Next(pel);
    }
}

void RemoveAllNewlines()
{
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        Element* pel = StaffFirst(lStaff);
        while (pel)
            pel = pel->sort == NEWLINE ? RemoveAndGoOn(aStaffList[lStaff], pel) : Next(pel);
    }
}
} // namespace zarn

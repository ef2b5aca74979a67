// Repeat signs that balance. REPEATENDSTART neither opens nor closes in this count.
#include "midi/repeats.h"

namespace zarn
{
namespace
{
/// One staff's count. The scratch element is shared by all staffs: once a staff has been closed its sort is REPEATEND,
/// and the starts that later staffs lack are added as that. Scores already saved sound by it.
class Balance
{
public:
    explicit Balance(bool bMark)
    {
        elSign.sort = REPEATSTART;
        elSign.lA = bMark ? fAddedRepeat : 0;
    }

    void Staff(int32_t lStaff)
    {
        List const list = aStaffList[lStaff];
        elSign.lStaff = lStaff;
        Element* pelStart = nullptr; // just ahead of the first sounding symbol of the section
        bool bSounded = false;
        int32_t lOpen = 0;
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            if (pel->sort == REPEATSTART)
                ++lOpen;
            else if (pel->sort == REPEATEND)
            {
                if (--lOpen < 0)
                {
                    List_AddAfter(list, pelStart, &elSign, cbPlainElement);
                    bAdded = true;
                    lOpen = 0;
                }
                bSounded = false;
                pelStart = pel;
            }
            else if (!bSounded)
            {
                if (pel->sort == NOTE || pel->sort == REST || pel->sort == CHORD)
                    bSounded = true;
                else
                    pelStart = pel;
            }
        }
        for (; lOpen > 0; --lOpen)
        {
            elSign.sort = REPEATEND;
            List_AddLast(list, &elSign, cbPlainElement);
            bAdded = true;
        }
    }

    bool bAdded = false;

private:
    Element elSign;
};
} // namespace

int32_t Score_BalanceRepeats(bool bMark)
{
    Balance balance(bMark);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        balance.Staff(lStaff);
    return balance.bAdded;
}

void Score_StripAddedRepeats()
{
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        Element* pel = StaffFirst(lStaff);
        while (pel)
        {
            bool const bAddedSign = (pel->sort == REPEATSTART || pel->sort == REPEATEND) && (pel->lA & fAddedRepeat);
            // A sign taken from the head leaves no element to go on from: List_Next tells, and the staff's walk ends.
            pel = List_NextAs(bAddedSign ? Element_Remove(pel) : pel);
        }
    }
}
} // namespace zarn

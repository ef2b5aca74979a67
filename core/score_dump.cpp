// The score dump: every element of every List, in words, to the trace channel.
#include "core/score.h"
#include "core/text.h"

namespace zarn
{
static unsigned ShownAddress(void const* p) { return static_cast<unsigned>(reinterpret_cast<uintptr_t>(p)); }

static void DumpElement(Element* pel, int32_t lNumber)
{
    pel->inx = lNumber;
    DebugLog(Format("inx%4d: ", lNumber));
    DebugLog(
        Format("stg%3d StrX%4d pitch%3d lX%4d lY%4d ", pel->storage, pel->lStrX, pel->lDiaPitch, pel->lX, pel->lY));
    DebugLog(Format("time%5d durn%3d pitch%3d staff%2d sort %s lA %d, lB %d, ", pel->lTime, pel->lDuration, pel->lPitch,
                    pel->lStaff, Sort_Name(pel->sort, pel->lA), pel->lA, pel->lB));
    if (Sort_BearsText(pel->sort))
    {
        std::string_view const sText = Element_Text(pel);
        DebugLog(Format("Preamble %d text<%.*s>\n", pel->lB, static_cast<int>(sText.size()), sText.data()));
    }
    else
        DebugLog(Format("beam %d, up %d\n", pel->beam, pel->up));
    DebugLog(Format("pel==%08x", ShownAddress(pel)));
}

void Score_Dump(char const* sHeading)
{
    DebugLog(sHeading);
    int32_t lNumber = 0;
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
    {
        DebugLog(Format("Score staff number %d, list is %08x\r\n", lStaff, ShownAddress(aStaffList[lStaff])));
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            DumpElement(pel, ++lNumber);
    }
}
} // namespace zarn

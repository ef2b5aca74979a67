// The last step of the layout: from columns and pitches to pixels.
#include "layout/place.h"
#include "render/geometry.h"

namespace zarn
{
void ReGrid()
{
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsVisible(lStaff))
            continue;
        int32_t lClef = 1; // what ClefAt gives, carried along
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            if (pel->sort == CLEF)
                lClef = pel->lA;
            Draw_FoldElement(pel, lClef);
        }
    }
}
} // namespace zarn

// Which elements line up across staffs.
#include "layout/merge.h"

#include <algorithm>

namespace zarn
{
Element* FirstOnStaff(int32_t lStaff)
{
    Element* pel = StaffFirst(lStaff);
    while (pel && pel->lStaff != lStaff)
        pel = Next(pel);
    return pel;
}

static bool IsAnchor(Element const* pel)
{
    switch (pel->sort)
    {
    case NOTE:
        return (pel->lA & fChordMore) == 0;
    case REST:
    case BAR:
    case DOUBLEBAR:
    case TIMESIG:
    case NEWLINE:
    case REPEATEND:
    case REPEATSTART:
    case REPEATENDSTART:
        return true;
    default:
        return false;
    }
}

namespace
{
/// The search from a word or a harmony for the note that it belongs to.
class WordScan
{
public:
    explicit WordScan(int32_t lFloor) : lFloor(lFloor) {}

    /// Looks ahead from pelWord. Gives the anchor, or null when the List ended; At() then tells where the walk stands.
    Element* Run(Element* pelWord)
    {
        pelAt = pelWord;
        bool bLyricSeen = false;
        bool bChordSeen = false;
        for (Element* pel = pelWord; pel; pel = Next(pel))
        {
            if (pel->sort == NOTE || pel->sort == REST)
            {
                pel->lStrX = std::max(pel->lStrX, lFloor);
                if (IsAnchor(pel))
                    return pel;
            }
            else if (pel->sort == LYRICS && !bLyricSeen)
            {
                bLyricSeen = true;
                pelLyric = pelAt = pel;
                lFloor = std::max(lFloor, pel->lStrX);
            }
            else if (pel->sort == CHORD && !bChordSeen)
            {
                bChordSeen = true;
                pelAt = pel;
                RaiseFloor(pel->lStrX);
            }
            else
                return pelAt;
        }
        return nullptr;
    }
    [[nodiscard]] Element* At() const { return pelAt; }

private:
    void RaiseFloor(int32_t lStrX)
    {
        if (lStrX <= lFloor)
            return;
        lFloor = lStrX;
        if (pelLyric)
            pelLyric->lStrX = lFloor;
    }

    int32_t lFloor;
    Element* pelLyric = nullptr;
    Element* pelAt = nullptr;
};
} // namespace

Element* NextAnchor(Element* pel)
{
    if (!pel)
        return nullptr;
    WordScan scan(pel->lStrX);
    for (; pel; pel = Next(pel))
    {
        if (IsAnchor(pel))
            return pel;
        if (pel->sort != LYRICS && pel->sort != CHORD)
            continue;
        if (Element* const pelAnchor = scan.Run(pel))
            return pelAnchor;
        pel = scan.At();
    }
    return nullptr;
}
} // namespace zarn

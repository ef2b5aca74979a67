// Accidentals that say nothing new.
//
// Whether an accidental has a note to act on is asked for each of them, so it is answered for all in one walk from the
// end of the staff, and not by a search from each. The sets of what stands in the bar keep exact positions modulo 32.
#include "core/pitch.h"
#include "layout/clean_up.h"
#include "render/geometry.h"

#include <cstdlib>
#include <map>
#include <vector>

namespace zarn
{
namespace
{
/// What stands in the bar, for the positions of one sign.
struct BarAccidentals
{
    uint32_t lSharps = 0;
    uint32_t lFlats = 0;
    uint32_t lNaturals = 0;

    void Record(int32_t sort, uint32_t lBit)
    {
        lSharps = sort == SHARP ? lSharps | lBit : lSharps & ~lBit;
        lFlats = sort == FLAT ? lFlats | lBit : lFlats & ~lBit;
        lNaturals = sort == NATURAL ? lNaturals | lBit : lNaturals & ~lBit;
    }
};
} // namespace

static uint32_t PositionBit(int32_t lDiaPitch) { return 1U << (std::abs(int64_t{lDiaPitch}) % 32); }

static bool Alters(int32_t lKeyMask, int32_t lDiaPitch)
{
    int64_t const lStep = (int64_t{lDiaPitch} + 700) % 7;
    return lStep >= 0 && ((lKeyMask >> lStep) & 1) != 0;
}

static bool SharpIsSpurious(BarAccidentals const& bar, uint32_t lBit, int32_t lKey, int32_t lDiaPitch)
{
    if (bar.lSharps & lBit)
        return true;
    if (((bar.lFlats | bar.lNaturals) & lBit) || lKey < 0)
        return false;
    return Alters(SharpMask(lKey), lDiaPitch);
}

static bool FlatIsSpurious(BarAccidentals const& bar, uint32_t lBit, int32_t lKey, int32_t lDiaPitch)
{
    if (bar.lFlats & lBit)
        return true;
    if ((bar.lSharps | bar.lNaturals) & lBit)
        return false;
    // Below middle C the test of the key has always stood the other way round: flat keys keep every flat there, and
    // sharp keys are asked with the table read backward.
    if (lDiaPitch < 0)
        return lKey >= 0 && Alters(FlatMaskReadBackward(lKey), lDiaPitch);
    return lKey < 0 && Alters(FlatMask(lKey), lDiaPitch);
}

static bool NaturalIsSpurious(BarAccidentals const& bar, uint32_t lBit, int32_t lKey, int32_t lDiaPitch)
{
    if ((bar.lFlats | bar.lSharps) & lBit)
        return false;
    return !Alters(lKey > 0 ? SharpMask(lKey) : FlatMask(lKey), lDiaPitch);
}

static bool IsSpurious(BarAccidentals const& bar, Element const* pel, int32_t lKey)
{
    uint32_t const lBit = PositionBit(pel->lDiaPitch);
    switch (pel->sort)
    {
    case SHARP:
        return SharpIsSpurious(bar, lBit, lKey, pel->lDiaPitch);
    case FLAT:
        return FlatIsSpurious(bar, lBit, lKey, pel->lDiaPitch);
    default:
        return NaturalIsSpurious(bar, lBit, lKey, pel->lDiaPitch);
    }
}

/// What AccidNeeded says of each accidental of the staff, the last one first.
static std::vector<bool> NeededFromTheEnd(List list)
{
    std::vector<bool> abNeeded;
    std::map<int32_t, bool> positions; // by position: the next thing in the bar that counts there is a note
    for (Element const* pel = List_LastAs<Element>(list); pel; pel = Prev(pel))
    {
        if (pel->sort == BAR)
            positions.clear();
        else if (pel->sort == NOTE)
            positions[pel->lDiaPitch] = true;
        else if (Sort_IsAccidental(pel->sort))
        {
            bool& bNoteAhead = positions[pel->lDiaPitch];
            abNeeded.push_back(bNoteAhead);
            bNoteAhead = false;
        }
    }
    return abNeeded;
}

static void CleanStaff(List list)
{
    std::vector<bool> abNeeded = NeededFromTheEnd(list);
    BarAccidentals above; // positions from middle C up
    BarAccidentals below;
    int32_t lKey = 0;
    Element* pelNext = nullptr;
    for (Element* pel = List_FirstAs<Element>(list); pel; pel = pelNext)
    {
        pelNext = Next(pel);
        if (pel->sort == BAR)
            above = below = BarAccidentals();
        else if (pel->sort == CLEF)
            lKey = 0;
        else if (pel->sort == KEYSIG)
            lKey = pel->lA;
        else if (Sort_IsAccidental(pel->sort))
        {
            BarAccidentals& bar = pel->lDiaPitch >= 0 ? above : below;
            bool const bNeeded = abNeeded.back();
            abNeeded.pop_back();
            if (!bNeeded || IsSpurious(bar, pel, lKey))
                Element_Remove(pel);
            else
                bar.Record(pel->sort, PositionBit(pel->lDiaPitch));
        }
    }
}

void RemoveSpuriousAccidentals()
{
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        if (IsVisible(lStaff))
            CleanStaff(aStaffList[lStaff]);
}
} // namespace zarn

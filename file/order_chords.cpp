// Ordering the chords of a staff after a load.
#include "file/order_chords.h"

#include "core/score.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zarn
{
/// All but `storage` changes places: it tells how large the record is that stays.
static void SwapNotes(Element& a, Element& b)
{
    std::swap(a, b);
    std::swap(a.storage, b.storage);
}

/// The exchange sort decides where notes of one pitch end up, and so stays for every chord that a hand could play.
static void SortByExchange(std::vector<Element*> const& apel)
{
    for (size_t i = 0; i < apel.size(); ++i)
        for (size_t j = i + 1; j < apel.size(); ++j)
            if (apel[j]->lDiaPitch < apel[i]->lDiaPitch)
                SwapNotes(*apel[i], *apel[j]);
}

static void SortMany(std::vector<Element*> const& apel)
{
    std::vector<Element> aSorted;
    for (Element const* const pel : apel)
        aSorted.push_back(*pel);
    std::stable_sort(aSorted.begin(), aSorted.end(),
                     [](Element const& a, Element const& b) { return a.lDiaPitch < b.lDiaPitch; });
    for (size_t i = 0; i < apel.size(); ++i)
        SwapNotes(*apel[i], aSorted[i]);
}

static void SetChordBits(std::vector<Element*> const& apel)
{
    for (Element* const pel : apel)
        pel->lA |= fChordBits;
    apel.front()->lA &= ~fChordBefore;
    apel.back()->lA = (apel.back()->lA & ~fChordBits) | fChordBefore;
}

void OrderChords(int32_t lStaff)
{
    std::vector<Element*> apel;
    for (Element* pel = StaffFirst(lStaff); pel;)
    {
        if (pel->sort != NOTE || !(pel->lA & fChordBits))
        {
            pel = Next(pel);
            continue;
        }
        int32_t const lStrX = pel->lStrX;
        apel.clear();
        for (; pel && pel->sort == NOTE && pel->lStrX == lStrX; pel = Next(pel))
            apel.push_back(pel);
        if (apel.size() <= cLargestExchangedChord)
            SortByExchange(apel);
        else
            SortMany(apel);
        SetChordBits(apel);
    }
}
} // namespace zarn

// Sorting and merging by time; both leave equal times as they are.
#include "midi/play_order.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zarn
{
using Place = PlayRecords::iterator;

static constexpr auto EarlierTime = [](PlayRecord const& a, PlayRecord const& b) { return a.lTime < b.lTime; };

static Place At(PlayRecords& records, size_t l) { return records.begin() + static_cast<std::ptrdiff_t>(l); }

/// Moves a record ahead of those that are later, over no more than so many.
static void MoveBack(Place itFirst, Place it)
{
    constexpr std::ptrdiff_t cFarthest = 64;
    Place const itFarthest = it - std::min(it - itFirst, cFarthest);
    PlayRecord const record = *it;
    for (; it != itFarthest && EarlierTime(record, it[-1]); --it)
        *it = it[-1];
    *it = record;
}

void SortPlayRun(PlayRecords& records, size_t lFirst)
{
    // One staff's records come nearly in order: the notes of a chord begin together, each ahead of the ends of those
    // before it.
    Place const itFirst = At(records, lFirst);
    for (Place it = itFirst; it != records.end(); ++it)
        if (it != itFirst && EarlierTime(*it, it[-1]))
            MoveBack(itFirst, it);
    // A record that stopped on its way has passed none of its own time, so equal ones are in order of arrival still.
    if (!std::is_sorted(itFirst, records.end(), EarlierTime))
        std::stable_sort(itFirst, records.end(), EarlierTime);
}

void MergePlayRuns(PlayRecords& records, std::vector<size_t> aRuns)
{
    while (aRuns.size() > 2)
    {
        std::vector<size_t> aMerged;
        for (size_t i = 0; i + 1 < aRuns.size(); i += 2)
        {
            aMerged.push_back(aRuns[i]);
            if (i + 2 < aRuns.size())
                std::inplace_merge(At(records, aRuns[i]), At(records, aRuns[i + 1]), At(records, aRuns[i + 2]),
                                   EarlierTime);
        }
        aMerged.push_back(aRuns.back());
        aRuns = std::move(aMerged);
    }
}
} // namespace zarn

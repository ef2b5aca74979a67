/// The order of a play list: by time, records of one time in order of arrival.
///
/// That is what inserting each record behind the last one that isn't later would give. Here each staff's records are
/// brought in order by themselves, and the staffs are merged, so that no record walks back over another staff's.
#pragma once
#include "midi/play_record.h"

#include <cstddef>
#include <vector>

namespace zarn
{
/// Brings the records from the index lFirst on in order; those ahead of it stay as they are.
void SortPlayRun(PlayRecords& records, size_t lFirst);

/// Merges runs, each in order and one behind the other, into one.
/// @param aRuns  the index at which each run begins, and that behind the last one; from 0, and all of the records
void MergePlayRuns(PlayRecords& records, std::vector<size_t> aRuns);
} // namespace zarn

/// What the benchmarks share: a process with no window, and scores of the agreed sizes.
#pragma once
#include "support/scripted_process.h"

#include <benchmark/benchmark.h>

namespace zarn::bench
{
/// A process that holds the reels of a benchmark's two arguments, laid out: notes in all, and staffs.
class ReelsProcess : public test::ScriptedProcess
{
public:
    explicit ReelsProcess(benchmark::State& state);
};

/// 1,000, 10,000 and 100,000 notes, on one staff and on eight; times in milliseconds, notes a second as a rate.
void AgreedSizes(benchmark::internal::Benchmark* pBenchmark);

/// Tells how many notes a run of the loop handled, for the rate.
void CountNotes(benchmark::State& state);
} // namespace zarn::bench

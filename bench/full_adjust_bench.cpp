// The whole layout: bars, beams, places, times.
#include "score_bench.h"

#include "layout/adjust.h"

namespace zarn::bench
{
static void FullAdjustment(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
        FullAdjust();
    CountNotes(state);
}
BENCHMARK(FullAdjustment)->Apply(AgreedSizes);
} // namespace zarn::bench

// Folding every symbol to its pixels again, as a scroll or a resize does.
#include "score_bench.h"

#include "layout/place.h"

namespace zarn::bench
{
static void Regrid(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
        ReGrid();
    CountNotes(state);
}
BENCHMARK(Regrid)->Apply(AgreedSizes);
} // namespace zarn::bench

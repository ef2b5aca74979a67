// Moving every note of a score, up and down in turn.
#include "score_bench.h"

#include "edit/transpose.h"

namespace zarn::bench
{
static void TransposeWhole(benchmark::State& state)
{
    ReelsProcess process(state);
    int32_t lSemitones = 2;
    for (auto _ : state)
    {
        TransposeAll(lSemitones);
        lSemitones = -lSemitones;
    }
    CountNotes(state);
}
BENCHMARK(TransposeWhole)->Apply(AgreedSizes);
} // namespace zarn::bench

// Bringing the pitch of every note up to date.
#include "score_bench.h"

#include "core/score.h"
#include "midi/refresh_pitches.h"

namespace zarn::bench
{
static void PitchRefresh(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
        RefreshPitches(lHighestStaff);
    CountNotes(state);
}
BENCHMARK(PitchRefresh)->Apply(AgreedSizes);
} // namespace zarn::bench

// Unfolding the score into timed events, as a play or a MIDI file needs it.
#include "score_bench.h"

#include "midi/play_list.h"

namespace zarn::bench
{
static void PlayList(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
    {
        PlayRecords listPlay;
        BuildPlayList(listPlay, lHighestStaff, 0, PlayStyle{}, afPlay);
        benchmark::DoNotOptimize(listPlay.data());
    }
    CountNotes(state);
}
BENCHMARK(PlayList)->Apply(AgreedSizes);
} // namespace zarn::bench

// Reading a tune of an ABC file, from memory.
#include "score_bench.h"

#include "abc/abc_reader.h"
#include "core/score.h"
#include "platform/files.h"
#include "reels.h"

namespace zarn::bench
{
static void AbcRead(benchmark::State& state)
{
    ReelsProcess process(state);
    std::string const sTune = MakeReels(static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1)));
    for (auto _ : state)
    {
        Score_EmptyStaffs();
        HFILE const hFile = File_FromBytes(sTune);
        std::string sTitle;
        ReadAbcNumbered(hFile, 1, &sTitle);
        _lclose(hFile);
    }
    CountNotes(state);
}
BENCHMARK(AbcRead)->Apply(AgreedSizes);
} // namespace zarn::bench

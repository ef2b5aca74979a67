// Saving a score in the program's own format, into memory.
#include "score_bench.h"

#include "file/native.h"

namespace zarn::bench
{
static void NativeWrite(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
    {
        std::string sBytes;
        HFILE const hFile = File_IntoString(&sBytes);
        benchmark::DoNotOptimize(Native_Write(hFile));
        _lclose(hFile);
    }
    CountNotes(state);
}
BENCHMARK(NativeWrite)->Apply(AgreedSizes);
} // namespace zarn::bench

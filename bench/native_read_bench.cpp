// Opening a score in the program's own format, from memory: read, places, chords in order, pitches.
#include "score_bench.h"

#include "file/native.h"

namespace zarn::bench
{
static void NativeRead(benchmark::State& state)
{
    ReelsProcess process(state);
    std::string sBytes;
    HFILE const hSaved = File_IntoString(&sBytes);
    Native_Write(hSaved);
    _lclose(hSaved);
    for (auto _ : state)
    {
        HFILE const hFile = File_FromBytes(sBytes);
        if (!Native_Read(hFile, true))
            state.SkipWithError("the score was not read");
        _lclose(hFile);
    }
    CountNotes(state);
}
BENCHMARK(NativeRead)->Apply(AgreedSizes);
} // namespace zarn::bench

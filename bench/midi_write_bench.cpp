// Writing a performance as a MIDI file: the play list of each staff, and its bytes.
#include "score_bench.h"

#include "midi/midi_write.h"

#include <string>

namespace zarn::bench
{
static void MidiWrite(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
    {
        std::string sFile;
        HFILE const hFile = File_IntoString(&sFile);
        if (!SaveMidiFile(hFile, false, 0, true) || !_lclose(hFile))
            state.SkipWithError("the file was not written");
        benchmark::DoNotOptimize(sFile);
    }
    CountNotes(state);
}
BENCHMARK(MidiWrite)->Apply(AgreedSizes);
} // namespace zarn::bench

// Reading a MIDI file: placement, quantising and the layout of what came in.
#include "score_bench.h"

#include "edit/new_score.h"
#include "midi/midi_read.h"
#include "midi/midi_write.h"

#include <string>

namespace zarn::bench
{
static void MidiRead(benchmark::State& state)
{
    ReelsProcess process(state);
    std::string sFile;
    HFILE const hWritten = File_IntoString(&sFile);
    if (!SaveMidiFile(hWritten, false, 0, false) || !_lclose(hWritten))
        state.SkipWithError("the file was not written");
    for (auto _ : state)
    {
        Score_New();
        HFILE const hFile = File_FromBytes(sFile);
        if (ReadMidiFile(hFile) != MIDI_FILE_READ)
            state.SkipWithError("the file was not read");
        _lclose(hFile);
    }
    CountNotes(state);
}
// With every repeat written out, 100,000 notes are more than a file may bring.
BENCHMARK(MidiRead)
    ->ArgNames({"notes", "staffs"})
    ->ArgsProduct({{1'000, 10'000}, {1, 8}})
    ->Unit(benchmark::kMillisecond);
} // namespace zarn::bench

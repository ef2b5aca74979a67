// A syllable under every note, dealt out anew.
#include "score_bench.h"

#include "edit/lyrics.h"

#include <string>

namespace zarn::bench
{
static void DealOutLyrics(benchmark::State& state)
{
    ReelsProcess process(state);
    std::string sVerse;
    for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
        if (pel->sort == NOTE)
            sVerse += "la ";
    for (auto _ : state)
        PutLyrics(nullptr, nullptr, sVerse, StaffFirst(1));
    CountNotes(state);
}
BENCHMARK(DealOutLyrics)->Apply(AgreedSizes);
} // namespace zarn::bench

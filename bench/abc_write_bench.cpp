// Writing a score as a tune of ABC text, into memory; and one tune into a collection of 10 MB on the disk.
#include "score_bench.h"

#include "abc/abc_write.h"
#include "abc/multi_tune_save.h"
#include "reels.h"

#include <filesystem>
#include <fstream>

namespace zarn::bench
{
static void AbcWrite(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
    {
        std::string sBytes;
        HFILE const hFile = File_IntoString(&sBytes);
        benchmark::DoNotOptimize(AbcWriteTune(hFile, "Reels", 1));
        _lclose(hFile);
    }
    CountNotes(state);
}
BENCHMARK(AbcWrite)->Apply(AgreedSizes);

/// The tune in the middle of the collection gets the reels' text; the file is put in place and flushed each time.
static void AbcReplaceInCollection(benchmark::State& state)
{
    constexpr size_t cbCollection = 10'000'000;
    ReelsProcess process(state);
    std::string const sReels = MakeReels(200, 1);
    std::string const szFile = (std::filesystem::temp_directory_path() / "zarn-bench-collection.abc").string();
    int32_t lTune = 0;
    {
        std::ofstream file(szFile, std::ios::binary);
        for (size_t cb = 0; cb < cbCollection; cb += sReels.size())
            file << "X:" << ++lTune << '\n' << sReels.substr(sReels.find('\n') + 1) << '\n';
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(Abc_SaveTune(szFile, "Reels", lTune / 2 + 1));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(std::filesystem::file_size(szFile)));
    std::filesystem::remove(szFile);
}
BENCHMARK(AbcReplaceInCollection)->Args({1000, 1})->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace zarn::bench

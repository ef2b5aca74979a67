// The road of every benchmark's score: reels by rule, read as ABC, laid out.
#include "score_bench.h"

#include "abc/abc_reader.h"
#include "core/score.h"
#include "layout/adjust.h"
#include "platform/files.h"
#include "reels.h"
#include "render/geometry.h"

namespace zarn::bench
{
ReelsProcess::ReelsProcess(benchmark::State& state)
{
    bAbcListing = false;
    SetWindowUnits({0, 0, 1200, 800});
    std::string const sTune = MakeReels(static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1)));
    HFILE const hFile = File_FromBytes(sTune);
    std::string sTitle;
    ReadAbcNumbered(hFile, 1, &sTitle);
    _lclose(hFile);
    SetStaffCount(static_cast<int32_t>(state.range(1)));
    FullAdjust();
    int64_t cNotes = 0;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            cNotes += pel->sort == NOTE;
    if (cNotes < state.range(0))
        state.SkipWithError("the tune was not read whole");
}

void AgreedSizes(benchmark::internal::Benchmark* pBenchmark)
{
    pBenchmark->ArgNames({"notes", "staffs"})->ArgsProduct({{1'000, 10'000, 100'000}, {1, 8}});
    pBenchmark->Unit(benchmark::kMillisecond);
}

void CountNotes(benchmark::State& state) { state.SetItemsProcessed(state.iterations() * state.range(0)); }
} // namespace zarn::bench

// The search for a fingering, and its plain form beside it: melodies, and chords as a guitarist reads them. peak_MB is
// the most memory that a search took above the score.
#include "core/score.h"
#include "counted_memory.h"
#include "support/scripted_process.h"
#include "tab/fingering.h"
#include "tab/fingers_place.h"
#include "tab/plain_search.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <vector>

namespace zarn::bench
{
namespace
{
void AddChord(std::vector<int32_t> const& aPitches)
{
    for (size_t i = 0; i < aPitches.size(); ++i)
    {
        Element el;
        el.sort = NOTE;
        el.lPitch = aPitches[i];
        el.lDuration = 48;
        el.lA = (i + 1 < aPitches.size() ? fChordMore : 0) | (i > 0 ? fChordBefore : 0);
        List_AddLast(aStaffList[1], &el, cbPlainElement);
    }
}

/// A walk through the notes of G major over three octaves, in small steps and a leap now and then.
void WriteMelody(int32_t lNotes)
{
    constexpr int32_t aScale[] = {0, 2, 4, 5, 7, 9, 10};
    std::mt19937 random(1);
    int32_t lDegree = 10;
    for (int32_t n = 0; n < lNotes; ++n)
    {
        int32_t const lMost = random() % 8 == 0 ? 5 : 2;
        lDegree += static_cast<int32_t>(random() % static_cast<uint32_t>(2 * lMost + 1)) - lMost;
        lDegree = lDegree < 0 ? 3 : lDegree > 20 ? 17 : lDegree;
        AddChord({55 + lDegree / 7 * 12 + aScale[lDegree % 7]});
    }
}

/// The chords that accompany most tunes, whole or without some of their strings, each moved up by as much as
/// three frets where a hand can follow.
void WriteChords(int32_t lChords)
{
    std::vector<std::vector<int32_t>> const aShapes = {
        {57, 64, 69, 72, 76},     {57, 64, 69, 73, 76},     {59, 63, 69, 71, 78},     {60, 64, 67, 72, 76},
        {62, 69, 74, 78},         {62, 69, 74, 77},         {52, 59, 64, 68, 71, 76}, {52, 59, 64, 67, 71, 76},
        {53, 60, 65, 69, 72, 77}, {55, 59, 62, 67, 71, 79}, {59, 66, 71, 74, 78},     {55, 62, 65, 71, 79},
        {52, 59, 62, 68, 71, 76}};
    std::mt19937 random(2);
    for (int32_t n = 0; n < lChords;)
    {
        std::vector<int32_t> aChord = aShapes[random() % aShapes.size()];
        size_t const cNotes = 2 + random() % (aChord.size() - 1);
        size_t const nFirst = random() % (aChord.size() - cNotes + 1);
        aChord = {aChord.begin() + static_cast<std::ptrdiff_t>(nFirst),
                  aChord.begin() + static_cast<std::ptrdiff_t>(nFirst + cNotes)};
        auto const lUp = static_cast<int32_t>(random() % 4);
        for (int32_t& lPitch : aChord)
            lPitch += lUp;
        if (PrimeFingerings(aChord).empty())
            continue;
        AddChord(aChord);
        ++n;
    }
}

using Search = Element* (*)(Element*, Element*, bool, std::vector<ChordFingering>*);

void Run(benchmark::State& state, Search search, void (*pWrite)(int32_t))
{
    test::ScriptedProcess process;
    pWrite(static_cast<int32_t>(state.range(0)));
    int64_t const cbBefore = cbInUse;
    cbPeak = cbInUse;
    for (auto _ : state)
        if (search(StaffFirst(1), StaffLast(1), true, nullptr))
            state.SkipWithError("a chord can't be played");
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["peak_MB"] = static_cast<double>(cbPeak - cbBefore) / 1e6;
}

void Melody(benchmark::State& state) { Run(state, Tab_DoFingering, WriteMelody); }
void MelodyPlain(benchmark::State& state) { Run(state, test::PlainDoFingering, WriteMelody); }
void Chords(benchmark::State& state) { Run(state, Tab_DoFingering, WriteChords); }
void ChordsPlain(benchmark::State& state) { Run(state, test::PlainDoFingering, WriteChords); }

BENCHMARK(Melody)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(MelodyPlain)->Arg(1'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Chords)->Arg(300)->Arg(3'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ChordsPlain)->Arg(300)->Unit(benchmark::kMillisecond);
} // namespace
} // namespace zarn::bench

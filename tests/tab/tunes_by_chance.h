/// Melodies, chords and arpeggios by chance, instruments and weights to play them with, and the comparison of the two
/// searches on them.
#pragma once
#include "tab/tab_fixture.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace zarn::test
{
using Random = std::mt19937;

/// What a staff is made of.
struct TuneShape
{
    int32_t lNotes = 20;         ///< chords and single notes
    int32_t lChordPercent = 0;   ///< of them chords
    int32_t lMostInChord = 4;    ///< notes
    int32_t lRepeatPercent = 10; ///< notes with the pitch of the one before
    int32_t lRestPercent = 5;    ///< rests, bars and words between
    int32_t lSectionPercent = 0; ///< arpeggio sections begun or ended
    int32_t lLowest = 50;        ///< MIDI notes
    int32_t lHighest = 95;
};

/// Writes staff 1 anew.
void WriteTune(Random& random, TuneShape const& shape);

/// An instrument of 0 to 9 strings: a real one, as a rule.
void TuneByChance(Random& random);

/// The weight sets that show most: by default the open position wins everywhere.
constexpr int32_t cWeightSets = 5;
void SetWeights(int32_t nSet);
/// Every weight by itself, within lMost either way; the hand's span now and then.
void WeightsByChance(Random& random, int32_t lMost);

/// Runs both searches over a stretch of staff 1 and tells the first difference: string, fret, finger, mark, price of
/// each chord, messages, the failing note. Empty when there is none.
std::string Difference(ScriptHost& user, Element* pelFirst, Element* pelLast, bool bVerbose = true);
} // namespace zarn::test

// The search against the plain one: the same string, fret and finger of every note, the same price of every chord.
#include "tab/fingering.h"

#include "tab/tunes_by_chance.h"
#include "tab/weights.h"

namespace zarn
{
namespace
{
using test::Random;

class Search : public test::TabFixture
{
protected:
    /// Tunes of a shape on instruments by chance; the weights are set anew for each by setUp.
    template <typename SetUp>
    void Compare(uint32_t lSeed, int32_t cTunes, test::TuneShape const& shape, bool bGuitar, SetUp setUp)
    {
        for (int32_t n = 0; n < cTunes; ++n)
        {
            Random random(lSeed + static_cast<uint32_t>(n));
            Tab_LoadTuning();
            Fingering_LoadWeights([](FingeringWeight const&) {});
            if (!bGuitar)
                test::TuneByChance(random);
            setUp(random, n);
            test::WriteTune(random, shape);
            std::string const sDifference = test::Difference(process.user, StaffFirst(1), StaffLast(1), n % 2 == 0);
            ASSERT_EQ(sDifference, "") << "tune " << n << " of " << lSeed;
        }
    }

    /// All weight sets in turn.
    void CompareByWeightSets(uint32_t lSeed, int32_t cTunes, test::TuneShape const& shape, bool bGuitar)
    {
        Compare(lSeed, cTunes, shape, bGuitar, [](Random&, int32_t n) { test::SetWeights(n % test::cWeightSets); });
    }
};

TEST_F(Search, MelodiesOnTheGuitar)
{
    CompareByWeightSets(1000, 500, {.lNotes = 12, .lLowest = 52, .lHighest = 90}, true);
}

TEST_F(Search, ChordsOnTheGuitar)
{
    CompareByWeightSets(2000, 100,
                        {.lNotes = 5, .lChordPercent = 70, .lRepeatPercent = 0, .lLowest = 52, .lHighest = 84}, true);
}

TEST_F(Search, OtherInstruments)
{
    CompareByWeightSets(3000, 500, {.lNotes = 8, .lChordPercent = 15, .lMostInChord = 3, .lLowest = 48}, false);
}
} // namespace
} // namespace zarn

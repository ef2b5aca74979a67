// The search against the plain one: the same string, fret and finger of every note, the same price of every chord.
#include "tab/fingering.h"

#include "core/text.h"
#include "tab/chord_link.h"
#include "tab/plain_search.h"
#include "tab/tunes_by_chance.h"
#include "tab/weights.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace zarn
{
namespace
{
using test::Random;

/// ZARN_MORE_TUNES=100 in the environment: a hundred times as many.
int32_t Times()
{
    char const* const szMore = std::getenv("ZARN_MORE_TUNES");
    return szMore ? std::max(1, std::atoi(szMore)) : 1;
}

class Search : public test::TabFixture
{
protected:
    /// Tunes of a shape on instruments by chance; the weights are set anew for each by setUp.
    /// lBreakPercent of them have a chord at the end that nobody can play.
    template <typename SetUp>
    void Compare(uint32_t lSeed, int32_t cTunes, test::TuneShape const& shape, bool bGuitar, SetUp setUp,
                 int32_t lBreakPercent = 0)
    {
        cTunes *= Times();
        for (int32_t n = 0; n < cTunes; ++n)
        {
            Random random(1000 * lSeed + static_cast<uint32_t>(n));
            Tab_LoadTuning();
            Fingering_LoadWeights([](FingeringWeight const&) {});
            if (!bGuitar)
                test::TuneByChance(random);
            setUp(random, n);
            test::WriteTune(random, shape);
            if (n * 100 < lBreakPercent * cTunes)
                test::AddChord({20, 21});
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

TEST_F(Search, MelodiesOnTheGuitar) { CompareByWeightSets(1, 40, {.lNotes = 10, .lLowest = 52, .lHighest = 90}, true); }

TEST_F(Search, ChordsOnTheGuitar)
{
    CompareByWeightSets(2, 30, {.lNotes = 5, .lChordPercent = 70, .lRepeatPercent = 0, .lLowest = 52, .lHighest = 84},
                        true);
}

TEST_F(Search, OtherInstruments)
{
    CompareByWeightSets(3, 60, {.lNotes = 8, .lChordPercent = 15, .lMostInChord = 3, .lLowest = 48}, false);
}
TEST_F(Search, MelodiesLongEnoughForPathsToRunTogether)
{
    CompareByWeightSets(4, 3, {.lNotes = 100, .lRepeatPercent = 20, .lLowest = 52, .lHighest = 88}, true);
}

TEST_F(Search, ANoteRepeatedForLong)
{
    CompareByWeightSets(5, 2, {.lNotes = 100, .lRepeatPercent = 97, .lLowest = 52, .lHighest = 88}, true);
}

TEST_F(Search, StretchesThatBreakOff)
{
    Compare(
        6, 5, {.lNotes = 45, .lRepeatPercent = 30, .lLowest = 52, .lHighest = 88}, true,
        [](Random&, int32_t n) { test::SetWeights(n % test::cWeightSets); }, 100);
}

TEST_F(Search, ArpeggioSections)
{
    CompareByWeightSets(7, 50, {.lNotes = 15, .lChordPercent = 10, .lRepeatPercent = 40, .lSectionPercent = 20}, false);
}

TEST_F(Search, WeightsByChance)
{
    Compare(8, 40, {.lNotes = 8, .lChordPercent = 15, .lMostInChord = 3, .lLowest = 50}, false,
            [](Random& random, int32_t) { test::WeightsByChance(random, 100); });
}

TEST_F(Search, LargeWeightsByChance)
{
    Compare(9, 30, {.lNotes = 8, .lChordPercent = 15, .lMostInChord = 3, .lLowest = 50}, false,
            [](Random& random, int32_t n) { test::WeightsByChance(random, n % 2 ? 2500 : 50000); });
}

TEST_F(Search, WeightsOfAnySize)
{
    Compare(10, 40, {.lNotes = 8, .lChordPercent = 15, .lMostInChord = 3, .lLowest = 50}, false,
            [](Random& random, int32_t) { test::WeightsByChance(random, INT32_MAX); });
}

TEST_F(Search, PitchesBeyondAllFrets)
{
    Compare(11, 15, {.lNotes = 6, .lChordPercent = 50, .lMostInChord = 3, .lLowest = 310, .lHighest = 345}, true,
            [](Random&, int32_t) {});
}

TEST_F(Search, StretchesThatEndAnywhere)
{
    for (uint32_t n = 0; n < 80u * static_cast<uint32_t>(Times()); ++n)
    {
        Random random(12'000'000 + n);
        test::WriteTune(random, {.lNotes = 12, .lChordPercent = 30, .lMostInChord = 3, .lSectionPercent = 20});
        int32_t const cElements = List_Card(aStaffList[1]);
        Element* const pelFirst = test::At(1, static_cast<int32_t>(random() % 4));
        Element* const pelLast = test::At(1, 4 + static_cast<int32_t>(random() % static_cast<uint32_t>(cElements - 4)));
        ASSERT_EQ(test::Difference(process.user, pelFirst, pelLast), "") << "tune " << n;
    }
}

TEST_F(Search, NoStepIsOneInsideAnArpeggio)
{
    for (uint32_t n = 0; n < 200; ++n)
    {
        Random random(13000 + n);
        test::WriteTune(random, {.lNotes = 30, .lChordPercent = 30, .lMostInChord = 3, .lSectionPercent = 30});
        int32_t lColumn = 0;
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            pel->lStrX = ++lColumn;
        int32_t fFailed = 0;
        for (Element* pel = NextNote(StaffFirst(1)); pel && !fFailed;)
        {
            Element* const pelNext = test::BuildPrimeFingerings(pel, StaffLast(1), fFailed, false);
            List_Destroy(&pel->listFingers);
            ASSERT_FALSE(pelNext && test::Tab_InLaterArpeggioNote(pelNext));
            pel = pelNext;
        }
    }
}

/// What links chords, without the notes.
struct OneLink
{
    explicit OneLink(size_t cbMost) : store(prices, states, cbMost) {}
    StepPrices prices;
    FingerStates states;
    ChordWaysStore store;
    ChordLinker linker{prices, states};
};
constexpr size_t cbRoomy = 100'000'000;

/// Fingers and cost of every record, in order.
std::vector<std::string> Told(std::vector<HeldWay> const& aList, FingerStates const& states)
{
    std::vector<std::string> aTold;
    for (HeldWay const& way : aList)
    {
        std::string& s = aTold.emplace_back(Format("%d", way.lCost));
        for (FingerState state : way.hand)
            s += Format(" %d@%d", states.Finger(state).bMask, states.Finger(state).bFret);
    }
    return aTold;
}

std::vector<std::string> Told(List list)
{
    std::vector<std::string> aTold;
    for (test::pf p = List_FirstAs<test::PlainFingers>(list); p; p = List_NextAs(p))
    {
        std::string& s = aTold.emplace_back(Format("%d", p->lCost));
        for (FingersFinger finger : p->aFinger)
            s += Format(" %d@%d", finger.bMask, finger.bFret);
    }
    return aTold;
}

TEST_F(Search, EveryListHoldsTheSameRecordsInTheSameOrder)
{
    for (int32_t n = 0; n < 15 * Times(); ++n)
    {
        Random random(15'000'000 + static_cast<uint32_t>(n));
        Fingering_LoadWeights([](FingeringWeight const&) {});
        test::SetWeights(n % test::cWeightSets);
        test::WriteTune(random, {.lNotes = 8, .lChordPercent = 30, .lMostInChord = 3, .lLowest = 55, .lHighest = 85});
        OneLink link(cbRoomy);
        std::shared_ptr<ChordWays> pBefore;
        std::vector<HeldWay> aList;
        Element* pelBefore = nullptr;
        int32_t fFailed = 0;
        for (Element* pel = NextNote(StaffFirst(1)); pel;)
        {
            Element* const pelNext = test::BuildPrimeFingerings(pel, StaffLast(1), fFailed, false);
            if (fFailed)
                break;
            PitchSet pitches;
            for (Element* pelNote = pel; pelNote; pelNote = test::Tab_NextChordNote(pelNote))
                if (std::ranges::find(pitches.Pitches(), pelNote->lPitch) == pitches.Pitches().end())
                    pitches.aPitch[static_cast<size_t>(pitches.cPitches++)] = pelNote->lPitch;
            std::shared_ptr<ChordWays> const pWays = link.store.Get(pitches);
            if (pelBefore)
            {
                test::Fingers_Link(pelBefore, pel);
                test::Fingers_CarryHeld(pel->listFingers);
                link.linker.Link(*pBefore, aList, *pWays);
                std::vector<HeldWay> aNext;
                link.linker.ListHeld(*pWays, aList, aNext);
                aList = aNext;
            }
            else
                aList = FirstList(*pWays);
            ASSERT_TRUE(Told(pel->listFingers) == Told(aList, link.states)) << "tune " << n;
            pBefore = pWays;
            pelBefore = pel;
            pel = pelNext;
        }
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            if (pel->listFingers)
                List_Destroy(&pel->listFingers);
    }
}

TEST_F(Search, AStoreWithoutRoomGivesTheSame)
{
    OneLink roomy(cbRoomy);
    OneLink tight(1);
    Random random(14000);
    PitchSet pitches{.cPitches = 1};
    pitches.aPitch[0] = 60;
    std::shared_ptr<ChordWays> pRoomy = roomy.store.Get(pitches);
    std::shared_ptr<ChordWays> pTight = tight.store.Get(pitches);
    std::vector<HeldWay> aList = FirstList(*pRoomy);
    for (int32_t n = 0; n < 100; ++n)
    {
        pitches.aPitch[0] = 55 + static_cast<int32_t>(random() % 30);
        std::shared_ptr<ChordWays> const pNextRoomy = roomy.store.Get(pitches);
        std::shared_ptr<ChordWays> const pNextTight = tight.store.Get(pitches);
        std::span<Arrival const> const aRoomy = roomy.linker.Link(*pRoomy, aList, *pNextRoomy);
        std::span<Arrival const> const aTight = tight.linker.Link(*pTight, aList, *pNextTight);
        EXPECT_TRUE(std::ranges::equal(aRoomy, aTight)) << n;
        std::vector<HeldWay> aNext;
        roomy.linker.ListHeld(*pNextRoomy, aList, aNext);
        aList = aNext;
        pRoomy = pNextRoomy;
        pTight = pNextTight;
    }
}

TEST_F(Search, ListsOfMoreRecordsThanA16BitNumberCountsLoseNone)
{
    OneLink link(cbRoomy);
    PitchSet pitches{.cPitches = 1};
    pitches.aPitch[0] = 65;
    std::shared_ptr<ChordWays> const pWays = link.store.Get(pitches);
    std::vector<HeldWay> const aOnce = FirstList(*pWays);
    // Of equal records only the first counts: each way once at 150, and five cheaper ones here and there.
    std::vector<HeldWay> aMany;
    for (size_t n = 0; n < 70'000; ++n)
        aMany.emplace_back(aOnce[n % aOnce.size()]).lCost = 150;
    std::vector<HeldWay> aFew(aMany.begin(), aMany.begin() + static_cast<std::ptrdiff_t>(aOnce.size()));
    std::vector<uint32_t> aPlace(aOnce.size());
    std::iota(aPlace.begin(), aPlace.end(), 0u);
    for (uint32_t n : {31'999u, 32'000u, 40'000u, 69'998u, 69'999u})
    {
        aMany[n].lCost = 100;
        aFew.push_back(aMany[n]);
        aPlace.push_back(n);
    }
    std::vector<Arrival> aExpected;
    for (Arrival arrival : link.linker.Link(*pWays, aFew, *pWays))
        aExpected.push_back({aPlace[arrival.nFrom], arrival.lCost});
    std::span<Arrival const> const aFound = link.linker.Link(*pWays, aMany, *pWays);
    EXPECT_TRUE(std::ranges::equal(aExpected, aFound));
}
} // namespace
} // namespace zarn

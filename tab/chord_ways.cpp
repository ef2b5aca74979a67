// The rows of prices, made as they are asked for, and the store that bounds them.
#include "tab/chord_ways.h"

#include "tab/fingers_place.h"

#include <algorithm>
#include <cstdlib>

namespace zarn
{
namespace
{
constexpr size_t lMasks = 256;
constexpr size_t lStateFrets = lHighestFret + 1;
} // namespace

FingerStates::FingerStates() : aState{{{}, IDLE}}, aNumber(lMasks * lStateFrets) {}

FingerState FingerStates::Of(FingersFinger finger)
{
    if (finger.bMask == 0)
        return 0;
    FingerState& number = aNumber[finger.bMask * lStateFrets + finger.bFret];
    if (number == 0)
    {
        number = static_cast<FingerState>(aState.size());
        aState.push_back({finger, Finger_Use(finger)});
    }
    return number;
}

int32_t FingerStates::Position(HandState const& hand) const
{
    int32_t c = 0;
    int32_t lSum = 0;
    for (size_t i = 0; i < hand.size(); ++i)
        if (hand[i] != 0)
        {
            ++c;
            lSum += Finger(hand[i]).bFret - static_cast<int32_t>(i);
        }
    return c == 0 ? lNoHand : lSum * (lPositionsToFret / c);
}

ChordWays::ChordWays(PitchSet const& pitches, StepPrices const& prices, FingerStates& states, size_t& cbRows)
    : prices(prices), states(states), cbRows(cbRows), aWay(PrimeFingerings(pitches.Pitches()))
{
    aHand.reserve(aWay.size());
    aPosition.reserve(aWay.size());
    aNote.reserve(aWay.size());
    aArrival.reserve(aWay.size());
    for (Fingers const& way : aWay)
    {
        HandState& hand = aHand.emplace_back();
        std::ranges::transform(way.aFinger, hand.begin(), [&](FingersFinger finger) { return states.Of(finger); });
        aPosition.push_back(states.Position(hand));
        aNote.push_back(Fingers_MelodyNote(way));
        aArrival.push_back(way.lCost + prices.Position(aPosition.back()));
        if (aNote.back().inxString >= 0)
            aMelodyPitch.push_back(aNote.back().lPitch);
    }
    if (!aArrival.empty())
        lLeastArrival = *std::ranges::min_element(aArrival);
    std::ranges::sort(aMelodyPitch);
    aMelodyPitch.erase(std::unique(aMelodyPitch.begin(), aMelodyPitch.end()), aMelodyPitch.end());
}

void ChordWays::DropRows()
{
    cbRows -= aRows.capacity() * sizeof(Lanes);
    aRows = {};
    aFingerRow = {};
    aUseRow = {};
    aMoveRow = {};
    aDirectionRow = {};
}

size_t ChordWays::WayBytes() const
{
    constexpr size_t cbWay =
        sizeof(Fingers) + sizeof(HandState) + sizeof(int32_t) + sizeof(MelodyNote) + sizeof(int64_t);
    return sizeof *this + aWay.size() * cbWay;
}

void ChordWays::Grow(size_t cVectors)
{
    size_t const cBefore = aRows.capacity();
    aRows.resize(aRows.size() + cVectors);
    cbRows += (aRows.capacity() - cBefore) * sizeof(Lanes);
}

template <typename Price>
uint32_t ChordWays::NewRow(Price price)
{
    if (aRows.empty())
        Grow(Vectors()); // row 0 is all zeros
    auto const nRow = static_cast<uint32_t>(aRows.size());
    Grow(Vectors());
    for (size_t n = 0; n < aWay.size(); ++n)
        aRows[nRow + n / lLanes].v[n % lLanes] = static_cast<int16_t>(price(n));
    return nRow;
}

uint32_t ChordWays::NewFingerRow(size_t inxFinger, FingerState before)
{
    FingerUse const use = states.Use(before);
    auto const price = [&](size_t n)
    {
        FingerState const after = aHand[n][inxFinger];
        return after == before ? 0 : prices.Change(use, states.Use(after));
    };
    // Where no way has the finger lie exactly so, only its use counts, and all such places share a row.
    bool const bTheirs = std::ranges::any_of(aHand, [&](HandState const& hand) { return hand[inxFinger] == before; });
    uint32_t nOwn = 0;
    uint32_t& nRow = bTheirs ? nOwn : aUseRow[inxFinger * lFingerUses + use];
    if (nRow == 0)
        nRow = NewRow(price);
    return aFingerRow[before][inxFinger] = nRow;
}

uint32_t ChordWays::NewMoveRow(HandBefore before)
{
    return NewRow(
        [&](size_t n) {
            return aPosition[n] == lNoHand ? 0 : prices.Move(std::abs(aPosition[n] - before.lPosition), before.Steps());
        });
}

uint32_t ChordWays::DirectionRow(MelodyNote before)
{
    if (before.inxString < 0 || aMelodyPitch.empty())
        return 0;
    if (aDirectionRow.empty())
        aDirectionRow.resize((aMelodyPitch.size() + 1) * lMostStrings);
    // To which pitches the melody rises is all that counts of the pitch before.
    auto const cNotAbove = std::ranges::upper_bound(aMelodyPitch, before.lPitch) - aMelodyPitch.begin();
    uint32_t& nRow = aDirectionRow[static_cast<size_t>(cNotAbove * lMostStrings + before.inxString)];
    if (nRow == 0)
        nRow = NewRow([&](size_t n) { return prices.Direction(before, aNote[n]); });
    return nRow;
}

size_t ChordWaysStore::Hash::operator()(PitchSet const& pitches) const
{
    uint64_t l = static_cast<uint64_t>(pitches.cPitches);
    for (int32_t lPitch : pitches.Pitches())
        l = (l ^ static_cast<uint32_t>(lPitch)) * 0x9E3779B97F4A7C15u;
    return static_cast<size_t>(l ^ l >> 32);
}

std::shared_ptr<ChordWays> ChordWaysStore::Get(PitchSet const& pitches)
{
    if (cbRows + cbWays > cbMost)
    {
        for (auto const& [key, pSet] : aSets)
            pSet->DropRows();
        aSets.clear();
        cbWays = 0;
    }
    std::shared_ptr<ChordWays>& pSet = aSets[pitches];
    if (!pSet)
    {
        pSet = std::make_shared<ChordWays>(pitches, prices, states, cbRows);
        cbWays += pSet->WayBytes();
    }
    return pSet;
}
} // namespace zarn

/// From one chord to the next: for each way of playing the next one, the cheapest record to come from.
#pragma once
#include "tab/chord_ways.h"

#include <span>
#include <vector>

namespace zarn
{
constexpr int32_t lBestStart = 999999; ///< a path that costs as much is no better than none

/// A record of a chord's list: a way of playing, perhaps with fingers that stay down from the chord before.
struct HeldWay
{
    HandState hand = {};
    HandBefore before; ///< as the next chord sees it
    int32_t lCost = 0; ///< of the cheapest path that ends here
    uint32_t nWay = 0;
};

/// The record that a way of the next chord is reached from, and the cost of the path.
struct Arrival
{
    uint32_t nFrom = 0; ///< in the list before
    int32_t lCost = 0;
    friend bool operator==(Arrival const&, Arrival const&) = default;
};

/// The list of a first chord.
[[nodiscard]] std::vector<HeldWay> FirstList(ChordWays const& ways);

/// Links chords one by one. What it works in is kept from one to the next.
class ChordLinker
{
public:
    ChordLinker(StepPrices const& prices, FingerStates const& states) : prices(prices), states(states) {}

    /// For each way of `to` the cheapest of the list before, the first one among equals. A way that none reaches below
    /// lBestStart costs just that, and comes from where the way before it came from, the first one from the list's
    /// first.
    std::span<Arrival const> Link(ChordWays const& from, std::span<HeldWay const> aBefore, ChordWays& to);

    /// The list of the chord that was linked: each way, and ahead of it its copies with fingers that the record before
    /// it has down and it doesn't use, in every choice.
    void ListHeld(ChordWays const& to, std::span<HeldWay const> aBefore, std::vector<HeldWay>& aList) const;

private:
    using TermRows = std::array<uint32_t, lFingers + 2>; ///< the fingers', the move's and the direction's
    struct Candidate
    {
        TermRows aRow;
        int16_t lCost; ///< above the cheapest of the list
        uint32_t nFrom;
    };
    void LinkByRows(ChordWays const& from, std::span<HeldWay const> aBefore, size_t nLeast, ChordWays& to);
    static TermRows RowsOf(ChordWays const& from, HeldWay const& before, ChordWays& to);
    static int32_t Furthest(TermRows const& rows, ChordWays const& to);
    void CheapestOf(std::span<Candidate const> aCandidates, ChordWays const& to);
    void LinkBySums(ChordWays const& from, std::span<HeldWay const> aBefore, ChordWays const& to);
    void Take(size_t nWay, int64_t lCost, uint32_t nFrom);

    StepPrices const& prices;
    FingerStates const& states;
    std::vector<Arrival> aArrivals;
    std::vector<Candidate> aCandidates;
    std::vector<Lanes> aBest;  ///< by way: the least sum of terms so far
    std::vector<Lanes> aWhich; ///< and the candidate that it came from
    std::vector<uint32_t> aFrom;
};
} // namespace zarn

/// All ways of playing one set of pitches, with what every step to them costs.
///
/// A step's price is a sum of terms, and the part of a term that belongs to the chord arrived at is the same whenever
/// the pitches are: so a row of prices, one for each way, is worked out once for each place a finger may come from,
/// each move of the hand and each melody note before, and kept. A link of two chords then only adds up rows.
#pragma once
#include "tab/fingers_cost.h"
#include "tab/lanes.h"

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

namespace zarn
{
/// The different pitches of a chord, in the order of its notes.
struct PitchSet
{
    int32_t cPitches = 0;
    std::array<int32_t, lMostStrings> aPitch = {};

    [[nodiscard]] std::span<int32_t const> Pitches() const
    {
        return std::span(aPitch).first(static_cast<size_t>(cPitches));
    }
    friend bool operator==(PitchSet const&, PitchSet const&) = default;
};

/// Where a finger lies, as a small number; 0 is an idle finger.
using FingerState = uint16_t;
using HandState = std::array<FingerState, lFingers>;

/// Gives the states of fingers their numbers, in the order in which they come up.
class FingerStates
{
public:
    FingerStates();
    [[nodiscard]] FingerState Of(FingersFinger finger);
    [[nodiscard]] FingersFinger Finger(FingerState state) const { return aState[state].finger; }
    [[nodiscard]] FingerUse Use(FingerState state) const { return aState[state].use; }
    [[nodiscard]] size_t Count() const { return aState.size(); }
    /// Where the index finger would be if the fingers lay one to a fret, in twelfths of a fret; lNoHand without
    /// fingers.
    [[nodiscard]] int32_t Position(HandState const& hand) const;

private:
    struct State
    {
        FingersFinger finger;
        FingerUse use;
    };
    std::vector<State> aState;
    std::vector<FingerState> aNumber; ///< by mask and fret; 0 for none yet
};

/// Where the hand was before a step: in the record that is left, or at most three records further back.
struct HandBefore
{
    int16_t lPosition = lNoHand;
    int16_t lAgo = 0; ///< records ago; 0 in the record itself

    /// The chords over which the hand's way is spread.
    [[nodiscard]] int32_t Steps() const { return lAgo == 0 ? 1 : lAgo; }
};

class ChordWays
{
public:
    /// cbRows is kept at the bytes of all rows of all sets that share it.
    ChordWays(PitchSet const& pitches, StepPrices const& prices, FingerStates& states, size_t& cbRows);
    ~ChordWays() { DropRows(); }
    ChordWays(ChordWays const&) = delete;
    ChordWays& operator=(ChordWays const&) = delete;

    [[nodiscard]] size_t Count() const { return aWay.size(); }
    [[nodiscard]] Fingers const& Way(size_t n) const { return aWay[n]; }
    [[nodiscard]] HandState const& Hand(size_t n) const { return aHand[n]; }
    [[nodiscard]] int32_t Position(size_t n) const { return aPosition[n]; }
    [[nodiscard]] MelodyNote Note(size_t n) const { return aNote[n]; }
    /// What arriving at a way costs, wherever from: its own price and the hand's position.
    [[nodiscard]] int64_t Arrival(size_t n) const { return aArrival[n]; }
    [[nodiscard]] int64_t LeastArrival() const { return lLeastArrival; }

    /// Rows of prices, one number for each way, Vectors() of lanes each; prices have to fit (StepPrices::Furthest).
    /// What is given is the row's place in Rows(), which moves as rows are made.
    [[nodiscard]] size_t Vectors() const { return Lanes_For(aWay.size()); }
    [[nodiscard]] Lanes const* Rows() const { return aRows.data(); }
    [[nodiscard]] uint32_t FingerRow(size_t inxFinger, FingerState before)
    {
        if (before >= aFingerRow.size())
            aFingerRow.resize(states.Count());
        uint32_t const nRow = aFingerRow[before][inxFinger];
        return nRow != 0 ? nRow : NewFingerRow(inxFinger, before);
    }
    [[nodiscard]] uint32_t MoveRow(HandBefore before)
    {
        if (before.lPosition == lNoHand)
            return 0;
        if (aMoveRow.empty())
            aMoveRow.resize(lPositions * lMostSteps);
        auto const n = static_cast<size_t>((before.lPosition - lLowestPosition) * lMostSteps + before.Steps() - 1);
        return aMoveRow[n] != 0 ? aMoveRow[n] : aMoveRow[n] = NewMoveRow(before);
    }
    [[nodiscard]] uint32_t DirectionRow(MelodyNote before);

    [[nodiscard]] size_t WayBytes() const; ///< that it takes up without its rows, about
    void DropRows();

private:
    static constexpr int32_t lLowestPosition = (1 - (lFingers - 1)) * lPositionsToFret; ///< finger 4 at the first fret
    static constexpr size_t lPositions = lHighestFret * lPositionsToFret - lLowestPosition + 1;

    uint32_t NewFingerRow(size_t inxFinger, FingerState before);
    uint32_t NewMoveRow(HandBefore before);
    void Grow(size_t cVectors);
    template <typename Price>
    uint32_t NewRow(Price price);

    StepPrices const& prices;
    FingerStates const& states;
    size_t& cbRows;
    std::vector<Fingers> aWay;
    std::vector<HandState> aHand;
    std::vector<int32_t> aPosition;
    std::vector<MelodyNote> aNote;
    std::vector<int64_t> aArrival;
    std::vector<int32_t> aMelodyPitch; ///< the different pitches of aNote, rising
    int64_t lLeastArrival = 0;

    std::vector<Lanes> aRows;
    std::vector<std::array<uint32_t, lFingers>> aFingerRow; ///< by state; 0 for none yet
    std::array<uint32_t, lFingers* lFingerUses> aUseRow = {};
    std::vector<uint32_t> aMoveRow;
    std::vector<uint32_t> aDirectionRow;
};

/// The sets of a search, within bounds: when they take up too much, all are forgotten and made again as they come up.
class ChordWaysStore
{
public:
    ChordWaysStore(StepPrices const& prices, FingerStates& states, size_t cbMost = 3'000'000)
        : prices(prices), states(states), cbMost(cbMost)
    {
    }
    /// Never null; without ways when the pitches can't be played.
    [[nodiscard]] std::shared_ptr<ChordWays> Get(PitchSet const& pitches);

private:
    struct Hash
    {
        size_t operator()(PitchSet const& pitches) const;
    };
    StepPrices const& prices;
    FingerStates& states;
    size_t cbMost;
    size_t cbRows = 0;
    size_t cbWays = 0;
    std::unordered_map<PitchSet, std::shared_ptr<ChordWays>, Hash> aSets;
};
} // namespace zarn

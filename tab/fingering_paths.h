/// The paths of a search that are still alive, and what has become of the chords on which they all agree.
///
/// Every way of the latest chord has a path behind it. Looked at from there the paths run together a few chords back,
/// as a rule: the chords before are decided, and only what is stored in their notes is kept of them.
#pragma once
#include "tab/chord_link.h"
#include "tab/fingering.h"

#include <deque>
#include <memory>
#include <span>
#include <vector>

namespace zarn
{
/// How a chord is played in the end.
struct ChosenWay
{
    std::array<FingersString, lMostStrings> aString = {};
    int32_t lOwnCost = 0;
    int32_t lStepCost = 0;
    int32_t lTotalCost = 0;
};

class FingeringPaths
{
public:
    /// bPrices: the prices are kept too.
    explicit FingeringPaths(bool bPrices) : bPrices(bPrices) {}

    /// The first chord; each way begins a path at its own price.
    void Begin(std::shared_ptr<ChordWays const> pWays);
    /// The chord behind the latest one. nFrom of each arrival is a place in aBefore, the list of the latest.
    void Add(std::shared_ptr<ChordWays const> pWays, std::span<Arrival const> aArrivals,
             std::span<HeldWay const> aBefore);

    /// The cheapest path whole, the first one among equals; empty when every path costs lBestStart or more.
    [[nodiscard]] std::vector<ChosenWay> Cheapest();
    /// Where the search breaks off: of each chord the first way that is on any path alive.
    [[nodiscard]] std::vector<ChosenWay> FirstAlive();

private:
    struct Column
    {
        std::shared_ptr<ChordWays const> pWays;
        std::vector<uint32_t> aFrom; ///< by way: the way of the chord before; empty in the first chord
        std::vector<int32_t> aTotal; ///< by way, when prices are kept
        std::vector<int32_t> aStep;
    };
    using Ways = std::vector<uint32_t>; ///< rising

    [[nodiscard]] static Ways Before(Column const& column, Ways const& aAlive);
    [[nodiscard]] Ways AllOfLatest() const;
    void Append(Column column);
    void Decide();
    void DecideUpTo(size_t nColumn, uint32_t nWay);
    void Choose(Column const& column, uint32_t nWay);

    bool bPrices;
    std::vector<ChosenWay> aDecided;
    std::deque<Column> aOpen;          ///< the chords behind those
    std::vector<int32_t> aLatestTotal; ///< of the latest chord, by way
    size_t cOpenToDecide = 0;
};
} // namespace zarn

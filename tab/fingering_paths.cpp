// Paths as columns of back-pointers, looked through every so often for the place where they run together.
#include "tab/fingering_paths.h"

#include "core/text.h"

#include <algorithm>
#include <numeric>

namespace zarn
{
constexpr size_t cFewestToDecide = 32; ///< open chords before the paths are looked through

void FingeringPaths::Begin(std::shared_ptr<ChordWays const> pWays)
{
    Column column{.pWays = std::move(pWays), .aFrom = {}, .aTotal = {}, .aStep = {}};
    aLatestTotal.clear();
    for (size_t n = 0; n < column.pWays->Count(); ++n)
        aLatestTotal.push_back(column.pWays->Way(n).lCost);
    if (bPrices)
    {
        column.aTotal = aLatestTotal;
        column.aStep.resize(column.pWays->Count());
    }
    Append(std::move(column));
}

void FingeringPaths::Add(std::shared_ptr<ChordWays const> pWays, std::span<Arrival const> aArrivals,
                         std::span<HeldWay const> aBefore)
{
    Column column{.pWays = std::move(pWays), .aFrom = {}, .aTotal = {}, .aStep = {}};
    aLatestTotal.clear();
    column.aFrom.reserve(aArrivals.size());
    for (size_t n = 0; n < aArrivals.size(); ++n)
    {
        Arrival const& arrival = aArrivals[n];
        HeldWay const& before = aBefore[arrival.nFrom];
        column.aFrom.push_back(before.nWay);
        aLatestTotal.push_back(arrival.lCost);
        if (bPrices)
            column.aStep.push_back(Clamp32(int64_t{arrival.lCost} - before.lCost - column.pWays->Way(n).lCost));
    }
    if (bPrices)
        column.aTotal = aLatestTotal;
    Append(std::move(column));
}

void FingeringPaths::Append(Column column)
{
    aOpen.push_back(std::move(column));
    if (aOpen.size() > std::max(cOpenToDecide, cFewestToDecide))
        Decide();
}

/// The ways of the chord before that lead to any of those.
FingeringPaths::Ways FingeringPaths::Before(Column const& column, Ways const& aAlive)
{
    Ways aBefore;
    for (uint32_t n : aAlive)
        aBefore.push_back(column.aFrom[n]);
    std::ranges::sort(aBefore);
    aBefore.erase(std::unique(aBefore.begin(), aBefore.end()), aBefore.end());
    return aBefore;
}

FingeringPaths::Ways FingeringPaths::AllOfLatest() const
{
    Ways aAll(aLatestTotal.size());
    std::iota(aAll.begin(), aAll.end(), 0u);
    return aAll;
}

/// While the paths don't run together the next look waits for twice as many chords, so that all looks together take
/// time in proportion to the length.
void FingeringPaths::Decide()
{
    Ways aAlive = AllOfLatest();
    for (size_t nColumn = aOpen.size() - 1; nColumn > 0; --nColumn)
    {
        aAlive = Before(aOpen[nColumn], aAlive);
        if (aAlive.size() == 1)
        {
            DecideUpTo(nColumn - 1, aAlive[0]);
            break;
        }
    }
    cOpenToDecide = 2 * aOpen.size();
}

/// The open chords up to that one are played as the path that ends with that way plays them.
void FingeringPaths::DecideUpTo(size_t nColumn, uint32_t nWay)
{
    std::vector<uint32_t> aWay(nColumn + 1);
    for (size_t n = nColumn; n > 0; --n)
    {
        aWay[n] = nWay;
        nWay = aOpen[n].aFrom[nWay];
    }
    aWay[0] = nWay;
    for (uint32_t n : aWay)
    {
        Choose(aOpen.front(), n);
        aOpen.pop_front();
    }
}

void FingeringPaths::Choose(Column const& column, uint32_t nWay)
{
    Fingers const& way = column.pWays->Way(nWay);
    ChosenWay& chosen = aDecided.emplace_back(ChosenWay{.aString = way.aString, .lOwnCost = way.lCost});
    if (bPrices)
    {
        chosen.lStepCost = column.aStep[nWay];
        chosen.lTotalCost = column.aTotal[nWay];
    }
}

std::vector<ChosenWay> FingeringPaths::Cheapest()
{
    auto const best = std::ranges::min_element(aLatestTotal);
    if (*best >= lBestStart)
        return {};
    DecideUpTo(aOpen.size() - 1, static_cast<uint32_t>(best - aLatestTotal.begin()));
    return std::move(aDecided);
}

std::vector<ChosenWay> FingeringPaths::FirstAlive()
{
    std::vector<uint32_t> aFirst(aOpen.size());
    Ways aAlive = AllOfLatest();
    for (size_t n = aOpen.size(); n-- > 0;)
    {
        aFirst[n] = aAlive[0];
        if (n > 0)
            aAlive = Before(aOpen[n], aAlive);
    }
    for (size_t n = 0; n < aFirst.size(); ++n)
        Choose(aOpen[n], aFirst[n]);
    return std::move(aDecided);
}
} // namespace zarn

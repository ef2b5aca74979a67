// The inner loop of the search.
//
// The terms of a step come as rows of 16-bit numbers, one number for each way of the next chord, so eight ways at a
// time add up and compare. Costs count from the cheapest record of the list before, and what lies too far above it to
// be chosen by anyone is left out, so that sums fit. Weights that are too large for that are summed up one by one in 64
// bits, which gives the same and takes longer.
#include "tab/chord_link.h"

#include "core/text.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace zarn
{
namespace
{
/// The furthest that the terms of a step may be from 0 so that a sum with a candidate's cost fits 16 bits.
constexpr int64_t lFurthestByRows = 8000;
constexpr size_t cMostAtOnce = 32000; ///< candidates that a 16-bit number can tell apart

/// Where the hand was, for a record without one behind another record.
HandBefore HandFurtherBack(HandBefore before)
{
    if (before.lPosition == lNoHand || before.lAgo == lMostSteps)
        return {};
    return {.lPosition = before.lPosition, .lAgo = static_cast<int16_t>(before.lAgo + 1)};
}

uint32_t UsedFingers(HandState const& hand)
{
    uint32_t lUsed = 0;
    for (size_t i = 0; i < hand.size(); ++i)
        lUsed |= (hand[i] != 0 ? 1u : 0u) << i;
    return lUsed;
}
} // namespace

std::vector<HeldWay> FirstList(ChordWays const& ways)
{
    std::vector<HeldWay> aList;
    for (uint32_t n = 0; n < ways.Count(); ++n)
        aList.push_back({.hand = ways.Hand(n),
                         .before = {.lPosition = static_cast<int16_t>(ways.Position(n))},
                         .lCost = ways.Way(n).lCost,
                         .nWay = n});
    return aList;
}

std::span<Arrival const> ChordLinker::Link(ChordWays const& from, std::span<HeldWay const> aBefore, ChordWays& to)
{
    aArrivals.clear();
    auto const least = std::ranges::min_element(aBefore, {}, &HeldWay::lCost);
    // Where no total can fall out of 32 bits, a sum's parts may be added in any order.
    bool const bInRange = least->lCost - 2 * lFurthestByRows + to.LeastArrival() > INT32_MIN;
    if (prices.Furthest() <= lFurthestByRows && bInRange)
        LinkByRows(from, aBefore, static_cast<size_t>(least - aBefore.begin()), to);
    else
        LinkBySums(from, aBefore, to);
    return aArrivals;
}

/// Ways come in order. A way that nobody reaches takes the way's before it.
void ChordLinker::Take(size_t nWay, int64_t lCost, uint32_t nFrom)
{
    if (lCost < lBestStart)
        aArrivals.push_back({.nFrom = nFrom, .lCost = static_cast<int32_t>(lCost)});
    else
        aArrivals.push_back({.nFrom = nWay == 0 ? 0 : aArrivals.back().nFrom, .lCost = lBestStart});
}

void ChordLinker::LinkByRows(ChordWays const& from, std::span<HeldWay const> aBefore, size_t nLeast, ChordWays& to)
{
    // What lies above the most that it takes to come from the cheapest record is cheapest for nobody.
    int32_t const lLeast = aBefore[nLeast].lCost;
    int64_t const lMostAbove = Furthest(RowsOf(from, aBefore[nLeast], to), to) - prices.Least();
    aCandidates.clear();
    for (uint32_t n = 0; n < aBefore.size(); ++n)
    {
        int64_t const lAbove = int64_t{aBefore[n].lCost} - lLeast;
        if (lAbove <= lMostAbove)
            aCandidates.push_back(
                {.aRow = RowsOf(from, aBefore[n], to), .lCost = static_cast<int16_t>(lAbove), .nFrom = n});
    }
    aBest.resize(to.Vectors());
    for (Lanes& best : aBest)
        best.v = LaneVector{} + INT16_MAX;
    aWhich.resize(to.Vectors());
    aFrom.resize(to.Count());
    std::span<Candidate const> const aAll = aCandidates;
    for (size_t nBegin = 0; nBegin < aAll.size(); nBegin += cMostAtOnce)
    {
        for (Lanes& which : aWhich)
            which.v = LaneVector{} - 1;
        CheapestOf(aAll.subspan(nBegin, std::min(cMostAtOnce, aAll.size() - nBegin)), to);
        for (size_t n = 0; n < to.Count(); ++n)
            if (int16_t const nWhich = aWhich[n / lLanes].v[n % lLanes]; nWhich >= 0)
                aFrom[n] = aAll[nBegin + static_cast<size_t>(nWhich)].nFrom;
    }
    for (size_t n = 0; n < to.Count(); ++n)
        Take(n, lLeast + int64_t{aBest[n / lLanes].v[n % lLanes]} + to.Arrival(n), aFrom[n]);
}

ChordLinker::TermRows ChordLinker::RowsOf(ChordWays const& from, HeldWay const& before, ChordWays& to)
{
    return {to.FingerRow(0, before.hand[0]), to.FingerRow(1, before.hand[1]), to.FingerRow(2, before.hand[2]),
            to.FingerRow(3, before.hand[3]), to.MoveRow(before.before),       to.DirectionRow(from.Note(before.nWay))};
}

/// The highest sum of terms that any way has.
int32_t ChordLinker::Furthest(TermRows const& rows, ChordWays const& to)
{
    int32_t lMost = INT16_MIN;
    for (size_t n = 0; n < to.Count(); ++n)
    {
        int32_t lSum = 0;
        for (uint32_t nRow : rows)
            lSum += to.Rows()[nRow + n / lLanes].v[n % lLanes];
        lMost = std::max(lMost, lSum);
    }
    return lMost;
}

void ChordLinker::CheapestOf(std::span<Candidate const> aSome, ChordWays const& to)
{
    Lanes const* const pRows = to.Rows();
    size_t const cVectors = to.Vectors();
    Lanes* const pBest = aBest.data();
    Lanes* const pWhich = aWhich.data();
    int16_t nWhich = 0;
    for (Candidate const& candidate : aSome)
    {
        Lanes const* const p0 = pRows + candidate.aRow[0];
        Lanes const* const p1 = pRows + candidate.aRow[1];
        Lanes const* const p2 = pRows + candidate.aRow[2];
        Lanes const* const p3 = pRows + candidate.aRow[3];
        Lanes const* const pMove = pRows + candidate.aRow[4];
        Lanes const* const pDirection = pRows + candidate.aRow[5];
        LaneVector const lCost = LaneVector{} + candidate.lCost;
        LaneVector const lWhich = LaneVector{} + nWhich++;
        for (size_t i = 0; i < cVectors; ++i)
        {
            LaneVector const lSum = (p0[i].v + p1[i].v) + (p2[i].v + p3[i].v) + (pMove[i].v + pDirection[i].v) + lCost;
            LaneVector const bLess = lSum < pBest[i].v;
            pBest[i].v = (lSum & bLess) | (pBest[i].v & ~bLess);
            pWhich[i].v = (lWhich & bLess) | (pWhich[i].v & ~bLess);
        }
    }
}

void ChordLinker::LinkBySums(ChordWays const& from, std::span<HeldWay const> aBefore, ChordWays const& to)
{
    for (size_t n = 0; n < to.Count(); ++n)
    {
        int32_t lBest = lBestStart;
        uint32_t nBest = 0;
        for (uint32_t nFrom = 0; nFrom < aBefore.size(); ++nFrom)
        {
            HeldWay const& before = aBefore[nFrom];
            int64_t lCost = before.lCost + to.Arrival(n) + prices.Direction(from.Note(before.nWay), to.Note(n));
            for (size_t i = 0; i < before.hand.size(); ++i)
                if (before.hand[i] != to.Hand(n)[i])
                    lCost += prices.Change(states.Use(before.hand[i]), states.Use(to.Hand(n)[i]));
            if (before.before.lPosition != lNoHand && to.Position(n) != lNoHand)
                lCost += prices.Move(std::abs(to.Position(n) - before.before.lPosition), before.before.Steps());
            if (Clamp32(lCost) < lBest)
            {
                lBest = Clamp32(lCost);
                nBest = nFrom;
            }
        }
        Take(n, lBest, nBest);
    }
}

void ChordLinker::ListHeld(ChordWays const& to, std::span<HeldWay const> aBefore, std::vector<HeldWay>& aList) const
{
    aList.clear();
    for (uint32_t n = 0; n < to.Count(); ++n)
    {
        HeldWay const& from = aBefore[aArrivals[n].nFrom];
        HeldWay plain = {.hand = to.Hand(n),
                         .before = {.lPosition = static_cast<int16_t>(to.Position(n))},
                         .lCost = aArrivals[n].lCost,
                         .nWay = n};
        uint32_t const lFree = UsedFingers(from.hand) & ~UsedFingers(plain.hand);
        for (uint32_t lHeld = (0 - lFree) & lFree; lHeld != 0; lHeld = (lHeld - lFree) & lFree)
        {
            HeldWay& held = aList.emplace_back(plain);
            for (size_t i = 0; i < held.hand.size(); ++i)
                if (lHeld >> i & 1)
                    held.hand[i] = from.hand[i];
            held.before.lPosition = static_cast<int16_t>(states.Position(held.hand));
        }
        if (plain.before.lPosition == lNoHand)
            plain.before = HandFurtherBack(from.before);
        aList.push_back(plain);
    }
}
} // namespace zarn

#include "midi/play_order.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

namespace zarn
{
namespace
{
/// Each record of a run has its number as its column, so that equal times can be told apart.
PlayRecord Record(int32_t lTime, size_t lNumber)
{
    PlayRecord record;
    record.lTime = lTime;
    record.lColumn = static_cast<int32_t>(lNumber);
    return record;
}

/// The rule itself: behind the last record that isn't later.
PlayRecords Plain(PlayRecords const& records)
{
    PlayRecords plain;
    for (PlayRecord const& record : records)
    {
        auto at = plain.end();
        while (at != plain.begin() && std::prev(at)->lTime > record.lTime)
            --at;
        plain.insert(at, record);
    }
    return plain;
}

PlayRecords ChanceRun(std::mt19937& random, size_t cRecords, int32_t lStep, int32_t lBack)
{
    PlayRecords records;
    int32_t lTime = -1;
    for (size_t n = 0; n < cRecords; ++n)
    {
        lTime += static_cast<int32_t>(random() % static_cast<uint32_t>(lStep));
        records.push_back(Record(lTime - static_cast<int32_t>(random() % static_cast<uint32_t>(lBack)), n));
    }
    return records;
}
} // namespace

TEST(PlayOrder, ARunIsInTheOrderOfThePlainRuleHoweverFarItsRecordsStray)
{
    std::mt19937 random(5);
    for (int32_t const lStep : {1, 2, 50})
        for (int32_t const lBack : {1, 2, 60, 100'000})
            for (size_t const cRecords : {0u, 1u, 2u, 64u, 65u, 1000u})
            {
                PlayRecords records = ChanceRun(random, cRecords, lStep, lBack);
                PlayRecords const plain = Plain(records);
                SortPlayRun(records, 0);
                EXPECT_TRUE(records == plain) << lStep << ' ' << lBack << ' ' << cRecords;
            }
}

TEST(PlayOrder, WhatStandsAheadOfARunStays)
{
    PlayRecords records = {Record(500, 0), Record(400, 1), Record(20, 2), Record(10, 3)};
    SortPlayRun(records, 2);
    EXPECT_TRUE((records == PlayRecords{Record(500, 0), Record(400, 1), Record(10, 3), Record(20, 2)}));
}

TEST(PlayOrder, RunsMergeAsIfTheyHadComeOneBehindTheOther)
{
    std::mt19937 random(6);
    for (size_t cRuns = 0; cRuns < 12; ++cRuns)
    {
        PlayRecords records;
        PlayRecords arrived;
        std::vector<size_t> aRuns = {0};
        for (size_t n = 0; n < cRuns; ++n)
        {
            PlayRecords const run = ChanceRun(random, random() % 40, 5, 3);
            for (PlayRecord record : run)
            {
                record.lChannel = static_cast<int32_t>(n);
                records.push_back(record);
                arrived.push_back(record);
            }
            SortPlayRun(records, aRuns.back());
            aRuns.push_back(records.size());
        }
        MergePlayRuns(records, aRuns);
        EXPECT_TRUE(records == Plain(arrived)) << cRuns;
    }
}
} // namespace zarn

#include "midi/quantise.h"

#include "core/text.h"

#include <gtest/gtest.h>

namespace zarn
{
TEST(Quantise, LengthsGoToWhatTheNotationWrites)
{
    struct
    {
        int32_t lTicks, lLength;
    } const aCase[] = {{0, 0},     {5, 0},    {6, 12},   {17, 12},   {18, 24},   {47, 48},         {60, 48},
                       {84, 72},   {108, 96}, {120, 96}, {144, 144}, {216, 192}, {288, 288},       {300, 288},
                       {384, 384}, {-6, 0},   {-500, 0}, {432, 288}, {576, 576}, {1'000'000, 288}, {INT32_MIN, 0}};
    for (auto const& c : aCase)
        EXPECT_EQ(Quantise(c.lTicks), c.lLength) << c.lTicks;
    EXPECT_GT(Quantise(INT32_MAX), 0);
}

TEST(Quantise, AgreesWithAPlainTableForEveryLengthUpToTwoBars)
{
    // From this many ticks on, up to the next row's.
    struct
    {
        int32_t lFrom, lLength;
    } const aRow[] = {{0, 0},     {6, 12},    {18, 24},   {30, 36},   {42, 48},   {66, 72},   {90, 96},
                      {126, 128}, {138, 144}, {186, 192}, {282, 288}, {378, 384}, {390, 288}, {401, -1}};
    for (size_t n = 0; aRow[n].lLength >= 0; ++n)
        for (int32_t lTicks = aRow[n].lFrom; lTicks < aRow[n + 1].lFrom; ++lTicks)
            EXPECT_EQ(Quantise(lTicks), aRow[n].lLength) << lTicks;
}

TEST(Truncate, GoesTowardZeroAndStaysInRange)
{
    struct
    {
        double d;
        int32_t l;
    } const aCase[] = {{0.99, 0}, {-0.99, 0}, {24.5, 24}, {-24.5, -24}, {1e30, INT32_MAX}, {-1e30, INT32_MIN}};
    for (auto const& c : aCase)
        EXPECT_EQ(Truncate(c.d), c.l) << c.d;
}

TEST(Quantise, LengthsThatWereExactOrNothingAreLogged)
{
    static std::string sLog;
    sLog.clear();
    pDebugLogSink = [](std::string_view s) { sLog += s; };
    static_cast<void>(Quantise(5));
    static_cast<void>(Quantise(18));
    static_cast<void>(Quantise(60));
    pDebugLogSink = nullptr;
    EXPECT_EQ(sLog, "Quantise0(5) = 0\r\nQuantise2(18) = 24\r\n");
}
} // namespace zarn

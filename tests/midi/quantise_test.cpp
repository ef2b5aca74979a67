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

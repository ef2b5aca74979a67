// The virtual clock and its timers, and what a thread can wait for.
#include "platform/headless/virtual_sound.h"

#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <thread>

namespace zarn::test
{
namespace
{
struct VirtualClock : testing::Test
{
    VirtualClock() { host.pSound = &sound; }

    ScriptedProcess process;
    VirtualSound sound{process.user};
};
} // namespace

TEST_F(VirtualClock, TimersCallInTheOrderOfTheirTimesAsTimePasses)
{
    std::vector<std::pair<char, uint32_t>> aCalls;
    process.user.SetTimer(1, 30, [&] { aCalls.emplace_back('a', timeGetTime()); });
    process.user.SetTimer(2, 50, [&] { aCalls.emplace_back('b', timeGetTime()); });
    Sleep(100);
    EXPECT_EQ(aCalls, (std::vector<std::pair<char, uint32_t>>{{'a', 30}, {'b', 50}, {'a', 60}, {'a', 90}, {'b', 100}}));
    EXPECT_EQ(timeGetTime(), 100u);
}

TEST_F(VirtualClock, TimeAndTimersGoOnAcrossTheEndOfTheClock)
{
    process.user.lNowMs = UINT32_MAX - 49;
    std::vector<uint32_t> aCalls;
    process.user.SetTimer(1, 40, [&] { aCalls.push_back(timeGetTime()); });
    Sleep(100);
    EXPECT_EQ(aCalls, (std::vector<uint32_t>{UINT32_MAX - 9, 30}));
    EXPECT_EQ(timeGetTime(), 50u);
}

TEST_F(VirtualClock, ATimerThatSleepsHoldsTheOthersUp)
{
    std::vector<uint32_t> aCalls;
    process.user.SetTimer(1, 10,
                          [&]
                          {
                              process.user.KillTimer(1);
                              Sleep(95);
                          });
    process.user.SetTimer(2, 60, [&] { aCalls.push_back(timeGetTime()); });
    Sleep(20);
    EXPECT_EQ(aCalls, std::vector<uint32_t>{60});
    EXPECT_EQ(timeGetTime(), 105u);
}

TEST_F(VirtualClock, AWaitTakesItsTimeUnlessItsEventIsSet)
{
    WakeEvent event;
    EXPECT_FALSE(WaitForSingleObject(event, 70));
    EXPECT_EQ(timeGetTime(), 70u);
    event.Set();
    EXPECT_TRUE(WaitForSingleObject(event, 70));
    EXPECT_EQ(timeGetTime(), 70u);
    event.Reset();
    EXPECT_FALSE(event.IsSet());
}

TEST_F(VirtualClock, AWaitEndsWhenATimerSetsItsEvent)
{
    WakeEvent event;
    process.user.SetTimer(1, 30, [&] { event.Set(); });
    EXPECT_TRUE(WaitForSingleObject(event, 70));
}

TEST(WakeEvents, WakeAnotherThread)
{
    WakeEvent asked;
    WakeEvent answered;
    std::thread other(
        [&]
        {
            asked.Wait();
            answered.Set();
        });
    EXPECT_FALSE(answered.WaitFor(0));
    asked.Set();
    answered.Wait();
    EXPECT_TRUE(answered.WaitFor(0)) << "it stays set";
    other.join();
}
} // namespace zarn::test

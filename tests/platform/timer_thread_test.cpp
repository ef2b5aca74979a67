#include "platform/timer_thread.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace zarn::test
{
namespace
{
class Timers : public testing::Test
{
protected:
    void Note(int32_t l)
    {
        std::lock_guard const hold(lock);
        called.push_back(l);
    }
    [[nodiscard]] std::vector<int32_t> Called()
    {
        std::lock_guard const hold(lock);
        return called;
    }

    static constexpr uint32_t lNeverMs = 1000 * 1000;
    std::mutex lock;
    std::vector<int32_t> called;
    WakeEvent done;
    TimerThread timers;
};
} // namespace

TEST_F(Timers, TheyGoOffInTheOrderOfTheirTimes)
{
    timers.Set(30,
               [this]
               {
                   Note(3);
                   done.Set();
               });
    timers.Set(0, [this] { Note(1); });
    timers.Set(15, [this] { Note(2); });
    done.Wait();
    EXPECT_THAT(Called(), testing::ElementsAre(1, 2, 3));
}

TEST_F(Timers, OneGoesOffNoEarlierThanItsTime)
{
    auto const start = std::chrono::steady_clock::now();
    timers.Set(20, [this] { done.Set(); });
    done.Wait();
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
}

TEST_F(Timers, EachHasANumberOfItsOwn)
{
    uint32_t const nFirst = timers.Set(lNeverMs, [] {});
    uint32_t const nSecond = timers.Set(lNeverMs, [] {});
    EXPECT_NE(nFirst, 0u);
    EXPECT_NE(nSecond, 0u);
    EXPECT_NE(nFirst, nSecond);
}

TEST_F(Timers, ACallbackSetsTheNext)
{
    std::function<void()> tick = [&]
    {
        Note(static_cast<int32_t>(Called().size()));
        if (Called().size() < 5)
            timers.Set(1, tick);
        else
            done.Set();
    };
    timers.Set(1, tick);
    done.Wait();
    EXPECT_THAT(Called(), testing::ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(Timers, OneThatWasKilledDoesNotGoOff)
{
    uint32_t const nKilled = timers.Set(5, [this] { Note(1); });
    timers.Kill(nKilled);
    timers.Set(10, [this] { done.Set(); });
    done.Wait();
    EXPECT_THAT(Called(), testing::IsEmpty());
}

TEST_F(Timers, KillingWaitsForTheCallbackThatRuns)
{
    WakeEvent begun;
    WakeEvent goOn;
    std::atomic<bool> bEnded = false;
    uint32_t const nTimer = timers.Set(0,
                                       [&]
                                       {
                                           begun.Set();
                                           goOn.Wait();
                                           bEnded = true;
                                       });
    begun.Wait();
    std::thread release([&] { goOn.Set(); });
    timers.Kill(nTimer);
    EXPECT_TRUE(bEnded);
    release.join();
}

TEST_F(Timers, NoCallbackBeginsOnceItsTimerIsKilled)
{
    for (int32_t l = 0; l < 500; ++l) // whichever comes first
    {
        auto const killed = std::make_shared<std::atomic<bool>>(false);
        uint32_t const nTimer = timers.Set(0,
                                           [this, killed]
                                           {
                                               if (*killed)
                                                   Note(0);
                                           });
        timers.Kill(nTimer);
        *killed = true;
    }
    timers.Set(0, [this] { done.Set(); });
    done.Wait();
    EXPECT_THAT(Called(), testing::IsEmpty());
}

TEST_F(Timers, ACallbackMayKillItselfAndOthers)
{
    uint32_t const nOther = timers.Set(lNeverMs, [this] { Note(2); });
    std::atomic<uint32_t> nSelf = 0;
    WakeEvent known;
    nSelf = timers.Set(0,
                       [&]
                       {
                           known.Wait();
                           timers.Kill(nSelf);
                           timers.Kill(nOther);
                           Note(1);
                           done.Set();
                       });
    known.Set();
    done.Wait();
    EXPECT_THAT(Called(), testing::ElementsAre(1));
}

TEST_F(Timers, KillingWhatIsNoTimerIsNothing)
{
    timers.Kill(0);
    timers.Kill(12345);
    uint32_t const nGone = timers.Set(0, [this] { done.Set(); });
    done.Wait();
    timers.Kill(nGone);
    timers.Kill(nGone);
}

TEST(TimerThreads, OneThatEndsDropsWhatIsSetAndWaitsForWhatRuns)
{
    std::atomic<int32_t> cCalls = 0;
    WakeEvent begun;
    {
        TimerThread timers;
        timers.Set(1000 * 1000, [&] { ++cCalls; });
        timers.Set(0,
                   [&]
                   {
                       begun.Set();
                       ++cCalls;
                   });
        begun.Wait();
    }
    EXPECT_EQ(cCalls, 1);
}
} // namespace zarn::test

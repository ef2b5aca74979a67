#include "platform/program_sound.h"

#include <gtest/gtest.h>

#include <atomic>

namespace zarn::test
{
TEST(ProgramSound, TheClockHasGoneOnByWhatWasSlept)
{
    ProgramSound sound;
    for (uint32_t const lMs : {0u, 1u, 5u, 20u})
    {
        uint32_t const lFrom = sound.Time();
        sound.Sleep(lMs);
        EXPECT_GE(sound.Time() - lFrom, lMs);
    }
}

TEST(ProgramSound, ASleepEndsWhenItsEventIsSet)
{
    ProgramSound sound;
    WakeEvent event;
    EXPECT_FALSE(sound.SleepUntil(2, event));
    std::thread setter([&] { event.Set(); });
    EXPECT_TRUE(sound.SleepUntil(1000 * 1000, event));
    setter.join();
}

TEST(ProgramSound, ItsThreadsHaveEndedWhenItEnds)
{
    std::atomic<int32_t> cEnded = 0;
    {
        ProgramSound sound;
        for (int32_t l = 0; l < 20; ++l)
            EXPECT_TRUE(sound.StartThread(
                [&]
                {
                    sound.Sleep(1);
                    ++cEnded;
                }));
    }
    EXPECT_EQ(cEnded, 20);
}

TEST(ProgramSound, AThreadMayStartAnother)
{
    std::atomic<bool> bRan = false;
    WakeEvent done;
    {
        ProgramSound sound;
        EXPECT_TRUE(sound.StartThread(
            [&]
            {
                EXPECT_TRUE(sound.StartThread([&] { bRan = true; }));
                done.Set();
            }));
        done.Wait();
    }
    EXPECT_TRUE(bRan);
}

TEST(ProgramSound, ATimerGoesOffOnItsOwnThread)
{
    ProgramSound sound;
    WakeEvent done;
    std::atomic<bool> bElsewhere = false;
    auto const here = std::this_thread::get_id();
    EXPECT_NE(sound.SetTimer(1,
                             [&]
                             {
                                 bElsewhere = std::this_thread::get_id() != here;
                                 done.Set();
                             }),
              0u);
    done.Wait();
    EXPECT_TRUE(bElsewhere);
}
} // namespace zarn::test

// Priorities and exact sleeping. The systems differ in how both are asked for.
#include "platform/realtime.h"

#if defined(_WIN32)
#include <thread>
#include <windows.h>

#include <mmsystem.h>
#else
#include <cerrno>
#include <ctime>
#include <pthread.h>
#include <sched.h>
#include <thread>
#endif

namespace zarn
{
#if defined(_WIN32)
void Thread_RaisePriority() { SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_TIME_CRITICAL); }
void Thread_SleepUntil(std::chrono::steady_clock::time_point moment) { std::this_thread::sleep_until(moment); }
void Clock_BeginFine() { timeBeginPeriod(1); }
void Clock_EndFine() { timeEndPeriod(1); }
#else
void Thread_RaisePriority()
{
    constexpr int lTimeCritical = 15;
    sched_param priority{};
    priority.sched_priority = lTimeCritical;
    pthread_setschedparam(pthread_self(), SCHED_FIFO, &priority);
}

#if defined(__linux__)
void Thread_SleepUntil(std::chrono::steady_clock::time_point moment)
{
    // The steady clock is CLOCK_MONOTONIC; a thread that loses the processor on its way into the sleep isn't late.
    auto const cNanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(moment.time_since_epoch()).count();
    constexpr int64_t cInSecond = 1'000'000'000;
    timespec const until{static_cast<time_t>(cNanoseconds / cInSecond), static_cast<long>(cNanoseconds % cInSecond)};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR)
    {
    }
}
#else
void Thread_SleepUntil(std::chrono::steady_clock::time_point moment) { std::this_thread::sleep_until(moment); }
#endif

// The clock is as fine as it gets.
void Clock_BeginFine() {}
void Clock_EndFine() {}
#endif
} // namespace zarn

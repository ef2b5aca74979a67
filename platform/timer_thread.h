/// One-shot timers, all on one thread: callbacks come one after the other, in the order of their times.
#pragma once
#include "platform/winmm.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace zarn
{
/// The thread begins with the first timer. Any thread may set and kill, callbacks too.
class TimerThread
{
public:
    TimerThread() = default;
    ~TimerThread(); ///< What hasn't gone off never will; a callback that runs is waited for.
    TimerThread(TimerThread const&) = delete;
    TimerThread& operator=(TimerThread const&) = delete;

    /// The timer's number; 0 when the thread can't be made.
    uint32_t Set(uint32_t cMilliseconds, TimerCallback callback);
    /// The callback won't begin after this returns, and one that runs has ended (unless it is the caller).
    void Kill(uint32_t nTimer);

private:
    using Moment = std::chrono::steady_clock::time_point;
    using Due = std::pair<Moment, uint32_t>; ///< equal times in the order in which they were set

    void Run();

    std::mutex lock;
    std::condition_variable changed; ///< the timers, or the end
    std::condition_variable ended;   ///< a callback
    std::map<Due, TimerCallback> timers;
    std::thread thread;
    uint32_t nLast = 0;
    uint32_t nRunning = 0; ///< whose callback runs; 0 for none
    bool bEnd = false;
};
} // namespace zarn

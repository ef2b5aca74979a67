// A queue of callbacks by time, and the thread that waits for the first.
#include "platform/timer_thread.h"

#include "platform/realtime.h"

#include <algorithm>
#include <system_error>

namespace zarn
{
TimerThread::~TimerThread()
{
    {
        std::lock_guard const hold(lock);
        bEnd = true;
    }
    changed.notify_one();
    if (thread.joinable())
        thread.join();
}

uint32_t TimerThread::Set(uint32_t cMilliseconds, TimerCallback callback)
{
    std::lock_guard const hold(lock);
    if (!thread.joinable())
    {
        try
        {
            thread = std::thread([this] { Run(); });
        }
        catch (std::system_error const&)
        {
            return 0;
        }
    }
    if (++nLast == 0) // after four thousand million timers: 0 is no timer
        ++nLast;
    Moment const due = std::chrono::steady_clock::now() + std::chrono::milliseconds(cMilliseconds);
    timers.emplace(Due{due, nLast}, std::move(callback));
    changed.notify_one();
    return nLast;
}

void TimerThread::Kill(uint32_t nTimer)
{
    std::unique_lock hold(lock);
    auto const timer = std::find_if(timers.begin(), timers.end(),
                                    [nTimer](auto const& entry) { return entry.first.second == nTimer; });
    if (timer != timers.end())
        timers.erase(timer);
    if (nTimer != 0 && std::this_thread::get_id() != thread.get_id())
        ended.wait(hold, [this, nTimer] { return nRunning != nTimer; });
}

void TimerThread::Run()
{
    Thread_RaisePriority();
    std::unique_lock hold(lock);
    while (!bEnd)
    {
        if (timers.empty())
        {
            changed.wait(hold);
            continue;
        }
        auto const first = timers.begin();
        if (first->first.first > std::chrono::steady_clock::now())
        {
            Moment const due = first->first.first; // the entry may go while nobody holds the lock
            changed.wait_until(hold, due);
            continue;
        }
        nRunning = first->first.second;
        TimerCallback const callback = std::move(first->second);
        timers.erase(first);
        hold.unlock();
        callback();
        hold.lock();
        nRunning = 0;
        ended.notify_all();
    }
}
} // namespace zarn

/// Sound with real threads and a fast clock, for what only several threads can show.
#pragma once
#include "platform/winmm.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zarn::test
{
/// One output; threads are joined when this is destroyed.
class ThreadedSound : public SoundHost
{
public:
    ~ThreadedSound() override
    {
        for (std::thread& thread : threads)
            thread.join();
    }

    uint32_t Time() override
    {
        if (bClockStands)
            return 0;
        auto const elapsed = std::chrono::steady_clock::now() - start;
        return static_cast<uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(elapsed * nSpeed).count());
    }
    void Sleep(uint32_t cMilliseconds) override
    {
        WakeEvent never;
        SleepUntil(cMilliseconds, never);
    }
    bool SleepUntil(uint32_t cMilliseconds, WakeEvent& event) override
    {
        if (!bClockStands)
            return event.WaitFor(cMilliseconds / nSpeed);
        event.Wait();
        return true;
    }
    void BeginPeriod() override { ++cPeriods; }
    void EndPeriod() override { --cPeriods; }
    bool StartThread(std::function<void()> work) override
    {
        threads.emplace_back(std::move(work));
        return true;
    }
    uint32_t SetTimer(uint32_t, TimerCallback) override { return 0; }
    void KillTimer(uint32_t) override {}

    int32_t OutCount() override { return 1; }
    uint32_t OutName(int32_t, std::string& szName) override
    {
        szName = "Threaded synthesizer";
        return MMSYSERR_NOERROR;
    }
    uint32_t OutOpen(int32_t, HMIDIOUT& hOut) override
    {
        hOut = new Port(*this);
        return MMSYSERR_NOERROR;
    }
    int32_t InCount() override { return 0; }
    uint32_t InName(int32_t, std::string&) override { return MMSYSERR_BADDEVICEID; }
    uint32_t InOpen(int32_t, MidiSink&, HMIDIIN&) override { return MMSYSERR_BADDEVICEID; }
    bool OutErrorText(uint32_t nResult, std::string& szText) override
    {
        szText = "Error " + std::to_string(nResult);
        return true;
    }
    bool InErrorText(uint32_t, std::string&) override { return false; }

    [[nodiscard]] std::vector<uint32_t> Sent()
    {
        std::scoped_lock const hold(lock);
        return sent;
    }

    static constexpr uint32_t nSpeed = 100;
    std::atomic<bool> bClockStands = false; ///< no time passes: only what wakes a wait ends it
    std::atomic<uint32_t> nSendResult = MMSYSERR_NOERROR;
    std::atomic<int32_t> cPeriods = 0;
    std::atomic<int32_t> cOpen = 0;
    WakeEvent noteSent; ///< a note has begun

private:
    struct Port : MidiOutPort
    {
        explicit Port(ThreadedSound& sound) : sound(sound) { ++sound.cOpen; }
        ~Port() override { --sound.cOpen; }
        uint32_t Send(uint32_t dwMessage) override
        {
            uint32_t const nResult = sound.nSendResult;
            if (nResult != MMSYSERR_NOERROR)
                return nResult;
            {
                std::scoped_lock const hold(sound.lock);
                sound.sent.push_back(dwMessage);
            }
            if ((dwMessage & 0xF0) == 0x90 && dwMessage >> 16 != 0)
                sound.noteSent.Set();
            return MMSYSERR_NOERROR;
        }
        ThreadedSound& sound;
    };

    std::chrono::steady_clock::time_point const start = std::chrono::steady_clock::now();
    std::mutex lock;
    std::vector<uint32_t> sent;
    std::vector<std::thread> threads;
};
} // namespace zarn::test

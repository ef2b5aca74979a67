/// The sound of the program: clock, threads and timers of its own, devices of the sound module.
#pragma once
#include "platform/sound_module.h"
#include "platform/timer_thread.h"
#include "platform/winmm.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zarn
{
/// The sound module, loaded at the first call from the program's folder; null when it can't be, and sError is a
/// sentence for the user. The environment may choose: ZARN_SOUND_FONT and ZARN_SOUND_DRIVER are the fields of
/// SoundSetup. Main thread.
[[nodiscard]] SoundModule* Sound_Module(std::string& sError);

/// Without the module there are no devices, and all else works.
class ProgramSound : public SoundHost
{
public:
    ProgramSound() = default;
    ~ProgramSound() override; ///< Waits for all threads; no timer goes off any more.
    ProgramSound(ProgramSound const&) = delete;
    ProgramSound& operator=(ProgramSound const&) = delete;

    uint32_t Time() override;
    /// Wakes as the clock goes on to the last of these milliseconds, so Time() has then grown by just as many.
    void Sleep(uint32_t cMilliseconds) override;
    bool SleepUntil(uint32_t cMilliseconds, WakeEvent& event) override;
    void BeginPeriod() override;
    void EndPeriod() override;
    bool StartThread(std::function<void()> work) override;
    /// All timers have one thread.
    uint32_t SetTimer(uint32_t cMilliseconds, TimerCallback callback) override;
    /// A callback that runs has ended when this returns (unless it is the caller), so hold nothing that it may wait
    /// for.
    void KillTimer(uint32_t nTimer) override { timers.Kill(nTimer); }

    int32_t OutCount() override;
    uint32_t OutName(int32_t lDevice, std::string& szName) override;
    uint32_t OutOpen(int32_t lDevice, HMIDIOUT& hOut) override;
    int32_t InCount() override;
    uint32_t InName(int32_t lDevice, std::string& szName) override;
    uint32_t InOpen(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn) override;
    bool OutErrorText(uint32_t nResult, std::string& szText) override { return ErrorText(nResult, szText); }
    bool InErrorText(uint32_t nResult, std::string& szText) override { return ErrorText(nResult, szText); }

private:
    struct Worker
    {
        std::atomic<bool> bDone = false;
        std::thread thread;
    };

    [[nodiscard]] std::chrono::milliseconds Now() const;
    [[nodiscard]] std::chrono::steady_clock::time_point In(uint32_t cMilliseconds) const;
    SoundModule* Devices();
    bool ErrorText(uint32_t nResult, std::string& szText);

    std::chrono::steady_clock::time_point const start = std::chrono::steady_clock::now();
    std::atomic<SoundModule*> pDevices = nullptr; ///< null until a device is asked for, or for good
    std::vector<std::string> aOutputs;            ///< names, as they were last counted
    std::vector<std::string> aInputs;
    std::mutex workersLock;
    std::list<Worker> workers; ///< those that have ended go when the next begins
    TimerThread timers;
};
} // namespace zarn

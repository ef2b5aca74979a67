// A take on three threads, as on a real machine: the input's, the main one, and the timer's. For the thread sanitizer.
#include "support/recording_fixture.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <thread>

namespace zarn::test
{
namespace
{
/// A clock that somebody moves, and timers that go off on a thread of their own once it has passed them.
class ThreadedSound : public SoundHost
{
public:
    ThreadedSound() : timerThread([this] { RunTimers(); }) {}
    ~ThreadedSound() override
    {
        {
            std::scoped_lock const hold(lock);
            bEnd = true;
        }
        changed.notify_all();
        timerThread.join();
    }

    /// The clock goes on.
    void Advance(uint32_t cMilliseconds)
    {
        {
            std::scoped_lock const hold(lock);
            lNowMs += cMilliseconds;
        }
        changed.notify_all();
    }
    /// Until all that is due has gone off and come back.
    void AwaitTimers()
    {
        std::unique_lock hold(lock);
        changed.wait(hold, [this] { return nRunning == 0 && !IsDue(); });
    }
    [[nodiscard]] bool HasTimers()
    {
        std::scoped_lock const hold(lock);
        return !timers.empty();
    }

    uint32_t Time() override { return lNowMs; }
    void Sleep(uint32_t) override { std::this_thread::yield(); }
    void BeginPeriod() override {}
    void EndPeriod() override {}
    bool StartThread(std::function<void()>) override { return false; }
    uint32_t SetTimer(uint32_t cMilliseconds, TimerCallback callback) override
    {
        std::scoped_lock const hold(lock);
        ++nLastTimer;
        timers[{lNowMs + cMilliseconds, nLastTimer}] = std::move(callback);
        return nLastTimer;
    }
    void KillTimer(uint32_t nTimer) override
    {
        std::unique_lock hold(lock);
        std::erase_if(timers, [nTimer](auto const& timer) { return timer.first.second == nTimer; });
        changed.wait(hold, [this, nTimer] { return nRunning != nTimer || nRunning == 0; });
    }

    int32_t OutCount() override { return 1; }
    uint32_t OutName(int32_t, std::string&) override { return MMSYSERR_NOERROR; }
    uint32_t OutOpen(int32_t, HMIDIOUT& hOut) override
    {
        hOut = new OutPort(*this);
        return MMSYSERR_NOERROR;
    }
    int32_t InCount() override { return 1; }
    uint32_t InName(int32_t, std::string&) override { return MMSYSERR_NOERROR; }
    uint32_t InOpen(int32_t, MidiSink& sink, HMIDIIN& hIn) override
    {
        pSink = &sink;
        hIn = new InPort;
        return MMSYSERR_NOERROR;
    }
    bool OutErrorText(uint32_t, std::string&) override { return false; }
    bool InErrorText(uint32_t, std::string&) override { return false; }

    std::atomic<int32_t> cTicksHeard = 0;
    MidiSink* pSink = nullptr;

private:
    struct OutPort : MidiOutPort
    {
        explicit OutPort(ThreadedSound& sound) : sound(sound) {}
        uint32_t Send(uint32_t dwMessage) override
        {
            if ((dwMessage & 0xFF) == 0x99)
                ++sound.cTicksHeard;
            return MMSYSERR_NOERROR;
        }
        ThreadedSound& sound;
    };
    struct InPort : MidiInPort
    {
        uint32_t Start() override { return MMSYSERR_NOERROR; }
        uint32_t Stop() override { return MMSYSERR_NOERROR; }
        uint32_t ConnectTo(HMIDIOUT) override { return MMSYSERR_NOERROR; }
    };

    [[nodiscard]] bool IsDue() const { return !timers.empty() && timers.begin()->first.first <= lNowMs; }
    void RunTimers()
    {
        std::unique_lock hold(lock);
        for (;;)
        {
            changed.wait(hold, [this] { return bEnd || IsDue(); });
            if (bEnd)
                return;
            TimerCallback const callback = std::move(timers.begin()->second);
            nRunning = timers.begin()->first.second;
            timers.erase(timers.begin());
            hold.unlock();
            callback();
            hold.lock();
            nRunning = 0;
            changed.notify_all();
        }
    }

    std::mutex lock;
    std::condition_variable changed;
    std::atomic<uint32_t> lNowMs = 1000;
    std::map<std::pair<uint32_t, uint32_t>, TimerCallback> timers; ///< by due time and number
    uint32_t nLastTimer = 0;
    uint32_t nRunning = 0; ///< whose callback runs; 0 for none
    bool bEnd = false;
    std::thread timerThread;
};
} // namespace

TEST_F(RecordingFixture, TheInputTheFollowerAndTheMetronomeShareWhatTheyShareSafely)
{
    constexpr size_t cKeys = 400;
    ThreadedSound threaded;
    host.pSound = &threaded;
    OpenOutput();
    StartRecording();
    std::atomic<size_t> cHandled = 0;
    std::thread input(
        [&]
        {
            for (size_t n = 0; n < cKeys; ++n)
            {
                threaded.Advance(n % 8 == 7 ? 260 : 250);
                threaded.pSink->Hear(0x90, static_cast<uint8_t>(60 + n % 12), 64);
                while (cHandled <= n)
                    std::this_thread::yield();
            }
        });
    while (cHandled < cKeys)
    {
        process.user.RunPosted();
        cHandled = RecordedNotes().size();
        EXPECT_LE(Metronome_State().lDingPeriod, 200);
    }
    input.join();
    threaded.AwaitTimers();
    EXPECT_GT(threaded.cTicksHeard, 100);
    StopRecording(nullptr);
    EXPECT_TRUE(Metronome_State().fStopping);
    threaded.Advance(1000);
    threaded.AwaitTimers();
    threaded.Advance(1000);
    threaded.AwaitTimers();
    EXPECT_FALSE(threaded.HasTimers()) << "no tick has set off another";
    MidiOut_Set(nullptr);
    host.pSound = &sound;
}

TEST_F(RecordingFixture, TakesFollowOneAnotherWhileTicksAreUnderWay)
{
    ThreadedSound threaded;
    host.pSound = &threaded;
    OpenOutput();
    for (int32_t lTake = 0; lTake < 30; ++lTake)
    {
        StartRecording();
        for (int32_t lKey = 0; lKey < 8; ++lKey)
        {
            threaded.pSink->Hear(0x90, 60, 64);
            process.user.RunPosted();
            threaded.Advance(200);
        }
        StopRecording(nullptr);
    }
    threaded.Advance(1000);
    threaded.AwaitTimers();
    EXPECT_FALSE(threaded.HasTimers());
    EXPECT_GT(threaded.cTicksHeard, 30);
    MidiOut_Set(nullptr);
    host.pSound = &sound;
}
} // namespace zarn::test

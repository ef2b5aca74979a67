/// Sound, under its platform names: MIDI out and in, the millisecond clock, one-shot timers, the player's thread.
///
/// A result of 0 is success; any other is an error code whose words the error text operations give. Without a host for
/// sound there are no devices, the clock is that of the program, and threads and timers can't be made.
#pragma once
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

namespace zarn
{
constexpr uint32_t MMSYSERR_NOERROR = 0;
constexpr uint32_t MMSYSERR_ERROR = 1;
constexpr uint32_t MMSYSERR_BADDEVICEID = 2;
constexpr uint32_t MMSYSERR_ALLOCATED = 4;
constexpr uint32_t MMSYSERR_INVALHANDLE = 5;
constexpr uint32_t MMSYSERR_NODRIVER = 6;
constexpr uint32_t MIDIERR_NODEVICE = 68; ///< it was there and has gone

/// An open output. Messages may be sent from any thread.
class MidiOutPort
{
public:
    virtual ~MidiOutPort() = default;
    /// @param dwMessage  status in the low byte, then data 1 and data 2
    virtual uint32_t Send(uint32_t dwMessage) = 0;
};
using HMIDIOUT = MidiOutPort*;

/// An open input. Its messages reach the program on the main thread, as events of kind MIDI.
class MidiInPort
{
public:
    virtual ~MidiInPort() = default;
    virtual uint32_t Start() = 0;
    virtual uint32_t Stop() = 0;
    /// What comes in also goes straight to an output; null ends that.
    virtual uint32_t ConnectTo(HMIDIOUT hOut) = 0;
};
using HMIDIIN = MidiInPort*;

/// Takes what an input hears, on the input's own thread.
class MidiSink
{
public:
    virtual ~MidiSink() = default;
    /// A short message, or the first byte of a long one: 0xF0.
    virtual void Hear(uint8_t nStatus, uint8_t nData1, uint8_t nData2) = 0;
};

/// A flag that a thread can wait for. Any thread.
class WakeEvent
{
public:
    explicit WakeEvent(bool bSet = false) : bSet(bSet) {}
    void Set();
    void Reset();
    [[nodiscard]] bool IsSet() const { return bSet; }
    void Wait(); ///< for as long as it takes
    /// True when it is set, now or within that time of the machine's clock.
    [[nodiscard]] bool WaitFor(uint32_t cMilliseconds);

private:
    std::mutex lock;
    std::condition_variable changed;
    std::atomic<bool> bSet;
};

using TimerCallback = std::function<void()>;

/// Who stands behind the operations below. All but the device lists, opening and closing may be called on any thread.
class SoundHost
{
public:
    virtual ~SoundHost() = default;
    virtual uint32_t Time() = 0; ///< milliseconds since some start; wraps
    virtual void Sleep(uint32_t cMilliseconds) = 0;
    /// Sleeps, no longer than until the event is set; true when it is.
    virtual bool SleepUntil(uint32_t cMilliseconds, WakeEvent& event) { return event.WaitFor(cMilliseconds); }
    virtual void BeginPeriod() = 0;
    virtual void EndPeriod() = 0;
    /// Runs work on a thread of its own at the highest priority that the user may have. False when it can't be made.
    virtual bool StartThread(std::function<void()> work) = 0;
    /// Calls once, on a thread of the timer's; 0 when it can't, else the timer's number. Callbacks of all timers come
    /// one after the other.
    virtual uint32_t SetTimer(uint32_t cMilliseconds, TimerCallback callback) = 0;
    /// The callback won't begin after this returns; nothing for a timer that has gone off.
    virtual void KillTimer(uint32_t nTimer) = 0;

    virtual int32_t OutCount() = 0;
    virtual uint32_t OutName(int32_t lDevice, std::string& szName) = 0;
    virtual uint32_t OutOpen(int32_t lDevice, HMIDIOUT& hOut) = 0; ///< hOut stays null on failure
    virtual int32_t InCount() = 0;
    virtual uint32_t InName(int32_t lDevice, std::string& szName) = 0;
    virtual uint32_t InOpen(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn) = 0; ///< the sink must outlive the input
    /// A sentence for the user; false when there is none for that code.
    virtual bool OutErrorText(uint32_t nResult, std::string& szText) = 0;
    virtual bool InErrorText(uint32_t nResult, std::string& szText) = 0;
};

[[nodiscard]] uint32_t timeGetTime();
void timeBeginPeriod(uint32_t cMilliseconds);
void timeEndPeriod(uint32_t cMilliseconds);
void Sleep(uint32_t cMilliseconds);
/// Sleeps until the event is set, that time at the longest; true when it is set.
bool WaitForSingleObject(WakeEvent& event, uint32_t cMilliseconds);
/// At the highest priority; false when there is none to be had.
[[nodiscard]] bool CreateThread(std::function<void()> work);
[[nodiscard]] uint32_t timeSetEvent(uint32_t cMilliseconds, TimerCallback callback);
void timeKillEvent(uint32_t nTimer);

[[nodiscard]] int32_t midiOutGetNumDevs();
[[nodiscard]] uint32_t midiOutGetDevCapsA(int32_t lDevice, std::string& szName);
[[nodiscard]] uint32_t midiOutOpen(HMIDIOUT& hOut, int32_t lDevice);
[[nodiscard]] uint32_t midiOutShortMsg(HMIDIOUT hOut, uint32_t dwMessage);
uint32_t midiOutClose(HMIDIOUT hOut);
[[nodiscard]] bool midiOutGetErrorTextA(uint32_t nResult, std::string& szText);

[[nodiscard]] int32_t midiInGetNumDevs();
[[nodiscard]] uint32_t midiInGetDevCapsA(int32_t lDevice, std::string& szName);
[[nodiscard]] uint32_t midiInOpen(HMIDIIN& hIn, int32_t lDevice);
[[nodiscard]] uint32_t midiInStart(HMIDIIN hIn);
uint32_t midiInStop(HMIDIIN hIn);
uint32_t midiInClose(HMIDIIN hIn);
[[nodiscard]] uint32_t midiConnect(HMIDIIN hIn, HMIDIOUT hOut);
uint32_t midiDisconnect(HMIDIIN hIn);
[[nodiscard]] bool midiInGetErrorTextA(uint32_t nResult, std::string& szText);
} // namespace zarn

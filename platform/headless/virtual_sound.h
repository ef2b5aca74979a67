/// Sound without a device: messages are written down with their times, and the clock is the script's.
///
/// Nothing waits: Sleep moves the clock on, so that a whole piece plays in no time, and timers call as it passes them,
/// one after the other: while a timer's own call sleeps, no other calls.
#pragma once
#include "platform/headless/script_host.h"
#include "platform/midi_header.h"
#include "platform/winmm.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zarn
{
/// A message that went out.
struct SentMessage
{
    uint32_t lMs = 0; ///< on the script's clock
    uint32_t dwMessage = 0;
    friend bool operator==(SentMessage const&, SentMessage const&) = default;
};

/// What the ports and the threads of the program share: one thread at a time.
class VirtualSound : public SoundHost
{
public:
    explicit VirtualSound(ScriptHost& user) : user(user) {}

    uint32_t Time() override { return user.lNowMs; }
    void Sleep(uint32_t cMilliseconds) override;
    bool SleepUntil(uint32_t cMilliseconds, WakeEvent& event) override;
    void BeginPeriod() override { ++cPeriods; }
    void EndPeriod() override { --cPeriods; }
    /// Threads can't be made, so that a play runs where it is asked for, on the virtual clock.
    bool StartThread(std::function<void()>) override { return false; }
    uint32_t SetTimer(uint32_t cMilliseconds, TimerCallback callback) override;
    void KillTimer(uint32_t nTimer) override;

    int32_t OutCount() override { return static_cast<int32_t>(aOutputs.size()); }
    uint32_t OutName(int32_t lDevice, std::string& szName) override;
    uint32_t OutOpen(int32_t lDevice, HMIDIOUT& hOut) override;
    int32_t InCount() override { return static_cast<int32_t>(aInputs.size()); }
    uint32_t InName(int32_t lDevice, std::string& szName) override;
    uint32_t InOpen(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn) override;
    bool OutErrorText(uint32_t nResult, std::string& szText) override { return ErrorText(nResult, szText); }
    bool InErrorText(uint32_t nResult, std::string& szText) override { return ErrorText(nResult, szText); }

    /// A message comes in from outside; an input that isn't open or started hears nothing.
    void Play(uint8_t nStatus, uint8_t nData1, uint8_t nData2);

    std::vector<std::string> aOutputs = {"Virtual synthesizer"};
    std::vector<std::string> aInputs = {"Virtual keyboard"};
    std::vector<SentMessage> sent;
    uint32_t nNameResult = MMSYSERR_NOERROR; ///< what the operations give
    uint32_t nOpenResult = MMSYSERR_NOERROR;
    uint32_t nSendResult = MMSYSERR_NOERROR;
    uint32_t nRoomResult = MMSYSERR_NOERROR;
    uint32_t nConnectResult = MMSYSERR_NOERROR;
    uint32_t nStartResult = MMSYSERR_NOERROR;
    bool bErrorTexts = true; ///< "Error N"
    int32_t lOutOpen = -1;   ///< the device that is open
    int32_t lInOpen = -1;
    bool bInStarted = false;
    HMIDIOUT hThru = nullptr; ///< where the input goes besides
    int32_t cThruLost = 0;    ///< outputs that were closed while the input still went there
    MIDIHDR* pRoom = nullptr; ///< lent to the input
    int32_t cPeriods = 0;     ///< of the fine clock, begun and not ended

private:
    [[nodiscard]] bool ErrorText(uint32_t nResult, std::string& szText) const;

    ScriptHost& user;
    MidiSink* pSink = nullptr;
    uint32_t nLastTimer = 0;
    bool bTimerCalls = false;
};
} // namespace zarn

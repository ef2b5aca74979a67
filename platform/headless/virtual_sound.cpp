// The virtual devices.
#include "platform/headless/virtual_sound.h"

#include <utility>

namespace zarn
{
constexpr int32_t lFirstSoundTimer = 1000; ///< of the script's timers; those below are the program's

namespace
{
struct OutPort : MidiOutPort
{
    OutPort(VirtualSound& sound, int32_t lDevice) : sound(sound) { sound.lOutOpen = lDevice; }
    ~OutPort() override
    {
        sound.lOutOpen = -1;
        if (sound.hThru == this)
            ++sound.cThruLost;
    }
    uint32_t Send(uint32_t dwMessage) override
    {
        if (sound.nSendResult == MMSYSERR_NOERROR)
            sound.sent.push_back({sound.Time(), dwMessage});
        return sound.nSendResult;
    }

    VirtualSound& sound;
};

struct InPort : MidiInPort, LongDataInput
{
    InPort(VirtualSound& sound, int32_t lDevice) : sound(sound) { sound.lInOpen = lDevice; }
    ~InPort() override
    {
        sound.lInOpen = -1;
        sound.bInStarted = false;
        sound.hThru = nullptr;
    }
    uint32_t Start() override
    {
        sound.bInStarted = sound.nStartResult == MMSYSERR_NOERROR;
        return sound.nStartResult;
    }
    uint32_t Stop() override
    {
        sound.bInStarted = false;
        return MMSYSERR_NOERROR;
    }
    uint32_t ConnectTo(HMIDIOUT hOut) override
    {
        if (sound.nConnectResult == MMSYSERR_NOERROR)
            sound.hThru = hOut;
        return sound.nConnectResult;
    }
    uint32_t LendRoom(MIDIHDR* pRoom) override
    {
        if (sound.nRoomResult == MMSYSERR_NOERROR)
            sound.pRoom = pRoom;
        return sound.nRoomResult;
    }

    VirtualSound& sound;
};

uint32_t NameOf(std::vector<std::string> const& aNames, int32_t lDevice, std::string& szName)
{
    if (lDevice < 0 || lDevice >= static_cast<int32_t>(aNames.size()))
        return MMSYSERR_BADDEVICEID;
    szName = aNames[static_cast<size_t>(lDevice)];
    return MMSYSERR_NOERROR;
}
} // namespace

bool VirtualSound::SleepUntil(uint32_t cMilliseconds, WakeEvent& event)
{
    if (!event.IsSet())
        Sleep(cMilliseconds);
    return event.IsSet();
}

void VirtualSound::Sleep(uint32_t cMilliseconds)
{
    if (bTimerCalls)
        user.lNowMs += cMilliseconds;
    else
        user.Advance(cMilliseconds);
}

uint32_t VirtualSound::SetTimer(uint32_t cMilliseconds, TimerCallback callback)
{
    uint32_t const nTimer = ++nLastTimer;
    user.SetTimer(lFirstSoundTimer + static_cast<int32_t>(nTimer), cMilliseconds,
                  [this, nTimer, call = std::move(callback)]
                  {
                      KillTimer(nTimer);
                      bTimerCalls = true;
                      call();
                      bTimerCalls = false;
                  });
    return nTimer;
}

void VirtualSound::KillTimer(uint32_t nTimer) { user.KillTimer(lFirstSoundTimer + static_cast<int32_t>(nTimer)); }

uint32_t VirtualSound::OutName(int32_t lDevice, std::string& szName)
{
    return nNameResult != MMSYSERR_NOERROR ? nNameResult : NameOf(aOutputs, lDevice, szName);
}

uint32_t VirtualSound::OutOpen(int32_t lDevice, HMIDIOUT& hOut)
{
    if (nOpenResult != MMSYSERR_NOERROR)
        return nOpenResult;
    if (lDevice < 0 || lDevice >= OutCount())
        return MMSYSERR_BADDEVICEID;
    hOut = new OutPort(*this, lDevice);
    return MMSYSERR_NOERROR;
}

uint32_t VirtualSound::InName(int32_t lDevice, std::string& szName)
{
    return nNameResult != MMSYSERR_NOERROR ? nNameResult : NameOf(aInputs, lDevice, szName);
}

uint32_t VirtualSound::InOpen(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn)
{
    if (nOpenResult != MMSYSERR_NOERROR)
        return nOpenResult;
    if (lDevice < 0 || lDevice >= InCount())
        return MMSYSERR_BADDEVICEID;
    pSink = &sink;
    hIn = new InPort(*this, lDevice);
    return MMSYSERR_NOERROR;
}

void VirtualSound::Play(uint8_t nStatus, uint8_t nData1, uint8_t nData2)
{
    if (!bInStarted)
        return;
    if (hThru)
        (void)hThru->Send(nStatus | uint32_t{nData1} << 8 | uint32_t{nData2} << 16);
    pSink->Hear(nStatus, nData1, nData2);
}

bool VirtualSound::ErrorText(uint32_t nResult, std::string& szText) const
{
    if (bErrorTexts)
        szText = "Error " + std::to_string(nResult);
    return bErrorTexts;
}
} // namespace zarn

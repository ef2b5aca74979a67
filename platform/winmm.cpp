// Sound: forwards to the host, and has no devices where there is none.
#include "platform/winmm.h"

#include "platform/host.h"
#include "platform/process.h"
#include "platform/user.h"

#include <chrono>
#include <utility>

namespace zarn
{
void WakeEvent::Set()
{
    std::scoped_lock const hold(lock);
    bSet = true;
    changed.notify_all(); // under the lock: who waits may destroy the event as soon as it wakes
}

void WakeEvent::Reset() { bSet = false; }

void WakeEvent::Wait()
{
    std::unique_lock hold(lock);
    changed.wait(hold, [this] { return bSet.load(); });
}

bool WakeEvent::WaitFor(uint32_t cMilliseconds)
{
    std::unique_lock hold(lock);
    return changed.wait_for(hold, std::chrono::milliseconds(cMilliseconds), [this] { return bSet.load(); });
}

uint32_t timeGetTime() { return host.pSound ? host.pSound->Time() : GetTickCount(); }

void timeBeginPeriod(uint32_t)
{
    if (host.pSound)
        host.pSound->BeginPeriod();
}

void timeEndPeriod(uint32_t)
{
    if (host.pSound)
        host.pSound->EndPeriod();
}

void Sleep(uint32_t cMilliseconds)
{
    if (host.pSound)
        host.pSound->Sleep(cMilliseconds);
}

bool WaitForSingleObject(WakeEvent& event, uint32_t cMilliseconds)
{
    return host.pSound ? host.pSound->SleepUntil(cMilliseconds, event) : event.WaitFor(cMilliseconds);
}

bool CreateThread(std::function<void()> work) { return host.pSound && host.pSound->StartThread(std::move(work)); }

uint32_t timeSetEvent(uint32_t cMilliseconds, TimerCallback callback)
{
    return host.pSound ? host.pSound->SetTimer(cMilliseconds, std::move(callback)) : 0;
}

void timeKillEvent(uint32_t nTimer)
{
    if (host.pSound)
        host.pSound->KillTimer(nTimer);
}

int32_t midiOutGetNumDevs() { return host.pSound ? host.pSound->OutCount() : 0; }

uint32_t midiOutGetDevCapsA(int32_t lDevice, std::string& szName)
{
    return host.pSound ? host.pSound->OutName(lDevice, szName) : MMSYSERR_NODRIVER;
}

uint32_t midiOutOpen(HMIDIOUT& hOut, int32_t lDevice)
{
    hOut = nullptr;
    return host.pSound ? host.pSound->OutOpen(lDevice, hOut) : MMSYSERR_NODRIVER;
}

uint32_t midiOutShortMsg(HMIDIOUT hOut, uint32_t dwMessage)
{
    return hOut ? hOut->Send(dwMessage) : MMSYSERR_INVALHANDLE;
}

uint32_t midiOutClose(HMIDIOUT hOut)
{
    delete hOut;
    return MMSYSERR_NOERROR;
}

bool midiOutGetErrorTextA(uint32_t nResult, std::string& szText)
{
    return host.pSound && host.pSound->OutErrorText(nResult, szText);
}

namespace
{
/// Brings what an input hears to the main thread.
struct InputToDoor : MidiSink
{
    void Hear(uint8_t nStatus, uint8_t nData1, uint8_t nData2) override
    {
        if (host.pUser)
            host.pUser->PostEvent({EventKind::MIDI, nStatus, nData1, nData2});
    }
};
} // namespace

int32_t midiInGetNumDevs() { return host.pSound ? host.pSound->InCount() : 0; }

uint32_t midiInGetDevCapsA(int32_t lDevice, std::string& szName)
{
    return host.pSound ? host.pSound->InName(lDevice, szName) : MMSYSERR_NODRIVER;
}

uint32_t midiInOpen(HMIDIIN& hIn, int32_t lDevice)
{
    static InputToDoor inputToDoor;
    hIn = nullptr;
    return host.pSound ? host.pSound->InOpen(lDevice, inputToDoor, hIn) : MMSYSERR_NODRIVER;
}

uint32_t midiInStart(HMIDIIN hIn) { return hIn ? hIn->Start() : MMSYSERR_INVALHANDLE; }

uint32_t midiInStop(HMIDIIN hIn) { return hIn ? hIn->Stop() : MMSYSERR_INVALHANDLE; }

uint32_t midiInClose(HMIDIIN hIn)
{
    delete hIn;
    return MMSYSERR_NOERROR;
}

uint32_t midiConnect(HMIDIIN hIn, HMIDIOUT hOut) { return hIn ? hIn->ConnectTo(hOut) : MMSYSERR_INVALHANDLE; }

uint32_t midiDisconnect(HMIDIIN hIn) { return hIn ? hIn->ConnectTo(nullptr) : MMSYSERR_INVALHANDLE; }

bool midiInGetErrorTextA(uint32_t nResult, std::string& szText)
{
    return host.pSound && host.pSound->InErrorText(nResult, szText);
}
} // namespace zarn

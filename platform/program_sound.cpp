// Time in standard C++; devices are forwarded to the module.
#include "platform/program_sound.h"

#include "platform/module.h"
#include "platform/realtime.h"

#include <cstdlib>
#include <system_error>
#include <utility>

namespace zarn
{
static std::string FromEnvironment(char const* szName)
{
    char const* const sz = std::getenv(szName);
    return sz ? sz : "";
}

SoundModule* Sound_Module(std::string& sError)
{
    static std::string sWhy;
    static SoundModule* const pModule =
        LoadSound(ExecutableFolder(), {FromEnvironment("ZARN_SOUND_FONT"), FromEnvironment("ZARN_SOUND_DRIVER")}, sWhy);
    sError = sWhy;
    return pModule;
}

ProgramSound::~ProgramSound()
{
    for (Worker& worker : workers)
        worker.thread.join();
}

std::chrono::milliseconds ProgramSound::Now() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
}

uint32_t ProgramSound::Time() { return static_cast<uint32_t>(Now().count()); }

/// The moment at which the clock will have gone on by that.
std::chrono::steady_clock::time_point ProgramSound::In(uint32_t cMilliseconds) const
{
    return start + Now() + std::chrono::milliseconds(cMilliseconds);
}

void ProgramSound::Sleep(uint32_t cMilliseconds) { Thread_SleepUntil(In(cMilliseconds)); }

bool ProgramSound::SleepUntil(uint32_t cMilliseconds, WakeEvent& event)
{
    // A wait of whole milliseconds ends anywhere in the clock's last one: the last part is slept exactly.
    auto const moment = In(cMilliseconds);
    if (cMilliseconds > 1 && event.WaitFor(cMilliseconds - 1))
        return true;
    Thread_SleepUntil(moment);
    return event.IsSet();
}

void ProgramSound::BeginPeriod() { Clock_BeginFine(); }

void ProgramSound::EndPeriod() { Clock_EndFine(); }

bool ProgramSound::StartThread(std::function<void()> work)
{
    std::lock_guard const hold(workersLock);
    for (auto worker = workers.begin(); worker != workers.end();)
    {
        if (!worker->bDone)
        {
            ++worker;
            continue;
        }
        worker->thread.join();
        worker = workers.erase(worker);
    }
    Worker& worker = workers.emplace_back();
    try
    {
        worker.thread = std::thread(
            [&worker, work = std::move(work)]
            {
                Thread_RaisePriority();
                work();
                worker.bDone = true;
            });
    }
    catch (std::system_error const&)
    {
        workers.pop_back();
        return false;
    }
    return true;
}

uint32_t ProgramSound::SetTimer(uint32_t cMilliseconds, TimerCallback callback)
{
    return timers.Set(cMilliseconds, std::move(callback));
}

SoundModule* ProgramSound::Devices()
{
    if (!pDevices)
    {
        std::string sError; // no devices says as much as a user of the window needs
        pDevices = Sound_Module(sError);
    }
    return pDevices;
}

static uint32_t NameOf(std::vector<std::string> const& aNames, int32_t lDevice, std::string& szName)
{
    if (lDevice < 0 || lDevice >= static_cast<int32_t>(aNames.size()))
        return MMSYSERR_BADDEVICEID;
    szName = aNames[static_cast<size_t>(lDevice)];
    return MMSYSERR_NOERROR;
}

int32_t ProgramSound::OutCount()
{
    aOutputs = Devices() ? Devices()->Outputs() : std::vector<std::string>();
    return static_cast<int32_t>(aOutputs.size());
}

uint32_t ProgramSound::OutName(int32_t lDevice, std::string& szName) { return NameOf(aOutputs, lDevice, szName); }

uint32_t ProgramSound::OutOpen(int32_t lDevice, HMIDIOUT& hOut)
{
    return Devices() ? Devices()->OpenOutput(lDevice, hOut) : MMSYSERR_NODRIVER;
}

int32_t ProgramSound::InCount()
{
    aInputs = Devices() ? Devices()->Inputs() : std::vector<std::string>();
    return static_cast<int32_t>(aInputs.size());
}

uint32_t ProgramSound::InName(int32_t lDevice, std::string& szName) { return NameOf(aInputs, lDevice, szName); }

uint32_t ProgramSound::InOpen(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn)
{
    return Devices() ? Devices()->OpenInput(lDevice, sink, hIn) : MMSYSERR_NODRIVER;
}

bool ProgramSound::ErrorText(uint32_t nResult, std::string& szText)
{
    // A code comes from a device, so the module is there. It isn't loaded here, where any thread may ask.
    SoundModule* const pModule = pDevices;
    return pModule && pModule->ErrorText(nResult, szText);
}
} // namespace zarn

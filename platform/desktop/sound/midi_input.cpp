// Hearing a port. Messages come on RtMidi's thread from the opening on; those ahead of the start are dropped.
#include "platform/desktop/sound/midi_input.h"

#include "platform/desktop/sound/midi_systems.h"
#include "platform/desktop/sound/sound_errors.h"

#include <algorithm>
#include <atomic>
#include <mutex>

namespace zarn
{
namespace
{
class MidiInput : public MidiInPort
{
public:
    MidiInput(MidiPort const& port, MidiSink& sink);
    ~MidiInput() override;

    uint32_t Open();
    uint32_t Start() override
    {
        bStarted = true;
        return MMSYSERR_NOERROR;
    }
    uint32_t Stop() override
    {
        bStarted = false;
        return MMSYSERR_NOERROR;
    }
    uint32_t ConnectTo(HMIDIOUT hOut) override
    {
        std::lock_guard const hold(thruLock);
        hThru = hOut;
        return MMSYSERR_NOERROR;
    }
    void Forget(HMIDIOUT hOut)
    {
        std::lock_guard const hold(thruLock);
        if (hThru == hOut)
            hThru = nullptr;
    }

private:
    void Hear(std::vector<unsigned char> const& message);

    std::string const sName;
    MidiSink& sink;
    std::atomic<bool> bStarted = false;
    std::mutex thruLock;
    HMIDIOUT hThru = nullptr;
    bool bFailed = false;
    std::unique_ptr<SystemWatch> watch;
    std::unique_ptr<RtMidiIn> midi; // goes first: then nothing calls Hear any more
};

std::mutex inputsLock;
std::vector<MidiInput*> apInputs; ///< those that are open

MidiInput::MidiInput(MidiPort const& port, MidiSink& sink)
    : sName(port.sName), sink(sink), watch(WatchSystem(port.system)), midi(NewRtMidi<RtMidiIn>(port.system, &bFailed))
{
    std::lock_guard const hold(inputsLock);
    apInputs.push_back(this);
}

MidiInput::~MidiInput()
{
    std::lock_guard const hold(inputsLock);
    apInputs.erase(std::find(apInputs.begin(), apInputs.end(), this));
}

uint32_t MidiInput::Open()
{
    if (!midi || !watch->Runs())
        return MIDIERR_NODEVICE;
    auto const lNumber = MidiPort_Number(*midi, sName);
    if (!lNumber)
        return MIDIERR_NODEVICE;
    midi->ignoreTypes(false, true, true); // the beats of a clock, many a second, are no music
    midi->setCallback([](double, std::vector<unsigned char>* pMessage, void* pInput)
                      { static_cast<MidiInput*>(pInput)->Hear(*pMessage); },
                      this);
    midi->openPort(*lNumber, "in");
    return bFailed ? lErrorPortFailed : MMSYSERR_NOERROR;
}

void MidiInput::Hear(std::vector<unsigned char> const& message)
{
    if (!bStarted || message.empty())
        return;
    constexpr uint8_t nLong = 0xF0;
    bool const bLong = message[0] >= nLong;
    uint8_t const nData1 = message.size() > 1 && !bLong ? message[1] : 0;
    uint8_t const nData2 = message.size() > 2 && !bLong ? message[2] : 0;
    if (!bLong)
    {
        std::lock_guard const hold(thruLock);
        if (hThru)
            (void)hThru->Send(message[0] | uint32_t{nData1} << 8 | uint32_t{nData2} << 16);
    }
    sink.Hear(message[0], nData1, nData2);
}
} // namespace

uint32_t OpenMidiInput(MidiPort const& port, MidiSink& sink, HMIDIIN& hIn)
{
    auto input = std::make_unique<MidiInput>(port, sink);
    uint32_t const nResult = input->Open();
    if (nResult == MMSYSERR_NOERROR)
        hIn = input.release();
    return nResult;
}

void Inputs_Forget(HMIDIOUT hOut)
{
    std::lock_guard const hold(inputsLock);
    for (MidiInput* const pInput : apInputs)
        pInput->Forget(hOut);
}
} // namespace zarn

// Sending to a port, and noticing that it has gone: RtMidi itself would go on sending, or wait for ever.
#include "platform/desktop/sound/midi_output.h"

#include "platform/desktop/sound/midi_input.h"
#include "platform/desktop/sound/midi_systems.h"
#include "platform/desktop/sound/sound_errors.h"

#include <chrono>
#include <mutex>

namespace zarn
{
namespace
{
using Clock = std::chrono::steady_clock;

/// How often it is seen to that the port is there: it takes a tenth of a millisecond.
constexpr std::chrono::milliseconds lLookMs{250};

/// Bytes of a short message, by its status; 0 for what isn't one of a channel.
size_t LengthOf(uint32_t dwMessage)
{
    uint32_t const nKind = dwMessage & 0xF0;
    if (nKind < 0x80 || nKind == 0xF0)
        return 0;
    return nKind == 0xC0 || nKind == 0xD0 ? 2 : 3;
}

class MidiOutput : public MidiOutPort
{
public:
    explicit MidiOutput(MidiPort const& port)
        : sName(port.sName), watch(WatchSystem(port.system)), midi(NewRtMidi<RtMidiOut>(port.system, &bFailed))
    {
    }
    ~MidiOutput() override { Inputs_Forget(this); }

    uint32_t Open()
    {
        if (!midi || !watch->Runs())
            return MIDIERR_NODEVICE;
        auto const lNumber = MidiPort_Number(*midi, sName);
        if (!lNumber)
            return MIDIERR_NODEVICE;
        midi->openPort(*lNumber, "out");
        lastLook = Clock::now();
        return bFailed ? lErrorPortFailed : MMSYSERR_NOERROR;
    }

    uint32_t Send(uint32_t dwMessage) override
    {
        std::lock_guard const hold(lock);
        if (!IsThere())
            return MIDIERR_NODEVICE;
        unsigned char const aBytes[] = {static_cast<unsigned char>(dwMessage),
                                        static_cast<unsigned char>(dwMessage >> 8),
                                        static_cast<unsigned char>(dwMessage >> 16)};
        if (size_t const cb = LengthOf(dwMessage))
            midi->sendMessage(aBytes, cb);
        return bFailed ? MIDIERR_NODEVICE : MMSYSERR_NOERROR;
    }

private:
    /// Once gone it stays gone: another port may have its number by now.
    bool IsThere()
    {
        if (!watch->Runs())
            bFailed = true;
        else if (Clock::now() - lastLook > lLookMs)
        {
            lastLook = Clock::now();
            bFailed = bFailed || !MidiPort_Number(*midi, sName);
        }
        return !bFailed;
    }

    std::string const sName;
    std::mutex lock;
    bool bFailed = false;
    Clock::time_point lastLook;
    std::unique_ptr<SystemWatch> watch;
    std::unique_ptr<RtMidiOut> midi;
};
} // namespace

uint32_t OpenMidiOutput(MidiPort const& port, HMIDIOUT& hOut)
{
    auto output = std::make_unique<MidiOutput>(port);
    uint32_t const nResult = output->Open();
    if (nResult == MMSYSERR_NOERROR)
        hOut = output.release();
    return nResult;
}
} // namespace zarn

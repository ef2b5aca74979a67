// One list of devices out of several kinds.
#include "platform/desktop/sound/sound_devices.h"

#include "platform/desktop/sound/midi_input.h"
#include "platform/desktop/sound/midi_output.h"
#include "platform/desktop/sound/midi_ports.h"
#include "platform/desktop/sound/sound_errors.h"
#include "platform/desktop/sound/synth_output.h"
#include "platform/desktop/sound/synthesizer.h"

#include <vector>

namespace zarn
{
namespace
{
class SoundDevices : public SoundModule
{
public:
    explicit SoundDevices(SoundSetup const& setup) : setup(setup) {}

    std::vector<std::string> Outputs() override
    {
        aOutputs = MidiPorts_Out();
        auto aNames = NamesOf(aOutputs);
        aNames.push_back("Built-in synthesizer");
        return aNames;
    }
    std::vector<std::string> Inputs() override
    {
        aInputs = MidiPorts_In();
        return NamesOf(aInputs);
    }
    uint32_t OpenOutput(int32_t lDevice, HMIDIOUT& hOut) override
    {
        if (lDevice == static_cast<int32_t>(aOutputs.size()))
            return OpenSynthOutput(setup, hOut);
        return IsOf(aOutputs, lDevice) ? OpenMidiOutput(aOutputs[static_cast<size_t>(lDevice)], hOut)
                                       : MMSYSERR_BADDEVICEID;
    }
    uint32_t OpenInput(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn) override
    {
        return IsOf(aInputs, lDevice) ? OpenMidiInput(aInputs[static_cast<size_t>(lDevice)], sink, hIn)
                                      : MMSYSERR_BADDEVICEID;
    }
    bool ErrorText(uint32_t nResult, std::string& szText) override { return SoundErrorText(nResult, szText); }

    std::unique_ptr<WaveSource> NewWaveSource(std::string& sError) override
    {
        uint32_t nResult = MMSYSERR_NOERROR;
        auto source = NewSynthWave(setup.szFont, nResult);
        if (!source)
            (void)SoundErrorText(nResult, sError); // each of these codes has a sentence
        return source;
    }

private:
    static bool IsOf(std::vector<MidiPort> const& aPorts, int32_t lDevice)
    {
        return lDevice >= 0 && lDevice < static_cast<int32_t>(aPorts.size());
    }
    static std::vector<std::string> NamesOf(std::vector<MidiPort> const& aPorts)
    {
        std::vector<std::string> aNames;
        for (MidiPort const& port : aPorts)
            aNames.push_back(port.sName);
        return aNames;
    }

    SoundSetup const setup;
    std::vector<MidiPort> aOutputs; ///< as they were last listed
    std::vector<MidiPort> aInputs;
};
} // namespace

std::unique_ptr<SoundModule> NewSoundModule(SoundSetup const& setup) { return std::make_unique<SoundDevices>(setup); }
} // namespace zarn

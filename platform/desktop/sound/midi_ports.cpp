// The ports of all systems that run.
#include "platform/desktop/sound/midi_ports.h"

#include "platform/desktop/sound/midi_systems.h"

#include <algorithm>
#include <iterator>

namespace zarn
{
/// A loop that sounds nothing, and the bridges that show one system's ports in another a second time: without them a
/// user who has no MIDI hardware sees one device, the synthesizer.
static bool IsOfInterest(std::string const& sName)
{
    static constexpr char const* aPassedOver[] = {"Midi Through", "Midi-Bridge", "a2j:"};
    return std::none_of(std::begin(aPassedOver), std::end(aPassedOver),
                        [&sName](char const* s) { return sName.find(s) != sName.npos; });
}

template <class RtMidiKind>
static std::vector<MidiPort> Ports()
{
    std::vector<MidiPort> aPorts;
    for (RtMidi::Api const system : MidiSystems_Running())
    {
        bool bFailed = false;
        auto const midi = NewRtMidi<RtMidiKind>(system, &bFailed);
        unsigned const cPorts = midi ? midi->getPortCount() : 0;
        for (unsigned l = 0; l < cPorts; ++l)
            if (std::string const sName = midi->getPortName(l); !sName.empty() && IsOfInterest(sName))
                aPorts.push_back({system, sName});
    }
    return aPorts;
}

std::vector<MidiPort> MidiPorts_Out() { return Ports<RtMidiOut>(); }

std::vector<MidiPort> MidiPorts_In() { return Ports<RtMidiIn>(); }

std::optional<unsigned> MidiPort_Number(RtMidi& midi, std::string const& sName)
{
    unsigned const cPorts = midi.getPortCount();
    for (unsigned l = 0; l < cPorts; ++l)
        if (midi.getPortName(l) == sName)
            return l;
    return std::nullopt;
}
} // namespace zarn

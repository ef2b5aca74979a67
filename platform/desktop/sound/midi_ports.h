/// Finding MIDI ports by name: numbers change whenever a device comes or goes.
#pragma once
#include <RtMidi.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn
{
struct MidiPort
{
    RtMidi::Api system = RtMidi::UNSPECIFIED;
    std::string sName;
};

/// An RtMidiIn or RtMidiOut of that system; null when it can't be made. What goes wrong with it later is told to
/// pFailed and not thrown.
template <class RtMidiKind>
std::unique_ptr<RtMidiKind> NewRtMidi(RtMidi::Api system, bool* pFailed)
{
    try
    {
        auto midi = std::make_unique<RtMidiKind>(system, "Zarn");
        midi->setErrorCallback(
            [](RtMidiError::Type type, std::string const&, void* p)
            {
                if (type != RtMidiError::WARNING && type != RtMidiError::DEBUG_WARNING)
                    *static_cast<bool*>(p) = true;
            },
            pFailed);
        return midi;
    }
    catch (RtMidiError const&)
    {
        return nullptr;
    }
}

/// The ports that a user may want to play on.
[[nodiscard]] std::vector<MidiPort> MidiPorts_Out();
/// The ports that a user may want to record from.
[[nodiscard]] std::vector<MidiPort> MidiPorts_In();
/// The number that the port has at this moment; nothing when it has gone.
[[nodiscard]] std::optional<unsigned> MidiPort_Number(RtMidi& midi, std::string const& sName);
} // namespace zarn

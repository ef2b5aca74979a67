/// The systems that MIDI ports belong to, by way of RtMidi.
#pragma once
#include <RtMidi.h>

#include <memory>
#include <vector>

namespace zarn
{
/// The systems that run here now, in the order in which their devices are listed. Empty is an ordinary answer.
[[nodiscard]] std::vector<RtMidi::Api> MidiSystems_Running();

/// False where JACK can't run at all, too.
[[nodiscard]] bool IsJackRunning();

/// What the systems' libraries would print on standard error isn't printed. Process-wide.
void SilenceMidiSystems();

/// Tells whether a system still runs; for those that can't end, they do. Made on the main thread, asked on any.
class SystemWatch
{
public:
    virtual ~SystemWatch() = default;
    [[nodiscard]] virtual bool Runs() const { return true; }
};
[[nodiscard]] std::unique_ptr<SystemWatch> WatchSystem(RtMidi::Api system);
} // namespace zarn

// Which MIDI systems run. RtMidi is asked about none that doesn't: it would print, throw, or crash when a port is
// opened.
#include "platform/desktop/sound/midi_systems.h"

#if defined(__linux__)
#include <alsa/asoundlib.h>
#include <jack/jack.h>

#include <atomic>
#endif

namespace zarn
{
#if defined(__linux__)
static void PrintNothing(char const*) {}
static void PrintNothingOfAlsa(char const*, int, char const*, int, char const*, ...) {}

void SilenceMidiSystems()
{
    snd_lib_error_set_handler(PrintNothingOfAlsa);
    jack_set_error_function(PrintNothing);
    jack_set_info_function(PrintNothing);
}

namespace
{
/// A client of the JACK server that does nothing but hear of its end.
class JackWatch : public SystemWatch
{
public:
    JackWatch()
    {
        SilenceMidiSystems();
        pClient = jack_client_open("Zarn", JackNoStartServer, nullptr);
        bRuns = pClient != nullptr;
        if (pClient)
            jack_on_shutdown(
                pClient, [](void* p) { *static_cast<std::atomic<bool>*>(p) = false; }, &bRuns);
    }
    ~JackWatch() override
    {
        if (pClient)
            jack_client_close(pClient);
    }
    [[nodiscard]] bool Runs() const override { return bRuns; }

private:
    jack_client_t* pClient = nullptr;
    std::atomic<bool> bRuns = false;
};

bool AlsaRuns()
{
    snd_seq_t* pSequencer = nullptr;
    if (snd_seq_open(&pSequencer, "default", SND_SEQ_OPEN_DUPLEX, 0) < 0)
        return false;
    snd_seq_close(pSequencer);
    return true;
}
} // namespace

bool IsJackRunning() { return JackWatch().Runs(); }

std::vector<RtMidi::Api> MidiSystems_Running()
{
    SilenceMidiSystems();
    std::vector<RtMidi::Api> aSystems;
    if (AlsaRuns())
        aSystems.push_back(RtMidi::LINUX_ALSA);
    if (IsJackRunning())
        aSystems.push_back(RtMidi::UNIX_JACK);
    return aSystems;
}

std::unique_ptr<SystemWatch> WatchSystem(RtMidi::Api system)
{
    if (system == RtMidi::UNIX_JACK)
        return std::make_unique<JackWatch>();
    return std::make_unique<SystemWatch>();
}
#else
void SilenceMidiSystems() {}

bool IsJackRunning() { return false; }

std::vector<RtMidi::Api> MidiSystems_Running()
{
    std::vector<RtMidi::Api> aSystems;
    RtMidi::getCompiledApi(aSystems);
    return aSystems;
}

std::unique_ptr<SystemWatch> WatchSystem(RtMidi::Api) { return std::make_unique<SystemWatch>(); }
#endif
} // namespace zarn

// A take from a real MIDI port to the notes held, on a JACK server of the test's own.
#include "midi/metronome.h"
#include "midi/midi_out.h"
#include "midi/record.h"
#include "platform/desktop/sound/midi_systems.h"
#include "platform/headless/script_host.h"
#include "platform/program_sound.h"
#include "sound/server.h"
#include "sound/sound_fixture.h"

#include <atomic>
#include <unistd.h>

namespace zarn::test
{
namespace
{
/// The program's clock and timers, with the devices of a module of the test's own.
class OwnDevices : public ProgramSound
{
public:
    int32_t OutCount() override { return static_cast<int32_t>(module->Outputs().size()); }
    uint32_t OutOpen(int32_t lDevice, HMIDIOUT& hOut) override { return module->OpenOutput(lDevice, hOut); }
    int32_t InCount() override
    {
        aInputs = module->Inputs();
        return static_cast<int32_t>(aInputs.size());
    }
    uint32_t InName(int32_t lDevice, std::string& szName) override
    {
        szName = aInputs[static_cast<size_t>(lDevice)];
        return MMSYSERR_NOERROR;
    }
    uint32_t InOpen(int32_t lDevice, MidiSink& sink, HMIDIIN& hIn) override
    {
        return module->OpenInput(lDevice, sink, hIn);
    }
    /// The place of the output whose name holds this; -1 when there is none.
    int32_t Output(char const* sName)
    {
        std::vector<std::string> const aNames = module->Outputs();
        auto const it = std::find_if(aNames.begin(), aNames.end(),
                                     [sName](std::string const& s) { return s.find(sName) != s.npos; });
        return it == aNames.end() ? -1 : static_cast<int32_t>(it - aNames.begin());
    }

    std::unique_ptr<SoundModule> module = NewSoundModule({szTestFont, "none"});
    std::vector<std::string> aInputs;
};

/// Says Yes to the keyboard and No to any other input.
class PlayersChoice : public ScriptHost
{
public:
    int32_t MessageBox(std::string_view sText, std::string_view, uint32_t) override
    {
        return sText.find("keys") != sText.npos ? IDYES : IDNO;
    }
};

struct RecordingDoor : Door
{
    void Receive(Event const& event) override { MidiIn_Message(event.lNumber, event.x, event.y); }
};

class Recording : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!server.WaitFor(IsJackRunning))
            GTEST_SKIP() << "jackd isn't installed, or can't start here";
        host.pUser = &user;
        host.pSound = &sound;
        host.pDoor = &door;
    }
    void TearDown() override
    {
        StopRecording(nullptr);
        MidiOut_Set(nullptr);
        host = Host{};
    }
    bool Holds(size_t cNotes)
    {
        return WaitUntil(
            [&]
            {
                user.RunPosted();
                return RecordedNotes().size() >= cNotes;
            });
    }

    std::string const sServer = "zarn-record-" + std::to_string(getpid());
    Environment serverName{"JACK_DEFAULT_SERVER", sServer};
    Environment noPulse{"PULSE_SERVER", "unix:/nowhere/pulse"};
    Server server{{"jackd", "-r", "-t", "20000", "-n", sServer, "-d", "dummy", "-r", "48000", "-p", "256"}};
    PlayersChoice user;
    OwnDevices sound;
    RecordingDoor door;
};

void Play(RtMidiOut& keyboard, std::vector<unsigned char> const& aBytes) { keyboard.sendMessage(&aBytes); }
} // namespace

TEST_F(Recording, KeysOfARealPortAreHeldWithTheirTimesAndSoundOnTheOpenOutput)
{
    std::atomic<int32_t> cHeard = 0;
    RtMidiOut keyboard(RtMidi::UNIX_JACK, "Keyboard");
    keyboard.openVirtualPort("keys");
    RtMidiIn synth(RtMidi::UNIX_JACK, "Synth");
    synth.setCallback([](double, std::vector<unsigned char>* pMessage, void* p)
                      { *static_cast<std::atomic<int32_t>*>(p) += (*pMessage)[0] == 0x90; },
                      &cHeard);
    synth.openVirtualPort("sounds");
    HMIDIOUT hOut = nullptr;
    ASSERT_EQ(midiOutOpen(hOut, sound.Output("sounds")), MMSYSERR_NOERROR);
    MidiOut_Set(hOut);

    StartRecording();
    ASSERT_TRUE(IsRecording());
    constexpr size_t cKeys = 12;
    for (size_t n = 0; n < cKeys; ++n)
    {
        uint32_t const lBegin = timeGetTime();
        Play(keyboard, {0x90, static_cast<unsigned char>(60 + n), 100});
        ASSERT_TRUE(Holds(n + 1)) << n;
        EXPECT_TRUE(WaitUntil([&] { return timeGetTime() - lBegin >= 20; }));
    }
    Play(keyboard, {0x80, 60, 0});
    EXPECT_TRUE(WaitUntil(
        [&]
        {
            user.RunPosted();
            return RecordedNotes().front().lOff != lStillHeld;
        }));
    EXPECT_TRUE(WaitUntil([&] { return cHeard >= static_cast<int32_t>(cKeys); })) << cHeard;
    for (size_t n = 1; n < cKeys; ++n)
    {
        EXPECT_EQ(RecordedNotes()[n].lNote, static_cast<int32_t>(60 + n));
        EXPECT_GT(RecordedNotes()[n].lOn, RecordedNotes()[n - 1].lOn) << n;
    }

    StopRecording(nullptr);
    Play(keyboard, {0x90, 72, 100});
    user.RunPosted();
    EXPECT_FALSE(IsRecording());
    EXPECT_TRUE(RecordedNotes().empty());
}
} // namespace zarn::test

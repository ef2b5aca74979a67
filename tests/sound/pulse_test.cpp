// The synthesizer heard: on a PulseAudio server of the test's own, whose sound goes nowhere but can be recorded.
#include "sound/server.h"
#include "sound/sound_fixture.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace zarn::test
{
namespace
{
namespace fs = std::filesystem;

class Pulse : public testing::Test
{
protected:
    Pulse() { fs::create_directories(folder); }
    ~Pulse() override { fs::remove_all(folder); }

    void SetUp() override
    {
        if (!server.WaitFor([this] { return fs::exists(folder / "socket"); }))
            GTEST_SKIP() << "pulseaudio isn't installed, or can't start here";
        HMIDIOUT hOut = nullptr;
        ASSERT_EQ(module->OpenOutput(static_cast<int32_t>(module->Outputs().size()) - 1, hOut), MMSYSERR_NOERROR);
        out.reset(hOut);
    }

    fs::path const folder = fs::path(testing::TempDir()) / ("zarn-pulse-" + std::to_string(getpid()));
    Environment home{"HOME", folder.string()};
    Environment runtime{"XDG_RUNTIME_DIR", folder.string()};
    Environment address{"PULSE_SERVER", "unix:" + (folder / "socket").string()};
    Environment noJack{"JACK_DEFAULT_SERVER", "zarn-none"};
    Server server{{"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "-L",
                   "module-null-sink sink_name=silent", "-L",
                   "module-native-protocol-unix auth-anonymous=1 socket=" + (folder / "socket").string()}};
    std::unique_ptr<SoundModule> module = NewSoundModule({szTestFont, {}});
    std::unique_ptr<MidiOutPort> out;
};
} // namespace

TEST_F(Pulse, ANoteIsHeard)
{
    fs::path const record = folder / "record";
    Server recorder({"parec", "-d", "silent.monitor", "--raw", "--format=s16le", "--latency-msec=10", record.string()});
    ASSERT_EQ(out->Send(Program(16)), MMSYSERR_NOERROR); // an organ: it sounds for as long as it is held
    ASSERT_EQ(out->Send(NoteOn(60)), MMSYSERR_NOERROR);
    bool const bHeard = recorder.WaitFor(
        [&]
        {
            std::ifstream file(record, std::ios::binary);
            std::vector<char> const aBytes{std::istreambuf_iterator<char>(file), {}};
            std::vector<int16_t> aSamples(aBytes.size() / sizeof(int16_t));
            std::copy_n(aBytes.begin(), aSamples.size() * sizeof(int16_t), reinterpret_cast<char*>(aSamples.data()));
            return Peak(aSamples) > 1000;
        });
    EXPECT_TRUE(bHeard);
}

TEST_F(Pulse, AServerThatDiesDuringAPlayIsTold)
{
    ASSERT_EQ(out->Send(NoteOn(60)), MMSYSERR_NOERROR);
    server.Kill();
    EXPECT_TRUE(WaitUntil([&] { return out->Send(NoteOn(60)) == MIDIERR_NODEVICE; }));
}
} // namespace zarn::test

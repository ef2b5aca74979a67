// Real MIDI ports, on a JACK server of the test's own that has no sound card.
#include "platform/desktop/sound/midi_systems.h"
#include "sound/server.h"
#include "sound/sound_fixture.h"

#include <gmock/gmock.h>

#include <mutex>
#include <optional>
#include <unistd.h>

namespace zarn::test
{
namespace
{
/// Keeps what an input hears.
class Heard : public MidiSink
{
public:
    void Hear(uint8_t nStatus, uint8_t nData1, uint8_t nData2) override
    {
        std::lock_guard const hold(lock);
        messages.push_back(nStatus | uint32_t{nData1} << 8 | uint32_t{nData2} << 16);
    }
    [[nodiscard]] std::vector<uint32_t> Messages()
    {
        std::lock_guard const hold(lock);
        return messages;
    }
    [[nodiscard]] bool WaitFor(size_t cMessages)
    {
        return WaitUntil([&] { return Messages().size() >= cMessages; });
    }

private:
    std::mutex lock;
    std::vector<uint32_t> messages;
};

/// Another program's ports: one that plays to Zarn, one that hears it.
class OtherProgram
{
public:
    OtherProgram() : out(RtMidi::UNIX_JACK, "Keyboard"), in(RtMidi::UNIX_JACK, "Synth")
    {
        out.openVirtualPort("keys");
        in.setCallback(
            [](double, std::vector<unsigned char>* pMessage, void* p)
            {
                auto const& m = *pMessage;
                static_cast<Heard*>(p)->Hear(m[0], m.size() > 1 ? m[1] : 0, m.size() > 2 ? m[2] : 0);
            },
            &heard);
        in.openVirtualPort("sounds");
    }
    void Play(std::vector<unsigned char> const& aBytes) { out.sendMessage(&aBytes); }

    Heard heard;

private:
    RtMidiOut out;
    RtMidiIn in;
};

class Jack : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!server.WaitFor(IsJackRunning))
            GTEST_SKIP() << "jackd isn't installed, or can't start here";
    }

    /// The place of the name that holds this; -1 when there is none.
    static int32_t PlaceOf(std::vector<std::string> const& aNames, char const* sName)
    {
        for (size_t l = 0; l < aNames.size(); ++l)
            if (aNames[l].find(sName) != std::string::npos)
                return static_cast<int32_t>(l);
        return -1;
    }
    int32_t Output(char const* sName) { return PlaceOf(module->Outputs(), sName); }
    int32_t Input(char const* sName) { return PlaceOf(module->Inputs(), sName); }
    void OpenOutput()
    {
        HMIDIOUT hOut = nullptr;
        ASSERT_EQ(module->OpenOutput(Output("sounds"), hOut), MMSYSERR_NOERROR);
        out.reset(hOut);
    }
    void OpenInput()
    {
        HMIDIIN hIn = nullptr;
        ASSERT_EQ(module->OpenInput(Input("keys"), sink, hIn), MMSYSERR_NOERROR);
        in.reset(hIn);
        ASSERT_EQ(in->Start(), MMSYSERR_NOERROR);
    }

    std::string const sServer = "zarn-test-" + std::to_string(getpid());
    Environment serverName{"JACK_DEFAULT_SERVER", sServer};
    Environment noPulse{"PULSE_SERVER", "unix:/nowhere/pulse"};
    Server server{{"jackd", "-r", "-t", "20000", "-n", sServer, "-d", "dummy", "-r", "48000", "-p", "256"}};
    std::unique_ptr<SoundModule> module = NewSoundModule({szTestFont, {}});
    Heard sink;
    std::unique_ptr<MidiOutPort> out;
    std::unique_ptr<MidiInPort> in;
};

constexpr uint32_t nManyNotes = 100;
} // namespace

TEST_F(Jack, WhatIsSentReachesTheOtherProgramInOrder)
{
    OtherProgram other;
    ASSERT_NO_FATAL_FAILURE(OpenOutput());
    std::vector<uint32_t> sent{Program(40), Control(124, 0)};
    for (uint32_t nNote = 0; nNote < nManyNotes; ++nNote)
        sent.push_back(NoteOn(nNote));
    for (uint32_t const dwMessage : sent)
        ASSERT_EQ(out->Send(dwMessage), MMSYSERR_NOERROR);
    ASSERT_TRUE(other.heard.WaitFor(sent.size())) << other.heard.Messages().size();
    EXPECT_EQ(other.heard.Messages(), sent);
}

TEST_F(Jack, WhatTheOtherProgramPlaysIsHeardInOrder)
{
    OtherProgram other;
    ASSERT_NO_FATAL_FAILURE(OpenInput());
    std::vector<uint32_t> expected;
    for (unsigned char nNote = 0; nNote < nManyNotes; ++nNote)
    {
        other.Play({0x90, nNote, 100});
        expected.push_back(NoteOn(nNote));
    }
    other.Play({0xC3, 7});
    expected.push_back(Program(7, 3));
    other.Play({0xF0, 1, 2, 3, 0xF7});
    expected.push_back(0xF0);
    ASSERT_TRUE(sink.WaitFor(expected.size()));
    EXPECT_EQ(sink.Messages(), expected);
}

TEST_F(Jack, WhatIsHeardGoesThroughToTheConnectedOutput)
{
    OtherProgram other;
    ASSERT_NO_FATAL_FAILURE(OpenOutput());
    ASSERT_NO_FATAL_FAILURE(OpenInput());
    ASSERT_EQ(in->ConnectTo(out.get()), MMSYSERR_NOERROR);
    other.Play({0x90, 60, 100});
    ASSERT_TRUE(other.heard.WaitFor(1));
    EXPECT_THAT(other.heard.Messages(), testing::ElementsAre(NoteOn(60)));

    out.reset(); // the input forgets it
    other.Play({0x90, 62, 100});
    ASSERT_TRUE(sink.WaitFor(2));
    EXPECT_THAT(sink.Messages(), testing::ElementsAre(NoteOn(60), NoteOn(62)));
    EXPECT_EQ(other.heard.Messages().size(), 1u);
}

TEST_F(Jack, AnInputThatIsStoppedHearsNothing)
{
    OtherProgram other;
    ASSERT_NO_FATAL_FAILURE(OpenInput());
    other.Play({0x90, 60, 100});
    ASSERT_TRUE(sink.WaitFor(1));
    ASSERT_EQ(in->Stop(), MMSYSERR_NOERROR);
    Heard second; // hears the same port beside it, and tells when the note has come
    HMIDIIN hIn = nullptr;
    ASSERT_EQ(module->OpenInput(Input("keys"), second, hIn), MMSYSERR_NOERROR);
    std::unique_ptr<MidiInPort> const beside(hIn);
    ASSERT_EQ(beside->Start(), MMSYSERR_NOERROR);
    other.Play({0x90, 62, 100});
    other.Play({0x90, 64, 100});
    ASSERT_TRUE(second.WaitFor(2));
    EXPECT_THAT(sink.Messages(), testing::ElementsAre(NoteOn(60)));
}

TEST_F(Jack, ADeviceThatGoesIsTold)
{
    std::optional<OtherProgram> other(std::in_place);
    ASSERT_NO_FATAL_FAILURE(OpenOutput());
    ASSERT_EQ(out->Send(NoteOn(60)), MMSYSERR_NOERROR);
    other.reset();
    EXPECT_TRUE(WaitUntil([&] { return out->Send(NoteOn(60)) == MIDIERR_NODEVICE; }));
    std::string szText;
    EXPECT_TRUE(module->ErrorText(MIDIERR_NODEVICE, szText));
    EXPECT_EQ(szText, "The MIDI device has gone.");
}

TEST_F(Jack, ADeviceThatWentSinceItWasListedIsRefused)
{
    std::optional<OtherProgram> other(std::in_place);
    int32_t const lOutput = Output("sounds");
    int32_t const lInput = Input("keys");
    ASSERT_GE(lOutput, 0);
    ASSERT_GE(lInput, 0);
    other.reset();
    HMIDIOUT hOut = nullptr;
    HMIDIIN hIn = nullptr;
    EXPECT_TRUE(WaitUntil([&] { return Output("sounds") == -1; }));
    EXPECT_EQ(module->OpenOutput(lOutput + 1, hOut), MMSYSERR_BADDEVICEID);
    EXPECT_EQ(module->OpenInput(lInput, sink, hIn), MIDIERR_NODEVICE);
    EXPECT_EQ(hOut, nullptr);
    EXPECT_EQ(hIn, nullptr);
}

TEST_F(Jack, AServerThatDiesDuringAPlayIsTold)
{
    OtherProgram other;
    ASSERT_NO_FATAL_FAILURE(OpenOutput());
    ASSERT_NO_FATAL_FAILURE(OpenInput());
    ASSERT_EQ(out->Send(NoteOn(60)), MMSYSERR_NOERROR);
    server.Kill();
    // As fast as they go: without a reader the port holds some thousand messages, and must not wait for room.
    EXPECT_TRUE(WaitUntil([&] { return out->Send(NoteOn(60)) == MIDIERR_NODEVICE; }));
}

TEST_F(Jack, TheSynthesizerPlaysOnIt)
{
    HMIDIOUT hOut = nullptr;
    module = NewSoundModule({szTestFont, "jack"});
    ASSERT_EQ(module->OpenOutput(static_cast<int32_t>(module->Outputs().size()) - 1, hOut), MMSYSERR_NOERROR);
    out.reset(hOut);
    EXPECT_EQ(out->Send(NoteOn(60)), MMSYSERR_NOERROR);
    server.Kill();
    EXPECT_TRUE(WaitUntil([&] { return out->Send(NoteOn(60)) == MIDIERR_NODEVICE; }));
}
} // namespace zarn::test

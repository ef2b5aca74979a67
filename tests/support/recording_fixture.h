/// A recording on virtual devices, for one test: the log is kept, and the clock begins at 1000 ms.
#pragma once
#include "core/text.h"
#include "midi/metronome.h"
#include "midi/midi_out.h"
#include "midi/record.h"
#include "platform/headless/virtual_sound.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zarn::test
{
struct RecordingFixture : testing::Test
{
    RecordingFixture()
    {
        host.pSound = &sound;
        host.pDoor = &door;
        process.user.lNowMs = 1000;
        sLog.clear();
        pDebugLogSink = [](std::string_view s) { sLog += s; };
        CurrentSymbol();
    }
    ~RecordingFixture() override
    {
        StopRecording(nullptr);
        Metronome_KillTimer();
        MidiOut_Set(nullptr);
        CreateMidiInWindow(nullptr);
        pDebugLogSink = nullptr;
        fMidiTrace = false;
    }

    /// The first interval is a crotchet, unless a test wants it otherwise.
    static void CurrentSymbol(int32_t sort = NOTE, int32_t lDuration = 48)
    {
        Element_Init(&elCurrent);
        elCurrent.sort = sort;
        elCurrent.lDuration = lDuration;
    }
    void OpenOutput()
    {
        HMIDIOUT hOut = nullptr;
        ASSERT_EQ(midiOutOpen(hOut, 0), MMSYSERR_NOERROR);
        MidiOut_Set(hOut);
    }
    /// At that clock a message comes from the instrument.
    void Comes(uint32_t lMs, uint8_t nStatus, uint8_t nData1 = 0, uint8_t nData2 = 0)
    {
        process.user.Advance(lMs - process.user.lNowMs);
        sound.Play(nStatus, nData1, nData2);
        process.user.RunPosted();
    }
    void Down(uint32_t lMs, uint8_t nNote) { Comes(lMs, 0x90, nNote, 64); }
    void Up(uint32_t lMs, uint8_t nNote) { Comes(lMs, 0x80, nNote, 64); }
    /// The log since it was last taken, with what the timer's ticks have left for the main thread.
    std::string Log()
    {
        process.user.RunPosted();
        return std::exchange(sLog, {});
    }
    void Answers(Answer::Kind kind) { process.user.answers.push_back({.kind = kind}); }

    struct InputDoor : Door
    {
        void Receive(Event const& event) override { MidiIn_Message(event.lNumber, event.x, event.y); }
    };

    ScriptedProcess process;
    VirtualSound sound{process.user};
    InputDoor door;
    inline static std::string sLog;
};
} // namespace zarn::test

/// A process with a virtual MIDI output and a virtual clock, for one test.
#pragma once
#include "core/pitch.h"
#include "core/text.h"
#include "midi/guitar_chords.h"
#include "midi/midi_out.h"
#include "midi/midi_setup.h"
#include "midi/play_list.h"
#include "midi/play_score.h"
#include "midi/play_times.h"
#include "midi/player.h"
#include "platform/headless/virtual_sound.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zarn::test
{
/// Every option of a play as at start.
inline void ResetPlayOptions()
{
    fDoubleSpeed = false;
    fEndlessRepeat = false;
    fMidiTrace = false;
    fPlayChords = true;
    fBarnDance = false;
    lSwing = 0;
    lOrnamentStyle = ORNAMENT_DIATONIC;
    lLastChordRoot = lLastChordKind = -1;
    fClarinetTranspose = fGuitarTranspose = false;
    pOnPassPlayed = nullptr;
}

/// A message in words: "60" and "-60" for a note that begins and ends, "P5" for a program, "x7CB0" for any other; "@3"
/// behind it unless the channel is 1.
inline std::string MessageText(uint32_t dwMessage)
{
    uint32_t const nChannel = dwMessage & 0xF;
    uint32_t const nData1 = dwMessage >> 8 & 0xFF;
    std::string s;
    switch (dwMessage & 0xF0)
    {
    case 0x90:
        s = Format(dwMessage >> 16 ? "%u" : "-%u", nData1);
        break;
    case 0xC0:
        s = Format("P%u", nData1);
        break;
    default:
        return Format("x%X", dwMessage);
    }
    return nChannel == 1 ? s : s + Format("@%u", nChannel);
}

struct SoundTest : testing::Test
{
    SoundTest()
    {
        host.pSound = &sound;
        ResetPlayOptions();
    }
    ~SoundTest() override
    {
        ShutDownMidi();
        ResetPlayOptions();
    }

    /// What went out from that millisecond of the clock on, each with its time behind it: "0:P1 0:60 489:-60".
    [[nodiscard]] std::string Sent(uint32_t lFromMs = 0) const
    {
        std::string s;
        for (SentMessage const& message : sound.sent)
            s += (s.empty() ? "" : " ") + Format("%u:", message.lMs - lFromMs) + MessageText(message.dwMessage);
        return s;
    }

    /// Opens the output, if it isn't, and forgets what was said and sent.
    void Open()
    {
        OpenMidiOut();
        sound.sent.clear();
        process.user.shown.clear();
    }

    /// Plays the score as it stands and gives what went out.
    std::string Play()
    {
        Open();
        bTimesValid = false;
        uint32_t const lBeginMs = process.user.lNowMs;
        PlayFromMark(fBarnDance, lSwing);
        return Sent(lBeginMs);
    }

    /// Plays this on staff 1, the others as they are.
    std::string Played(std::string const& sScore)
    {
        List_Clear(aStaffList[1]);
        Write(1, sScore);
        return Play();
    }

    ScriptedProcess process;
    VirtualSound sound{process.user};
};
} // namespace zarn::test

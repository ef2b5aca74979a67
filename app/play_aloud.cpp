// The player, with an interrupt for the CTRL key.
#include "app/play_aloud.h"

#include "app/performance.h"
#include "app/terminal.h"
#include "midi/midi_out.h"
#include "midi/player.h"
#include "platform/program_sound.h"

#include <atomic>
#include <csignal>
#include <string>

namespace zarn
{
namespace
{
constexpr uint32_t lLastNotesMs = 1000; ///< in which they die away

std::atomic<bool>* pInterrupted = nullptr; ///< set while a play runs
std::atomic<int> lSignal = 0;
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

void Interrupt(int lWhich)
{
    std::signal(lWhich, SIG_DFL); // a second one doesn't wait for anything
    lSignal = lWhich;
    *pInterrupted = true;
}

/// The last output that opens; null, with the user told why the last one didn't, when there is none.
HMIDIOUT OpenSomeOutput()
{
    int32_t const cDevices = midiOutGetNumDevs();
    std::string sError;
    if (cDevices <= 0 && Sound_Module(sError))
        sError = "There is no MIDI device to play on.";
    for (int32_t lDevice = cDevices - 1; lDevice >= 0; --lDevice)
    {
        HMIDIOUT hOut = nullptr;
        uint32_t const nResult = midiOutOpen(hOut, lDevice);
        if (nResult == MMSYSERR_NOERROR)
            return hOut;
        if (sError.empty() && !midiOutGetErrorTextA(nResult, sError))
            sError = "The MIDI device can't be opened.";
    }
    Terminal_Error(sError);
    return nullptr;
}

/// Plays to the end or the interrupt; false when the output refused.
bool PlayOn(ScriptHost& user, HMIDIOUT hOut)
{
    size_t const cShown = user.shown.size();
    pInterrupted = &user.bControlDown;
    std::signal(SIGINT, Interrupt);
    std::signal(SIGTERM, Interrupt);
    MidiOut_Set(hOut);
    Player_Start(Performance());
    Player_Wait();
    user.RunPosted(); // what the player had to say
    bool const bGood = user.shown.size() == cShown;
    if (bGood)
        AllNotesOff(hOut);
    else
        Terminal_Error("it was not played to its end");
    if (bGood && !lSignal)
        Sleep(lLastNotesMs);
    MidiOut_Set(nullptr);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    return bGood;
}
} // namespace

bool PlayAloud(ScriptHost& user)
{
    bool bGood = false;
    {
        ProgramSound sound;
        host.pSound = &sound;
        HMIDIOUT const hOut = OpenSomeOutput();
        bGood = hOut && PlayOn(user, hOut);
        host.pSound = nullptr;
    }
    if (lSignal)
        std::raise(lSignal);
    return bGood;
}
} // namespace zarn

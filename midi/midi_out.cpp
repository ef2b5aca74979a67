// The output's handle, and the packing of messages.
//
// A lock is held while the handle is compared and used, so that it can't be closed under a message on its way.
#include "midi/midi_out.h"

#include "core/messages.h"
#include "core/text.h"

#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace zarn
{
constexpr uint32_t nProgramChange = 0xC0;
constexpr uint32_t nNoteOn = 0x90;
constexpr int32_t lHighestPlayedChannel = 8;
constexpr int32_t lHighestSilenced = 126; ///< users' devices have been silenced like this all along: 127 is left out

static std::mutex midiOutLock;
static std::atomic<HMIDIOUT> hMidiOut = nullptr; ///< changes under the lock

/// The thread that the program starts on.
static std::thread::id const mainThread = std::this_thread::get_id();

template <typename Action>
static void OnMainThread(Action action)
{
    if (std::this_thread::get_id() == mainThread)
        action();
    else
        PostTask(std::move(action));
}

HMIDIOUT MidiOutHandle() { return hMidiOut; }

void MidiOut_Set(HMIDIOUT hOut)
{
    HMIDIOUT hBefore = nullptr;
    {
        std::scoped_lock const hold(midiOutLock);
        hBefore = hMidiOut.exchange(hOut);
    }
    if (hBefore)
        midiOutClose(hBefore);
}

uint32_t MidiOut_Send(HMIDIOUT hOut, uint32_t dwMessage)
{
    if (fMidiTrace)
        OnMainThread([dwMessage]
                     { DebugLog(Format("midiOutShortMsg %08lx\n", static_cast<unsigned long>(dwMessage))); });
    std::scoped_lock const hold(midiOutLock);
    return hOut && hOut == hMidiOut ? midiOutShortMsg(hOut, dwMessage) : MMSYSERR_NOERROR;
}

bool MidiOut_Check(char const* sCaption, uint32_t nResult)
{
    if (nResult == MMSYSERR_NOERROR)
        return true;
    OnMainThread(
        [sCaption, nResult]
        {
            std::string szText;
            if (!midiOutGetErrorTextA(nResult, szText))
                szText = "Unrecognised MIDI out error";
            MessageBoxA(hwndMain, szText, sCaption, MB_OK);
        });
    return false;
}

bool MidiProgramChange(int32_t lChannel, int32_t lProgram)
{
    uint32_t const dwMessage =
        static_cast<uint32_t>(lProgram) << 8 | (nProgramChange + static_cast<uint32_t>(lChannel));
    return MidiOut_Check("MidiOutShortMsg", MidiOut_Send(MidiOutHandle(), dwMessage));
}

bool MidiNoteOn(HMIDIOUT hOut, int32_t lNote, int32_t lVolume, int32_t lChannel)
{
    uint32_t const dwMessage = static_cast<uint32_t>(lVolume) << 16 | static_cast<uint32_t>(lNote) << 8 |
                               (nNoteOn + static_cast<uint32_t>(lChannel));
    return MidiOut_Check("MidiOutShortMsg", MidiOut_Send(hOut, dwMessage));
}

bool AllNotesOff(HMIDIOUT hOut)
{
    if (!hOut)
        return true;
    for (int32_t lChannel = 0; lChannel <= lHighestPlayedChannel; ++lChannel)
        for (int32_t lNote = 0; lNote <= lHighestSilenced; ++lNote)
            if (!MidiNoteOn(hOut, lNote, 0, lChannel))
                return false;
    return true;
}
} // namespace zarn

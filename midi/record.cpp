// Recording.
//
// A start that fails leaves the input open, as the check in the menu shows; stopping takes back whatever the start has
// come to.
#include "midi/record.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/insert_run.h"
#include "midi/in_device.h"
#include "midi/midi_out.h"
#include "midi/track_key.h"
#include "platform/memory.h"
#include "platform/midi_header.h"

#include <new>

namespace zarn
{
namespace
{
constexpr size_t cbHeader = 64;         ///< the block that holds the header
constexpr uint32_t lHeaderFlags = 8194; ///< moveable and shared
constexpr uint32_t cbLongData = 1000;   ///< of long messages, which nothing reads
constexpr int32_t lCrotchet = 48;       ///< ticks
constexpr uint32_t lFinePeriodMs = 1;

constexpr int32_t lFirstNoteOff = 0x80;
constexpr int32_t lLastNoteOff = 0x8F;
constexpr int32_t lLastNoteOn = 0x9F;
constexpr int32_t lLongData = 0xF0;
constexpr int32_t lEndOfLongData = 0xF7; ///< by itself: of a message whose beginning was lost

char aLongData[cbLongData];
HGLOBAL hHeader = nullptr;
MIDIHDR* pHeader = nullptr; ///< in hHeader; lent to the input
bool bFineClock = false;
Placement take; ///< listHeld is the take's

void TakeBackHeader()
{
    if (!pHeader)
        return;
    midiInUnprepareHeader(hMidiIn, pHeader);
    GlobalUnlock(hHeader);
    pHeader = nullptr;
}

void FreeHeader()
{
    GlobalFree(hHeader);
    hHeader = nullptr;
}

/// Lends the input a buffer for long messages; false when it can't be, and the user has been told.
bool PrepareHeader()
{
    static_assert(sizeof(MIDIHDR) <= cbHeader);
    hHeader = GlobalAlloc(lHeaderFlags, cbHeader);
    if (!hHeader)
    {
        Serious("Couldn't get global memory handle for MIDIHDR");
        return false;
    }
    void* const pBlock = GlobalLock(hHeader);
    if (!pBlock)
    {
        Serious("Couldn't locked global memory for MIDIHDR");
        return false;
    }
    auto* const pLent = new (pBlock) MIDIHDR{aLongData, cbLongData};
    if (midiInPrepareHeader(hMidiIn, pLent) != MMSYSERR_NOERROR)
    {
        GlobalUnlock(hHeader);
        Serious("Couldn't prepare MIDI input header");
        return false;
    }
    pHeader = pLent;
    return true;
}

/// True when the input listens.
bool Listen()
{
    if (!PrepareHeader())
        return false;
    timeBeginPeriod(lFinePeriodMs);
    bFineClock = true;
    take = Placement{};
    TrackKey(0, lResetVelocity, take.listHeld, 0);
    if (HMIDIOUT const hMidiOut = MidiOutHandle())
        if (uint32_t const nResult = midiConnect(hMidiIn, hMidiOut); nResult != MMSYSERR_NOERROR)
        {
            Serious(Format("MidiInConnect error %d == %8x", static_cast<int32_t>(nResult), nResult));
            return false;
        }
    uint32_t const nResult = midiInStart(hMidiIn);
    if (nResult != MMSYSERR_NOERROR)
        Serious(Format("MidiInStart error %d == %8x", static_cast<int32_t>(nResult), nResult));
    return nResult == MMSYSERR_NOERROR;
}

void KeyMessage(int32_t lNote, int32_t lVelocity)
{
    int32_t const lTime = Wrap_Sub(static_cast<int32_t>(timeGetTime()), gltStart);
    int32_t const lPlayed = TrackKey(lNote, lVelocity, take.listHeld, lTime);
    if (lVelocity <= 0)
        return;
    InsertRun const run;
    PlaceNotes(take, lPlayed, false);
    InvalidateRect(hMidiInWindow);
}
} // namespace

void CreateMidiInWindow(HWND hwndParent) { hMidiInWindow = hwndParent; }

bool IsRecording() { return hMidiIn != nullptr; }

void StartRecording()
{
    if (hMidiIn)
        return;
    MidiIn_ShowError("MidiInOpen", midiInOpen(hMidiIn, MidiIn_Choose()));
    if (!hMidiIn)
    {
        Serious("Midi input handle=NULL");
        return;
    }
    if (!Listen())
    {
        TakeBackHeader();
        FreeHeader();
        return;
    }
    CurrentSymbol_SetNote(lCrotchet);
    Metronome_SetStopping(false);
}

void StopRecording(HWND hwnd)
{
    Metronome_SetStopping(true);
    if (!hMidiIn)
        return;
    {
        InsertRun const run;
        PlaceNotes(take, TrackKey(-1, 1, take.listHeld, 0), true);
    }
    InvalidateRect(hwnd);
    midiInStop(hMidiIn);
    if (MidiOutHandle())
        midiDisconnect(hMidiIn);
    TakeBackHeader();
    take = Placement{};
    if (bFineClock)
        timeEndPeriod(lFinePeriodMs);
    bFineClock = false;
    FreeHeader();
    midiInClose(hMidiIn);
    hMidiIn = nullptr;
    Metronome_KillTimer();
}

void Recording_EndThru()
{
    if (hMidiIn)
        midiDisconnect(hMidiIn);
}

void MidiIn_Message(int32_t lStatus, int32_t lData1, int32_t lData2)
{
    if (!hMidiIn) // sent before it was closed
        return;
    if (lStatus < lFirstNoteOff)
        DebugLog("MM_MIM_ERROR has happened \r\n");
    else if (lStatus <= lLastNoteOff)
        KeyMessage(lData1, 0);
    else if (lStatus <= lLastNoteOn)
        KeyMessage(lData1, lData2);
    else if (lStatus == lLongData)
        DebugLog("MM_MIM_LONGDATA has happened \r\n");
    else if (lStatus == lEndOfLongData)
        DebugLog("MM_MIM_LONGERROR has happened \r\n");
}

std::vector<HeldNote> const& RecordedNotes() { return take.listHeld; }
} // namespace zarn

// The metronome's chain of one-shot timers.
//
// A tick sets off the next one before it sounds, so that the chain keeps its period however long the note blocks. When
// the beat is found anew its chain begins beside the old one, whose timer is left to go off: its tick finds a later
// generation and sets off no other.
#include "midi/metronome.h"

#include "core/text.h"
#include "midi/sound_note.h"
#include "platform/user.h"
#include "platform/winmm.h"

#include <algorithm>
#include <mutex>

namespace zarn
{
namespace
{
// The tick's note: a drum of the General MIDI percussion channel, two of them by turns.
constexpr int32_t lDingNote = 38;
constexpr int32_t lDingProgram = 2;
constexpr int32_t lDrumChannel = 9;
constexpr int32_t lDingVolume = 127;
constexpr uint32_t lDingLengthMs = 20;

std::mutex metronomeLock;
MetronomeState metronome; ///< behind the lock

/// Milliseconds since the first key-down.
int32_t TakeTime() { return Wrap_Sub(static_cast<int32_t>(timeGetTime()), gltStart); }

/// A tick that is already due comes in the next millisecond: a timer of no time would leave the timer's thread no rest.
uint32_t SetTimer(int32_t lDelay, int32_t lGeneration)
{
    return timeSetEvent(static_cast<uint32_t>(std::max(lDelay, 1)), [lGeneration] { Ding(lGeneration); });
}

struct DingLine
{
    bool bSkipped = false;
    int32_t lNow = 0;
    int32_t lCount = 0;
    int32_t lGeneration = 0;
    int32_t lError = 0;
    int32_t lDelay = 0;
};

/// The trace belongs to the main thread.
void Log(DingLine const& line)
{
    PostTask(
        [line]
        {
            if (pDebugLogSink)
                DebugLog(Format(line.bSkipped ? "%d Skip  %d, dwuser=%d, error=%d Delay=%d\r\n"
                                              : "%d Ding! %d, dwuser=%d, error=%d Delay=%d\r\n",
                                line.lNow, line.lCount, line.lGeneration, line.lError, line.lDelay));
        });
}
} // namespace

MetronomeState Metronome_State()
{
    std::scoped_lock const lock(metronomeLock);
    return metronome;
}

MetronomeStart Metronome_Restart(int32_t lTime, int32_t lPeriod)
{
    std::scoped_lock const lock(metronomeLock);
    metronome.lDingCount = 0;
    metronome.lTimerGeneration = Wrap_Add(metronome.lTimerGeneration, 1);
    metronome.lDingPeriod = lPeriod;
    int32_t const lDelay = Clamp32(int64_t{lTime} - TakeTime() + lPeriod);
    metronome.gTimer = SetTimer(lDelay, metronome.lTimerGeneration);
    metronome.lNextDing = Clamp32(int64_t{lTime} + lPeriod);
    return {lDelay, metronome.gTimer};
}

void Metronome_SetStopping(bool fStopping)
{
    std::scoped_lock const lock(metronomeLock);
    metronome.fStopping = fStopping;
}

void Metronome_KillTimer()
{
    // Not inside the lock: a host may wait here for a tick that has begun.
    timeKillEvent(Metronome_State().gTimer);
}

bool Ding_IsSkipped(int32_t lDingsInBeat, int32_t lDingCount, bool bCurrent, int32_t lError, int32_t lPeriod)
{
    if (lDingsInBeat == 4 && lDingCount % 4 == 1)
        return true;
    return !bCurrent && lError < 0 && -int64_t{lPeriod} <= int64_t{2} * lError;
}

void Ding(int32_t lGeneration)
{
    DingLine line;
    line.lGeneration = lGeneration;
    {
        std::scoped_lock const lock(metronomeLock);
        bool const bCurrent = lGeneration == metronome.lTimerGeneration;
        if (bCurrent && !metronome.fStopping)
            metronome.gTimer = SetTimer(metronome.lDingPeriod, lGeneration);
        line.lNow = TakeTime();
        line.lError = Wrap_Sub(line.lNow, metronome.lNextDing);
        line.lCount = metronome.lDingCount;
        line.lDelay = metronome.lDingPeriod;
        line.bSkipped = Ding_IsSkipped(lDingsPerBeat, line.lCount, bCurrent, line.lError, metronome.lDingPeriod);
        metronome.lDingCount = Wrap_Add(metronome.lDingCount, 1);
    }
    if (!line.bSkipped)
        SoundNoteFor(lDingNote + (line.lCount & 1), lDingProgram, lDrumChannel, lDingVolume, lDingLengthMs);
    Log(line);
}
} // namespace zarn

// The player's thread. Time is always measured against the start of the pass, so that lateness does not add up.
#include "midi/player.h"

#include "core/text.h"
#include "midi/midi_out.h"
#include "platform/user.h"
#include "platform/winmm.h"

#include <algorithm>
#include <utility>

namespace zarn
{
namespace
{
constexpr int32_t lLongestSleepMs = 100; ///< CTRL is looked at so often
constexpr uint32_t lCtrlPauseMs = 10;    ///< ahead of a pass that CTRL held down may end before its first note

enum class PassEnd
{
    PLAYED, ///< to its last record
    LEFT,   ///< CTRL was down between two records
    STOPPED ///< CTRL went down in a wait, the play was called off, or the device has gone
};

PlayRecords listPlay; ///< the main thread's until a play begins, then the player's until playEnded is set
WakeEvent stopPlay;
WakeEvent playEnded(true);
std::atomic<int32_t> lPlayedColumn = lNoPlace;

bool IsControlDown() { return GetAsyncKeyState(VK_CONTROL) < 0; }

/// 1 when the time has passed, 0 when CTRL went down meanwhile or the play was called off. Without time to wait CTRL
/// isn't looked at.
int32_t WaitOrCtrl(int32_t lMilliseconds)
{
    uint32_t const lStart = timeGetTime();
    while (!stopPlay.IsSet())
    {
        int64_t const lLeft = int64_t{lMilliseconds} - (timeGetTime() - lStart);
        if (lLeft <= 0)
            return 1;
        WaitForSingleObject(stopPlay, static_cast<uint32_t>(std::min<int64_t>(lLeft, lLongestSleepMs)));
        if (IsControlDown())
            return 0;
    }
    return 0;
}

/// What is late is positive.
int32_t LateBy(int32_t lTime, uint32_t lBegin) { return Clamp32(int64_t{timeGetTime() - lBegin} - lTime); }

/// False when the device refused.
bool Send(PlayRecord const& record)
{
    if (record.lProgram != -1)
        return MidiProgramChange(record.lChannel, record.lProgram);
    if (record.lTempo != -1 || record.lNote == -1)
        return true;
    return MidiNoteOn(MidiOutHandle(), record.lNote, record.lVolume, record.lChannel);
}

/// A note that begins, or a rest, moves the marker of the place being played.
void ShowPlace(PlayRecord const& record)
{
    bool const bNoteOff = record.lNote != -1 && record.lVolume == 0;
    if (record.lProgram == -1 && record.lTempo == -1 && !bNoteOff)
        lPlayedColumn = record.lColumn;
}

PassEnd PlayPass()
{
    uint32_t const lBegin = timeGetTime();
    for (PlayRecord& record : listPlay)
    {
        if (IsControlDown())
            return PassEnd::LEFT;
        // Programs and tempos stand at their ticks, which hardly ever leaves them anything to wait for; but they do
        // wait, so that no record overtakes another.
        if (!WaitOrCtrl(Clamp32(-int64_t{LateBy(record.lTime, lBegin)})))
        {
            AllNotesOff(MidiOutHandle());
            return PassEnd::STOPPED;
        }
        record.lLate = LateBy(record.lTime, lBegin);
        if (!Send(record))
            return PassEnd::STOPPED;
        ShowPlace(record);
    }
    return PassEnd::PLAYED;
}

/// A pass of no length would be played over and over without a wait.
bool TakesTime()
{
    return std::any_of(listPlay.begin(), listPlay.end(),
                       [](PlayRecord const& record) { return record.lTempo == -1 && record.lTime > 0; });
}

/// The player's body.
/// @param bMayRepeat  false on the main thread: nobody could switch fEndlessRepeat off there
int32_t PlayThread(bool bMayRepeat)
{
    bMayRepeat = bMayRepeat && TakesTime();
    PassEnd end = PassEnd::PLAYED;
    do
    {
        if (end == PassEnd::LEFT)
            WaitForSingleObject(stopPlay, lCtrlPauseMs);
        end = PlayPass();
        if (pOnPassPlayed)
            pOnPassPlayed(listPlay);
    } while (bMayRepeat && fEndlessRepeat && end != PassEnd::STOPPED && !stopPlay.IsSet());
    timeEndPeriod(1);
    listPlay = PlayRecords();
    lPlayedColumn = lNoPlace;
    playEnded.Set();
    return 0;
}
} // namespace

void Player_Start(PlayRecords list)
{
    listPlay = std::move(list);
    stopPlay.Reset();
    playEnded.Reset();
    timeBeginPeriod(1);
    if (!CreateThread([] { PlayThread(true); }))
        PlayThread(false);
}

bool Player_IsPlaying() { return !playEnded.IsSet(); }

void Player_Stop()
{
    stopPlay.Set();
    playEnded.Wait();
}

void Player_Wait() { playEnded.Wait(); }

int32_t Player_Column() { return lPlayedColumn; }
} // namespace zarn

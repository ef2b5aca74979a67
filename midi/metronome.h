/// The metronome of a recording: two ticks to each beat that the follower has found, each set off by the one before.
///
/// The follower starts it anew on the main thread; the ticks come on the timer's thread. What both touch is behind one
/// lock, or atomic. A chain of ticks belongs to a generation and dies out once a later one has begun.
#pragma once
#include <atomic>
#include <cstdint>

namespace zarn
{
constexpr int32_t lDingsPerBeat = 2;

/// The clock at the first key-down, in milliseconds; 0 until then. The follower writes it, on the main thread.
inline std::atomic<int32_t> gltStart = 0;

struct MetronomeState
{
    int32_t lDingPeriod = 0;      ///< milliseconds
    int32_t lNextDing = 0;        ///< when the first tick is due; milliseconds since gltStart; not moved on
    int32_t lDingCount = 0;       ///< ticks since the chain began, skipped ones too
    int32_t lTimerGeneration = 1; ///< of the chain that goes on
    uint32_t gTimer = 0;          ///< the timer set last
    bool fStopping = false;       ///< no tick sets off another
};
/// As it stands. Any thread.
[[nodiscard]] MetronomeState Metronome_State();

struct MetronomeStart
{
    int32_t lDelay = 0; ///< milliseconds to the first tick
    uint32_t gTimer = 0;
};
/// A new generation, with its first tick one period behind the beat. Main thread.
/// @param lTime    the beat, in milliseconds since gltStart
/// @param lPeriod  milliseconds
MetronomeStart Metronome_Restart(int32_t lTime, int32_t lPeriod);
/// While a recording ends no tick sets off another; a new recording lets them. Main thread.
void Metronome_SetStopping(bool fStopping);
/// Takes away the tick that is due next. Main thread.
void Metronome_KillTimer();

/// A tick, on the timer's thread. One that belongs to an earlier generation is silent when the new chain's first tick
/// is at most half a period ahead. Blocks while the note sounds.
void Ding(int32_t lGeneration);

/// Whether a tick is silent. With four ticks to a beat the second of each four is silent as well.
/// @param lError  milliseconds by which the tick comes behind the new chain's first one; negative ahead of it
[[nodiscard]] bool Ding_IsSkipped(int32_t lDingsInBeat, int32_t lDingCount, bool bCurrent, int32_t lError,
                                  int32_t lPeriod);
} // namespace zarn

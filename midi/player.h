/// The player: sends a finished play list to the MIDI output, each record at its millisecond.
///
/// It runs on a thread of its own and owns its list until the play ends; it reads nothing of the Score. Holding CTRL
/// down ends a play. A device that refuses a message ends it too, and is told once.
#pragma once
#include "midi/play_record.h"

#include <atomic>
#include <cstdint>
#include <functional>

namespace zarn
{
inline std::atomic<bool> fEndlessRepeat = false; ///< option: looked at whenever a pass has ended

/// Called at the end of each pass with every record's lateness in lLate (lNotSent where the play was ended before it),
/// on the player's thread; for measurements. Set while no play runs.
inline std::function<void(PlayRecords const& listPlay)> pOnPassPlayed;

/// Begins a play of records whose times are milliseconds, and returns at once; where no thread can be made it returns
/// when the play has ended, and plays one pass. Main thread, while no play runs.
void Player_Start(PlayRecords listPlay);

[[nodiscard]] bool Player_IsPlaying(); ///< Any thread.
void Player_Stop();                    ///< Ends a play now, all notes off, and returns when it has ended. Main thread.
void Player_Wait();                    ///< Returns when the play has ended by itself. Main thread.

/// The column of the symbol that sounded last, lNoPlace when no play runs or none has. Any thread.
[[nodiscard]] int32_t Player_Column();
} // namespace zarn

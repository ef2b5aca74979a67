/// From the ticks of a play list to the milliseconds of a play.
#pragma once
#include "midi/play_record.h"

namespace zarn
{
inline bool fDoubleSpeed = false; ///< option: every step takes half its time; read before a play begins

/// Turns lTime of notes and time markers from ticks into milliseconds since the play begins. Each step is rounded down
/// for itself, at the tempo in force at its later end. Program and tempo records keep their ticks, so that the list is
/// in order of time no longer, and order alone tells what comes next.
void SetPlayTimes(PlayRecords& listPlay);
} // namespace zarn

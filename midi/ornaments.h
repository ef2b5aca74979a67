/// Ornaments as notes.
#pragma once
#include "midi/play_record.h"

#include <cstdint>

namespace zarn
{
/// Plays an ornamented note from the onset in record on: the note itself, and the turn that lStyle asks for when there
/// is time for one. The note's own end isn't added.
/// @param lSounds  ticks that the note really sounds
/// @param lUp, lDown  MIDI notes of the positions above and below
void AddOrnament(PlayRecords& records, PlayRecord const& record, int32_t lStyle, int32_t lSounds, int32_t lUp,
                 int32_t lDown);
} // namespace zarn

/// How a score is played: the options of the player, each with a check mark in the menu. They take effect at the next
/// play, fEndlessRepeat at the end of a pass.
#pragma once
#include "midi/play_list.h"

#include <cstdint>

namespace zarn
{
void ToggleDoubleSpeed();
void ToggleEndlessRepeat();
void ToggleBarnDance();
void ToggleDottedCrotchet(); ///< Either of these two turns the other off.
void ToggleDottedQuaver();
void ToggleOrnaments(OrnamentStyle style); ///< The same once more plays them plain.
void TogglePlayChords();                   ///< Stored.
void TogglePlayStaff(int32_t lStaff);      ///< 1 to 8
void ToggleMidiTrace();
void AskDefaultInstrument(); ///< Stored; Cancel stores what was shown.

/// Brings their check marks in line.
void PlayOptions_ShowChecks();
} // namespace zarn

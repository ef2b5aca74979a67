/// The marker of the place being played follows the player on the window, and the view follows the marker.
#pragma once
#include "platform/gdi.h"

namespace zarn
{
inline bool bShowPlayed = true; ///< option

void ToggleShowPlayed();       ///< Stored.
void PlayMarker_LoadSetting(); ///< At start.

/// Begins a play of the Score in hand by pBegin, and marks it. The marker goes when that play ends, and when another
/// Score comes in.
void PlayMarker_Begin(void (*pBegin)());
/// Puts the marker where the player is now, and the line with it in view. Called by a timer while a play runs.
void PlayMarker_Follow();
/// Paints it, ahead of the score.
void PlayMarker_Paint(HDC hdc);
} // namespace zarn

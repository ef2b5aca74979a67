/// Tablature as a view of the score: shown or not, and notes entered through it. Main thread.
#pragma once
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
/// Shows or hides the tablature. It needs one staff alone: the caller sees to that, and lays the score out again.
void Tab_SetShown(bool bOn);
[[nodiscard]] bool Tab_IsShown();

/// Enters a fret on the string at a place, in device pixels, as AddFretNote does; then lays the score out again and has
/// it repainted. False when no note was added.
bool Tab_NoteFromFret(HDC hdc, HWND hwnd, int32_t x, int32_t y, int32_t lFret);
} // namespace zarn

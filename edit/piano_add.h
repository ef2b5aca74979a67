/// A note from the piano, with the accidental that it needs.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Adds a note behind pelInsertPoint, which moves on to it, and draws it unless hdc is null. An insert point on another
/// staff counts as the same column of lStaff. lDuration in ticks goes into the current symbol, 0 keeps the one that it
/// has. lAccid is asked for: 1 sharp, -1 flat, 0 natural; one that goes against the key is respelled in the key's own
/// direction, and an accidental stands ahead of the note when the key and the bar ask for one. Without a NOTE as
/// current symbol the user is told, and nothing is added. The note's pitch is left to the next RefreshPitches.
void Piano_AddNote(HDC hdc, HWND hwnd, int32_t lDiaPitch, int32_t lStaff, int32_t lDuration, int32_t lAccid);
} // namespace zarn

/// The piano keyboard: six octaves along the bottom of the main window, whose keys enter notes.
#pragma once
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
constexpr int32_t cPianoKeys = 43; ///< white keys, from 0; key 21 is middle C
constexpr int32_t lMiddleCKey = 21;

/// A key of the piano.
struct PianoKey
{
    int32_t lDiaPitch = 0; ///< of a black key, that of the white one to its left
    bool bBlack = false;
};

/// The piano, hidden yet; null when the platform has none to give.
[[nodiscard]] Panel* Piano_Create(HWND hwndParent);
void Piano_Paint(Panel& window, HDC hdc);
/// The key at a place in the piano's own pixels; size is the piano's, less what the palette hides; beside
/// it, the last key is meant.
[[nodiscard]] PianoKey Piano_KeyAt(SIZE size, POINT place);
/// Adds the note of the key at that place behind the insert point, as Piano_AddNote does, lays the score out as
/// MiniAdjust does, and has the main window repainted.
void Piano_Click(Panel& window, int32_t x, int32_t y);
} // namespace zarn

/// The pointer that is the current symbol: a click puts down what it shows.
#pragma once
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
/// The fret that is being typed on the tablature; the pointer shows it. Written by the fret entry of the shell.
inline int32_t lFretNumber = 0;

/// Sets the scale that a sort is drawn at in the pointer (SetCursorScale), where it has one of its own, and gives the
/// hot spot in pixels of the 32 by 32 picture.
[[nodiscard]] POINT CursorSpec(int32_t lSort, int32_t lA);

/// Draws elCurrent as the pointer of the window and shows it. The window's units are as before afterwards; the hot spot
/// stands in elCurrent's lX and lY.
void MakeSymbolCursor(HWND hwnd);

/// Shows the pointer that was made last.
void ReassertCursor(HWND hwnd);
} // namespace zarn

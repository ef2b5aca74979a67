/// Colours in force: red for the marked section, blue for what overruns its bar or can't be played, green for the
/// element under the pointer. The first one asked for stays on the device until EndColour.
#pragma once
#include "platform/gdi.h"

namespace zarn
{
inline bool bDrawRed = false;
inline bool bDrawBlue = false;
inline bool bDrawGreen = false;

void BeginRed(HDC hdc);
void BeginGreen(HDC hdc);
void BeginBlue(HDC hdc);
/// Puts back what the device had before; nothing when no colour is in force.
void EndColour(HDC hdc);

/// The wide pen of the colour in force: blue before red before green, else black.
[[nodiscard]] HPEN WidePen();
} // namespace zarn

/// Toggling the dot, the triplet, staccato and the ornament: on the current symbol, or on a chord of the score.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Act on the chord of pel, each note by its own test, or on a rest. 1 when they changed a chord of several notes.
int32_t ToggleDot(Element* pel);
int32_t ToggleTriplet(Element* pel);
int32_t ToggleStaccato(Element* pel); ///< notes only
int32_t ToggleOrnament(Element* pel); ///< notes only

void ToggleCurrentDot();
void ToggleCurrentTriplet();
void ToggleCurrentStaccato();
void ToggleCurrentOrnament();

/// Act on what is nearest to a place in device pixels, and redraw as far as it takes. hdc may be null.
void ToggleDotAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y);
void ToggleTripletAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y);
void ToggleStaccatoAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y);
void ToggleOrnamentAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y);
} // namespace zarn

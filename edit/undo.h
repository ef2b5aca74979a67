/// Undo: one level, driven by what the last edit was (UndoState).
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
constexpr int32_t PASTED = 2; ///< mode of ReinsertElement for a paste

/// Puts a copy of el behind pelAfter, null for the head of el's staff. Eight bytes of a text come along, and lMode ends
/// it. Gives the new element; null when a TIE has nothing to join, which a paste doesn't ask.
Element* ReinsertElement(Element* pelAfter, Element const* el, int32_t lMode);

/// Undoes the last edit; an undone add or delete, and an undone cut, can be undone in turn. hdc and hwnd may be null.
void Undo(HDC hdc, HWND hwnd);
} // namespace zarn

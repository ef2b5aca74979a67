/// Cut, copy and paste: ranges of one staff, through a List of copies that outlives the score.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Moves the mark into the clipboard; hdc and hwnd may be null. Without a mark it leaves bAutoLayout off: the command
/// is grey then.
void Cut(HDC hdc, HWND hwnd);
/// Copies the mark into the clipboard; without a mark the clipboard becomes empty.
void Copy();
/// Puts the clipboard in at a position in device pixels; the pasted elements keep their columns, so that a FullAdjust
/// has to follow. A staff that doesn't show takes nothing.
void PasteAt(HWND hwnd, int32_t x, int32_t y);
} // namespace zarn

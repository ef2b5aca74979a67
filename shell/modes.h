/// The two modes. In mouse mode the pointer is the current symbol and a click puts it down; in keyboard mode the
/// pointer is a cross that steps by columns and rows, and each symbol command adds at once where it stands.
#pragma once
#include "platform/user.h"

#include <cstdint>

namespace zarn
{
inline int32_t fMouseMode = 1; ///< 1 in mouse mode, 0 in keyboard mode

void EnterKeyboardMode(); ///< The pointer becomes a cross in any case.
void EnterMouseMode(HWND hwnd);
/// The menu's two entries and the pointer's shape as the mode has them: at the start.
void Modes_Show();

/// Edit mode has made what was deleted the current symbol: in mouse mode the pointer takes its shape.
void ShowDeletedAsPointer();

/// The nearest place, in client pixels, that lies exactly on a column and a row; on the tablature, on a string.
[[nodiscard]] POINT SnapToGrid(POINT place);
/// The nearest place that lies exactly on a column and a string.
[[nodiscard]] POINT SnapToString(POINT place);

/// What follows each change of the current symbol: in mouse mode the pointer takes its shape; in keyboard mode it is
/// added at the pointer.
void CommitSymbol();
/// The keyboard's add at the pointer, which then moves on.
void AddCurrentSymbol(HWND hwnd, HDC hdc);
/// The pointer over the score as the mode wants it.
void ShowModePointer(HWND hwnd);
} // namespace zarn

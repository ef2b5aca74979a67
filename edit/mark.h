/// The mark: a range of one staff.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// What was the current symbol before the mark sign; its sort is NOSORT while none is saved.
inline RoomyElement elSavedCurrent;

/// Make the mark sign the current symbol, saving what it was unless something is saved already.
void Mark_SetBeginSymbol();
void Mark_SetEndSymbol();
/// Place an end of the mark at a position in device pixels, and make the saved symbol the current one again. True when
/// there is a mark now.
bool MarkBeginAt(HWND hwnd, int32_t x, int32_t y);
bool MarkEndAt(HWND hwnd, int32_t x, int32_t y);
void MarkClear(HWND hwnd); ///< Repaints.
} // namespace zarn

/// Deleting a symbol with everything that depends on it.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
inline bool bEditMode = false; ///< option: a deleted symbol becomes the current symbol

/// Takes pel out: its ties, its beam, its chord's flags, the shift of a clef, the slur's partner. It goes into the undo
/// store. bLayout lets it lay the score out, when bAutoLayout is on too. hdc and hwnd may be null. Not 0 when the
/// caller has to repaint.
int32_t DeleteElement(HDC hdc, HWND hwnd, Element* pel, bool bLayout);
} // namespace zarn

/// Text elements.
#pragma once
#include "core/score.h"
#include "platform/gdi.h"

#include <string_view>

namespace zarn
{
/// Adds a text element of that sort behind pelInsertPoint and moves on. lLen is the length that its lA states; bytes of
/// sText beyond it are left out, and missing ones are NULs. Above 1000 the text is cut at 999, and the user told.
void Text_AddAtInsertPoint(std::string_view sText, int32_t lLen, int32_t sort, bool bPreamble);

/// The same for who knows the clef in force at pelInsertPoint, 1 to 4, and so spares the walk back for it.
void Text_AddUnderClef(std::string_view sText, int32_t lLen, int32_t sort, bool bPreamble, int32_t lClef);

/// Adds a text element of elCurrent's sort at a place in device pixels, and lays the score out when bAutoLayout is on.
/// lLen as above. hdc is the surface that the place was read on; nothing is drawn, the caller repaints.
void Text_AddAtCursor(HDC hdc, std::string_view sText, int32_t lLen, int32_t x, int32_t y);

/// Puts an element with another text in pel's place and gives it; pel is gone, and what pointed at it points at the new
/// one. Above 1000 bytes the text is cut at 999, and the user told. Neither bScoreDirty nor the width changes. Null,
/// and pel stays, when memory has run out.
Element* Text_Replace(Element* pel, std::string_view sText);
} // namespace zarn

/// Text elements.
#pragma once
#include "core/score.h"

#include <string_view>

namespace zarn
{
/// Adds a text element of that sort behind pelInsertPoint and moves on. lLen is the length that its lA states; bytes of
/// sText beyond it are left out, and missing ones are NULs. Above 1000 the text is cut at 999, and the user told.
void Text_AddAtInsertPoint(std::string_view sText, int32_t lLen, int32_t sort, bool bPreamble);
} // namespace zarn

/// Repeat signs that balance, for as long as a play or an import needs it.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Adds the signs that are missing on staffs 1 to 8; with bMark they carry the bit that Score_StripAddedRepeats looks
/// for. 1 when it added one.
int32_t Score_BalanceRepeats(bool bMark);
/// Removes the signs that were added with the mark.
void Score_StripAddedRepeats();
} // namespace zarn

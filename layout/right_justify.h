/// Right-justified mode: each line of music but the last is stretched over the page as it is drawn.
#pragma once
#include "core/score.h"

namespace zarn
{
inline bool bRightJustified = false; ///< option; edits are refused in this mode

/// Rewrites lX and lY of a staff's elements for drawing; lStrX stays. ReGrid puts them back.
void RightJustifyStaff(List list);

/// The same for some of a staff's lines: from pelFirst, which begins one and is drawn under lClef, through the line
/// that holds the element ahead of pelEnd (null for all the rest).
void RightJustifyLines(Element* pelFirst, int32_t lClef, Element const* pelEnd);
} // namespace zarn

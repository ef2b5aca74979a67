/// A slur over the marked range.
#pragma once

namespace zarn
{
/// Puts a SLUR ahead of pelMarkBegin and its partner behind pelMarkEnd; the mark then takes them in. It can't be
/// undone. Without a mark it says so, and does nothing.
void SlurMark();
} // namespace zarn

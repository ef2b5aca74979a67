/// What fits above the foot of a page.
#pragma once
#include "core/score.h"

namespace zarn
{
/// True when the staff under pel, or what pel itself draws, may reach below lYFoot, in pixels of the page. Goes by the
/// kind of symbol and errs on the safe side. pel is folded.
[[nodiscard]] bool ReachesBelow(Element const* pel, int32_t lYFoot);
} // namespace zarn

/// The two panels over the foot of the score.
#pragma once

namespace zarn
{
inline bool bPaletteShowing = false;
inline bool bPianoShowing = false;
} // namespace zarn

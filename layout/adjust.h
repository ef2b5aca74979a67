/// The two passes that bring the whole Score up to date.
#pragma once

namespace zarn
{
/// Strips and derives bars again, beams, places all visible staffs, checks beams, sets times and volumes.
void FullAdjust();
/// The same with the bars left alone: only repeated clefs and keys go.
void MiniAdjust();
} // namespace zarn

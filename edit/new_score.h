/// An empty Score.
#pragma once

namespace zarn
{
/// Empties the Score, resets the stage of the staffs, sets all play flags, and makes a crotchet the current symbol.
void Score_New();
} // namespace zarn

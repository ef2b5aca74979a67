/// Taking out of the Score what it doesn't need: repeated clefs and keys, line breaks, accidentals that say nothing.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Removes each CLEF and KEYSIG that repeats the one in force, and clears fOverruns of every element.
void RemoveRedundant(List list);
/// Removes every NEWLINE of staffs 1 to 8, visible or not. The caller runs MiniAdjust.
void RemoveAllNewlines();
/// Removes, on each visible staff, the accidentals that the key or the bar already gives. The caller runs MiniAdjust.
void RemoveSpuriousAccidentals();
} // namespace zarn

/// The sequential adders: what readers and recorders use, behind pelInsertPoint.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Adds elCurrent behind pelInsertPoint, or ahead of the nearest chord's first note, and moves on.
void AddAtInsertPoint(int32_t lDiaPitch, bool bBeforeChord);
/// Adds a note to the chord that stands at pelInsertPoint, or begins it.
void AddChordNote(int32_t lDiaPitch, bool bFirst, int32_t lPitch);
/// Ends the chord: its last note is followed by no other.
void CloseChord();
void SlurReset(); ///< Empties the slur stack.
void SlurOpen();  ///< Pushes pelInsertPoint, unless it is null.
void SlurClose(); ///< Pops a place and slurs what lies behind it.
/// pelInsertPoint goes to the last element of the staff, which becomes visible when it is one of 1 to 8.
void SelectInsertStaff(int32_t lStaff);
/// pelInsertPoint goes to the element at or ahead of a place in device pixels; lInsertStaff stays.
void MoveInsertPoint(int32_t x, int32_t y);
} // namespace zarn

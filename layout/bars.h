/// Bar lines: derived from durations, time signatures and repeat signs, never typed in the normal course.
#pragma once
#include "core/score.h"

namespace zarn
{
constexpr int32_t lDefaultBarLength = 192; ///< ticks: 4/4 until a time signature says otherwise

/// Ticks of a bar under a time signature; lInForce when its denominator is 0 or it gives nothing above 0.
[[nodiscard]] int32_t BarLength(Element const* pelTimeSig, int32_t lInForce);

/// Strips automatic bars and repeated signs from one staff, from pelFirst to the end.
void RemoveBars(Element* pelFirst, int32_t lBarLength);
/// Adds bars to one staff, from pelFirst to the end.
void InsertBars(Element* pelFirst, int32_t lBarLength);
/// True when the next bar-like or sounding element behind pel on its staff is bar-like.
[[nodiscard]] bool BarAhead(Element const* pel);

/// Makers of the signs that open a staff; ahead of pel, or at the end of the list for a null pel.
void AddClefBefore(List list, Element* pel, int32_t lStaff, int32_t lClef);
void AddKeySigBefore(List list, Element* pel, int32_t lKey, int32_t lOldKey, int32_t lClef, int32_t lStaff);
void AddTimeSigBefore(List list, Element* pel, int32_t lNum, int32_t lDen, int32_t lClef, int32_t lStaff);

/// Copies the opening of the piece into an empty staff.
void SeedStaff(int32_t lStaff);
/// Opens staff 1 of a new tune with clef, key and time signature, and lays it out.
void NewTuneOpening(int32_t lClef, int32_t lKey, int32_t lNum, int32_t lDen);
} // namespace zarn

/// Marks on notes, and undoing a beam set.
#pragma once
#include "core/score.h"

namespace zarn
{
/// For importers: set the ornament or the staccato flag of pelInsertPoint. It is set even on what is no note, with a
/// message; a null insert point gets the message alone.
void SetOrnament();
void SetStaccato();
/// Clears the whole beam set that pel stands in. A set without its start or end ends with the staff.
void UnbeamSet(Element* pel);
} // namespace zarn

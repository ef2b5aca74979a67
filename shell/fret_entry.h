/// A fret typed on the tablature: Space begins, digits follow, Enter puts the note down.
#pragma once
#include "platform/event.h"

#include <cstdint>

namespace zarn
{
/// 1 from Space to Enter: the pointer shows the number (lFretNumber), and the keys of lengths rest, since the digits
/// are theirs too.
inline int32_t fFretEntry = 0;

void FretEntry_Begin(); ///< The number is 0.
void FretEntry_End();   ///< Nothing is put down.

/// A key while the pointer is on a string. True when it belonged to the fret, and nothing else may come of it.
[[nodiscard]] bool FretEntry_Key(Event const& key);
} // namespace zarn

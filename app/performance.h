/// The whole Score as it is played, for whoever has no editor at hand.
#pragma once
#include "midi/play_record.h"

namespace zarn
{
/// What a play from the beginning sends, with times in milliseconds. Main thread, in a process of its own.
[[nodiscard]] PlayRecords Performance();
} // namespace zarn

/// A key as the program names it.
#pragma once
#include "platform/event.h"

#include <optional>

class QKeyEvent;

namespace zarn
{
/// Nothing for keys that the program has no name for: modifiers by themselves, media keys, letters outside of ASCII.
[[nodiscard]] std::optional<Event> Key_Event(QKeyEvent const& key);
} // namespace zarn

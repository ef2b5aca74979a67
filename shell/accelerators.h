/// Keys that stand for commands.
#pragma once
#include "platform/event.h"

#include <cstdint>

namespace zarn
{
/// The command of a key press; 0 when the key is no accelerator. A sign goes by the character typed, whatever the
/// layout; a sign that arrives with SHIFT still to be applied is read as on a US keyboard.
[[nodiscard]] int32_t Accelerator_Command(Event const& key);
} // namespace zarn

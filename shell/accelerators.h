/// Keys that stand for commands.
#pragma once
#include "platform/event.h"

#include <cstdint>
#include <string>

namespace zarn
{
/// The command of a key press; 0 when the key is no accelerator. A sign goes by the character typed, whatever the
/// layout; a sign that arrives with SHIFT still to be applied is read as on a US keyboard.
[[nodiscard]] int32_t Accelerator_Command(Event const& key);

/// The first key of a command in words, "Alt+F4"; empty when it has none.
[[nodiscard]] std::string Accelerator_KeyText(int32_t lCommand);
} // namespace zarn

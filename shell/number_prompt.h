/// Settings that a user types as a number, and their menu texts, which show it.
///
/// A label may end with dots ("Left margin percent..."); without them it is the name of the setting.
#pragma once
#include "platform/user.h"

#include <cstdint>
#include <string_view>

namespace zarn
{
/// Asks for the value, stores it and rewrites the menu text as "%s (%d)...". Cancel stores the value that was shown, so
/// a built-in default becomes a stored one. Gives the value.
int32_t NumberPrompt(HWND hwnd, std::string_view sLabel, int32_t lCommand, int32_t lDefault);

/// The stored value, shown in the menu text; the default, and the text left alone, when none is stored.
int32_t NumberPromptInit(std::string_view sLabel, int32_t lCommand, int32_t lDefault);
} // namespace zarn

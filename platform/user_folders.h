/// Folders of the user's that the program may keep things in.
#pragma once
#include <string>

namespace zarn
{
/// For what outlives the process and is no setting: $XDG_STATE_HOME/zarn, or ~/.local/state/zarn. Made, for this user
/// alone, when it isn't there; empty when it can't be.
[[nodiscard]] std::string UserStateFolder();
} // namespace zarn

/// The user's manual.
#pragma once

namespace zarn
{
/// Shows the manual that was installed with the program, in a window of its own. False when it isn't there.
[[nodiscard]] bool Manual_Show();
} // namespace zarn

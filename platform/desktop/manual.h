/// The user's manual.
#pragma once

namespace zarn
{
/// Shows the manual that was installed with the program: in the user's browser, or in a window of ours where there is
/// none. False when it isn't there.
[[nodiscard]] bool Manual_Show();
} // namespace zarn

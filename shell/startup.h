/// Coming up and going down.
#pragma once
#include <cstdint>
#include <string>

namespace zarn
{
/// Makes the empty Score with the settings it needs. First of all, with a window or without one.
void Score_StartUp();
/// The drawing area of a conversion without a window, with the stored margins, instrument and weights.
void Page_StartUp(int32_t lWidth, int32_t lHeight);

/// Brings the program up to its message loop, which is the host's: the Score, the main window, the file of the command
/// line (one quote at either end is taken off; empty for none). From the message loop, once the window shows its first
/// picture, the user is asked about work that an earlier session has lost; and then, with neither that nor a file, how
/// to begin. False when there can be no window.
[[nodiscard]] bool StartUp(std::string_view szCommandLine);

/// Ends what reaches beyond the process: the session's safety copy, a take, the MIDI devices. What memory it holds goes
/// back with the process.
void LeaveProgram();
/// Behind the message loop: leaves, and frees what is left, so that another StartUp may follow.
void ShutDown();
} // namespace zarn

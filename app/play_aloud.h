/// A play without a window.
#pragma once
#include "platform/headless/script_host.h"

namespace zarn
{
/// Plays the Score on the last output that opens, which is the built-in synthesizer where it can be heard, and returns
/// when it has ended. An interrupt (Ctrl+C) ends it with all notes off, and the process as interrupts do. False when it
/// could not be played, or not to its end; the user has been told.
[[nodiscard]] bool PlayAloud(ScriptHost& user);
} // namespace zarn

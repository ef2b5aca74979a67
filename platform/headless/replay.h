/// Playing a journal back without a window.
#pragma once
#include "platform/headless/script_host.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zarn
{
/// "message: TEXT", or "question: TEXT -> ANSWER"; one line.
[[nodiscard]] std::string Shown_Line(Shown const& shown);

/// Hands the journal's events to host.pDoor in order, after the program's start; the window's first paint comes ahead
/// of the first event, and a repaint that is owed follows each, with whatever was posted to the window's loop. Answers
/// join user's line as they are read. Ends early when the program quits, but still looks at what is expected.
/// @param tell  gets each thing shown meanwhile as Shown_Line has it, and every complaint; may be empty
/// @return      0, or 1 when a line can't be read (nothing is played then) or an expectation isn't met
[[nodiscard]] int32_t Replay_Play(std::string_view sJournal, ScriptHost& user,
                                  std::function<void(std::string_view)> const& tell);
} // namespace zarn

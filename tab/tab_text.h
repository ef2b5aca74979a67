/// Tablature as plain text: blocks of one line for each string and one for marks. Main thread.
#pragma once
#include "platform/files.h"

#include <cstdint>
#include <string_view>

namespace zarn
{
/// The name of a MIDI note in two characters: "C-", "C#", "D-" and so on.
[[nodiscard]] std::string_view TabNoteName(int32_t lPitch);

/// Writes the shown staffs to an open file; notes without a fingering get one first. Nothing is written while tablature
/// is hidden, of which the user is told. False when it wasn't all written.
[[nodiscard]] bool Tab_SaveText(HFILE hFile);
} // namespace zarn

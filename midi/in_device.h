/// The choice of the MIDI input, and what the user is told of its errors. Main thread.
#pragma once
#include <cstdint>

namespace zarn
{
/// With two or more inputs the user is asked about each in turn. 0 when there is none, or none was right; the user has
/// been told.
[[nodiscard]] int32_t MidiIn_Choose();
/// Tells the user what a result means, under that caption; nothing for success unless MIDI is traced.
void MidiIn_ShowError(char const* szCaption, uint32_t nResult);
} // namespace zarn

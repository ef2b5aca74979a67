/// The choice among several MIDI outputs.
#pragma once
#include <cstdint>

namespace zarn
{
/// Asks the user. Gives the device's number; -1 when the dialog is cancelled, or no device tells its name. Every device
/// that doesn't is told of.
[[nodiscard]] int32_t SelectMidiDevice(int32_t cDevices);
} // namespace zarn

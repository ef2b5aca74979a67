/// Keys that are no accelerators: moving the pointer, adding, deleting, rests.
#pragma once
#include "platform/event.h"

namespace zarn
{
/// At the start of the program: no run of arrow keys is under way.
void Keyboard_Begin();
/// Handles a key that is in no accelerator table.
void Keyboard_Down(Event const& key);
/// A digit whose command is grey.
void Keyboard_Refuse();
/// The pointer goes to the nearest place that the mode has for it, as behind each key.
void Keyboard_Settle();
/// Switches the mode, as Esc does.
void Keyboard_SwitchMode();
} // namespace zarn

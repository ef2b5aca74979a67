/// Where everything from outside comes in.
#pragma once
#include "platform/event.h"

#include <cstdint>

namespace zarn
{
/// Events that are being dealt with: above 0 while a command runs or one of its dialogs stands. Written by the door.
inline int32_t cEventsInHand = 0;

/// Hands each event to what answers it. Before start-up has made the main window, and once it has gone, events are
/// passed over; so are the kinds that nothing answers.
class ShellDoor : public Door
{
public:
    void Receive(Event const& event) override;
    [[nodiscard]] bool IsAccelerator(Event const& key) const override;
};
} // namespace zarn

/// Where everything from outside comes in.
#pragma once
#include "platform/event.h"

namespace zarn
{
/// Hands each event to what answers it. Before start-up has made the main window, and once it has gone, events are
/// passed over; so are the kinds that nothing answers.
class ShellDoor : public Door
{
public:
    void Receive(Event const& event) override;
    [[nodiscard]] bool IsAccelerator(Event const& key) const override;
};
} // namespace zarn

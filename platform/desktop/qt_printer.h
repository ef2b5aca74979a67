/// The system's default printer.
#pragma once
#include "platform/paged_surface.h"

#include <memory>

namespace zarn
{
/// Null when the system has no default printer.
[[nodiscard]] std::unique_ptr<Printer> Printer_Default();
} // namespace zarn

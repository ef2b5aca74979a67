/// The editor: the program with its window.
#pragma once
#include "app/options.h"

#include <cstdint>

namespace zarn
{
class DesktopHost;

/// Opens the window and runs it to its end; gives the exit status.
[[nodiscard]] int32_t Editor_Run(Options const& options, DesktopHost& desktop);
} // namespace zarn

/// Pages on the screen as they will be on paper.
#pragma once
#include "platform/print.h"

class QWidget;

namespace zarn
{
/// Shows the pages until the user closes them; true when they are to be printed.
[[nodiscard]] bool Preview_Run(PageSource& pages, QWidget* pParent);
} // namespace zarn

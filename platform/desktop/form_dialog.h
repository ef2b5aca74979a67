/// A dialog table as a real dialog.
#pragma once
#include "platform/user.h"

class QWidget;

namespace zarn
{
/// Shows the dialog until a button ends it, and gives that button's id: IDCANCEL also for Esc and the close button.
/// ENTER is the default button, and so is a double click on a row. The table takes over what was filled in, unless the
/// dialog was cancelled.
[[nodiscard]] int32_t Form_Run(Form& form, QWidget* pParent);
} // namespace zarn

/// A dialog table as a real dialog.
#pragma once
#include "platform/user.h"

#include <QPoint>
#include <optional>

class QWidget;

namespace zarn
{
/// Shows the dialog until a button ends it, and gives that button's id: IDCANCEL also for Esc and the close button.
/// ENTER is the default button, and so is a double click on a row; in a text of several lines Ctrl+ENTER begins one.
/// The table takes over what was filled in, unless the dialog was cancelled. With a corner it stands there on the
/// screen, as far as that has room; without one where the desktop puts it.
[[nodiscard]] int32_t Form_Run(Form& form, QWidget* pParent, std::optional<QPoint> corner);
} // namespace zarn

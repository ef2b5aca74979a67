/// Message boxes and file dialogs.
#pragma once
#include "platform/commdlg.h"

class QWidget;

namespace zarn
{
/// The id of the button; for Esc and the close button the safe one: Cancel, No where there is no Cancel, or OK.
[[nodiscard]] int32_t MessageBox_Run(std::string_view sText, std::string_view sCaption, uint32_t lFlags,
                                     QWidget* pParent);
[[nodiscard]] bool OpenName_Run(FileDialog& dialog, QWidget* pParent);
/// Asks nothing about a file that is there already.
[[nodiscard]] bool SaveName_Run(FileDialog& dialog, QWidget* pParent);
} // namespace zarn

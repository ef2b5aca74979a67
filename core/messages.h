/// The four ways in which the program speaks to its user.
///
/// All of them go through the platform's message box, with the main window as owner and the caption "Zarn Message".
/// Main thread.
#pragma once
#include "platform/user.h"

#include <string_view>

namespace zarn
{
/// The main window; null until start-up has made it, and without a window. Written by start-up.
inline HWND hwndMain = nullptr;

/// Information icon, OK.
void Inform(std::string_view sText);

/// Question icon, Yes, No and Cancel: 1, 0 and -1.
[[nodiscard]] int32_t AskYesNoCancel(std::string_view sText);

/// Question icon, Yes and No: 1 and 0. lDefault 0 makes No the button that Enter presses.
[[nodiscard]] int32_t AskYesNo(std::string_view sText, int32_t lDefault);

/// Question icon, OK and Cancel, OK being the default when lDefault isn't 0: 1 for OK, 0 otherwise.
[[nodiscard]] int32_t AskOkCancel(std::string_view sText, int32_t lDefault);

/// Stop icon, OK; shown only while the latch is clear, and sets it. Of a run of errors in one user action only the
/// first reaches the screen, so that a damaged score doesn't bury its user in boxes. Always 1, the value of OK.
int32_t Serious(std::string_view sText);

/// Clears the latch: at the start of each event that the main window handles, and by the few routines that want to go
/// on being heard.
void Serious_Rearm();
} // namespace zarn

/// The small modal dialogs that commands ask with. Main thread.
#pragma once
#include "platform/user.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
/// A line of text under a title; *psText goes in and, on OK, what was typed comes out, cbMost bytes of it. Gives 1,
/// also on Cancel, which leaves *psText alone; 0 when there can be no dialog.
int32_t InputText(HWND hwnd, std::string* psText, std::string_view sTitle, int32_t cbMost);

/// The same at a place in client pixels of the main window. 1 for OK, 0 for Cancel, and when there can be no dialog.
int32_t InputText(HWND hwnd, std::string* psText, std::string_view sTitle, int32_t cbMost, POINT place);

/// As the first InputText, with room for several lines.
int32_t InputLyrics(HWND hwnd, std::string* psText, std::string_view sTitle, int32_t cbMost);

/// A number under a title. The value is read back from the text whether it was OK or Cancel, so a Cancel hands back the
/// number shown, and the caller can't tell the two apart. 0 when there can be no dialog.
int32_t InputNumber(HWND hwnd, int32_t* plValue, std::string_view sTitle);

/// The two numbers of a time signature, as numbers without their sign, also on Cancel, which hands back those that were
/// shown. 1 when the denominator is a power of 2; otherwise 0, and the user has been told. 0, and nothing changes, when
/// there can be no dialog.
int32_t InputTimeSignature(HWND hwnd, int32_t* plNumerator, int32_t* plDenominator);

/// A question with two answers of its own: 1 for the first button, 2 for the second, 0 for Cancel.
[[nodiscard]] int32_t QuestionBox(HWND hwnd, std::string_view sTitle, std::string_view sText, std::string_view sFirst,
                                  std::string_view sSecond);
} // namespace zarn

/// The dialogs as data: their numbers, titles and controls. A host turns them into real ones.
#pragma once
#include "platform/user.h"

#include <cstdint>
#include <string_view>

namespace zarn
{
constexpr int32_t lInputForm = 7001;
constexpr int32_t lInputEdit = 7002;
constexpr int32_t lLyricsForm = 7003;
constexpr int32_t lTimeSignatureForm = 7033;
constexpr int32_t lTimeNumerator = 7034;
constexpr int32_t lTimeDenominator = 7035;
constexpr int32_t lAbortForm = 7036; ///< "ABORTDLG"
constexpr int32_t lAbortFile = 7037;
constexpr int32_t lQuestionForm = 7009;
constexpr int32_t lQuestionText = 8001;
constexpr int32_t lQuestionFirst = 7010;
constexpr int32_t lQuestionSecond = 7011;

/// One line to type, OK and Cancel. sAnswer tells what a journal answers it with: "text" or "number". lLimit is in
/// bytes.
[[nodiscard]] Form InputForm(std::string_view sTitle, std::string_view sText, char const* sAnswer, int32_t lLimit);

/// A text of several lines, OK and Cancel; ENTER is OK, and Ctrl+Enter begins a line. lLimit is in bytes.
[[nodiscard]] Form LyricsForm(std::string_view sTitle, std::string_view sText, int32_t lLimit);

/// Two numbers, OK and Cancel; an answer calls them numerator and denominator.
[[nodiscard]] Form TimeSignatureForm(std::string_view sNumerator, std::string_view sDenominator, int32_t lLimit);

/// The box of a print job: the name of the file, or what stands for it, and Cancel.
[[nodiscard]] Form AbortForm(std::string_view sFile);

/// A text, two named buttons and Cancel.
[[nodiscard]] Form QuestionForm(std::string_view sTitle, std::string_view sText, std::string_view sFirst,
                                std::string_view sSecond);
} // namespace zarn

/// The dialogs as data: their numbers, titles and controls. A host turns them into real ones.
#pragma once
#include "platform/user.h"

#include <cstdint>
#include <string_view>

namespace zarn
{
constexpr int32_t lInputForm = 7001;
constexpr int32_t lInputEdit = 7002;
constexpr int32_t lQuestionForm = 7009;
constexpr int32_t lQuestionText = 8001;
constexpr int32_t lQuestionFirst = 7010;
constexpr int32_t lQuestionSecond = 7011;

/// One line to type, OK and Cancel. sAnswer tells what a journal answers it with: "text" or "number". lLimit is in
/// bytes.
[[nodiscard]] Form InputForm(std::string_view sTitle, std::string_view sText, char const* sAnswer, int32_t lLimit);

/// A text, two named buttons and Cancel.
[[nodiscard]] Form QuestionForm(std::string_view sTitle, std::string_view sText, std::string_view sFirst,
                                std::string_view sSecond);
} // namespace zarn

// The templates of the dialogs.
#include "panels/forms.h"

namespace zarn
{
Form InputForm(std::string_view sTitle, std::string_view sText, char const* sAnswer, int32_t lLimit)
{
    FormControl edit{FormControl::EDIT, lInputEdit, "", std::string(sText)};
    edit.lLimit = lLimit;
    return {lInputForm,
            std::string(sTitle.empty() ? "Input" : sTitle),
            sAnswer,
            {edit, {FormControl::DEFAULT_BUTTON, IDOK, "OK"}, {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
}

Form QuestionForm(std::string_view sTitle, std::string_view sText, std::string_view sFirst, std::string_view sSecond)
{
    return {lQuestionForm,
            std::string(sTitle.empty() ? "Question" : sTitle),
            "box",
            {{FormControl::STATIC, lQuestionText, std::string(sText)},
             {FormControl::DEFAULT_BUTTON, lQuestionFirst, std::string(sFirst)},
             {FormControl::BUTTON, lQuestionSecond, std::string(sSecond)},
             {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
}
} // namespace zarn

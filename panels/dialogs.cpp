// The dialogs: each fills its form, runs it, and reads it back.
#include "panels/dialogs.h"

#include "core/text.h"
#include "panels/forms.h"
#include "panels/number_text.h"

namespace zarn
{
constexpr int32_t cbNumberText = 50; ///< longest text of a number, its NUL included

static int32_t RunInput(HWND hwnd, std::string* psText, std::string_view sTitle, char const* sAnswer, int32_t cbMost)
{
    Form form = InputForm(sTitle, *psText, sAnswer, cbMost);
    int32_t const lButton = DialogBoxParamA(hwnd, form);
    if (lButton == 0)
        return 0;
    if (lButton == IDOK)
        *psText = form.Find(lInputEdit)->sText.substr(0, static_cast<size_t>(cbMost));
    return 1;
}

int32_t InputText(HWND hwnd, std::string* psText, std::string_view sTitle, int32_t cbMost)
{
    return RunInput(hwnd, psText, sTitle, "text", cbMost);
}

int32_t InputNumber(HWND hwnd, int32_t* plValue, std::string_view sTitle)
{
    std::string sText = Format("%d", *plValue);
    if (!RunInput(hwnd, &sText, sTitle, "number", cbNumberText - 1))
        return 0;
    *plValue = AtoiLoose(sText);
    return 1;
}

int32_t QuestionBox(HWND hwnd, std::string_view sTitle, std::string_view sText, std::string_view sFirst,
                    std::string_view sSecond)
{
    Form form = QuestionForm(sTitle, sText, sFirst, sSecond);
    int32_t const lButton = DialogBoxParamA(hwnd, form);
    return lButton == lQuestionFirst ? 1 : lButton == lQuestionSecond ? 2 : 0;
}
} // namespace zarn

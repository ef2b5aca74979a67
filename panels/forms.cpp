// The templates of the dialogs.
#include "panels/forms.h"

#include <utility>

namespace zarn
{
static FormControl OkButton() { return {FormControl::DEFAULT_BUTTON, IDOK, "OK"}; }
static FormControl CancelButton() { return {FormControl::BUTTON, IDCANCEL, "Cancel"}; }

static FormControl Edit(FormControl::Kind kind, int32_t lId, std::string_view sLabel, std::string_view sText,
                        int32_t lLimit)
{
    FormControl edit{kind, lId, std::string(sLabel), std::string(sText)};
    edit.lLimit = lLimit;
    return edit;
}

Form InputForm(std::string_view sTitle, std::string_view sText, char const* sAnswer, int32_t lLimit)
{
    return {lInputForm,
            std::string(sTitle.empty() ? "Input" : sTitle),
            sAnswer,
            {Edit(FormControl::EDIT, lInputEdit, "", sText, lLimit), OkButton(), CancelButton()}};
}

Form LyricsForm(std::string_view sTitle, std::string_view sText, int32_t lLimit)
{
    return {lLyricsForm,
            std::string(sTitle.empty() ? "Lyrics" : sTitle),
            "text",
            {Edit(FormControl::MULTILINE, lInputEdit, "", sText, lLimit), OkButton(), CancelButton()}};
}

Form TimeSignatureForm(std::string_view sNumerator, std::string_view sDenominator, int32_t lLimit)
{
    FormControl numerator = Edit(FormControl::EDIT, lTimeNumerator, "Numerator", sNumerator, lLimit);
    numerator.sName = "numerator";
    FormControl denominator = Edit(FormControl::EDIT, lTimeDenominator, "Denominator", sDenominator, lLimit);
    denominator.sName = "denominator";
    return {lTimeSignatureForm,
            "Time-signature Input",
            "form",
            {std::move(numerator), std::move(denominator), OkButton(), CancelButton()}};
}

Form AbortForm(std::string_view sFile)
{
    constexpr int32_t lNowPrinting = 7038;
    return {lAbortForm,
            "Printing...",
            "box",
            {{FormControl::STATIC, lNowPrinting, "Now Printing: "},
             {FormControl::STATIC, lAbortFile, std::string(sFile)},
             CancelButton()}};
}

Form QuestionForm(std::string_view sTitle, std::string_view sText, std::string_view sFirst, std::string_view sSecond)
{
    return {lQuestionForm,
            std::string(sTitle.empty() ? "Question" : sTitle),
            "box",
            {{FormControl::STATIC, lQuestionText, std::string(sText)},
             {FormControl::DEFAULT_BUTTON, lQuestionFirst, std::string(sFirst)},
             {FormControl::BUTTON, lQuestionSecond, std::string(sSecond)},
             CancelButton()}};
}
} // namespace zarn

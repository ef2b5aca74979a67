// The dialogs: each fills its form, runs it, and reads it back.
#include "panels/dialogs.h"

#include "core/messages.h"
#include "core/text.h"
#include "panels/forms.h"
#include "panels/number_text.h"

#include <cstdlib>
#include <utility>

namespace zarn
{
constexpr int32_t cbNumberText = 50; ///< longest text of a number, its NUL included

/// Runs a form of one edit; OK hands its text out. The button's id, 0 when there can be no dialog.
static int32_t RunInput(HWND hwnd, Form form, std::string* psText, int32_t cbMost)
{
    int32_t const lButton = DialogBoxParamA(hwnd, form);
    if (lButton == IDOK)
        *psText = form.Find(lInputEdit)->sText.substr(0, static_cast<size_t>(cbMost));
    return lButton;
}

int32_t InputText(HWND hwnd, std::string* psText, std::string_view sTitle, int32_t cbMost)
{
    return RunInput(hwnd, InputForm(sTitle, *psText, "text", cbMost), psText, cbMost) != 0;
}

int32_t InputText(HWND hwnd, std::string* psText, std::string_view sTitle, int32_t cbMost, POINT place)
{
    Form form = InputForm(sTitle, *psText, "text", cbMost);
    form.place = place;
    return RunInput(hwnd, std::move(form), psText, cbMost) == IDOK;
}

int32_t InputLyrics(HWND hwnd, std::string* psText, std::string_view sTitle, int32_t cbMost)
{
    return RunInput(hwnd, LyricsForm(sTitle, *psText, cbMost), psText, cbMost) != 0;
}

int32_t InputNumber(HWND hwnd, int32_t* plValue, std::string_view sTitle)
{
    std::string sText = Format("%d", *plValue);
    if (!RunInput(hwnd, InputForm(sTitle, sText, "number", cbNumberText - 1), &sText, cbNumberText - 1))
        return 0;
    *plValue = AtoiLoose(sText);
    return 1;
}

/// The number as text, without its sign.
static int32_t Unsigned(std::string_view sText) { return Clamp32(std::abs(int64_t{AtoiLoose(sText)})); }

static bool IsPowerOfTwo(int32_t l) { return l > 0 && (l & (l - 1)) == 0; }

int32_t InputTimeSignature(HWND hwnd, int32_t* plNumerator, int32_t* plDenominator)
{
    std::string sNumerator = Format("%d", *plNumerator);
    std::string sDenominator = Format("%d", *plDenominator);
    Form form = TimeSignatureForm(sNumerator, sDenominator, cbNumberText - 1);
    int32_t const lButton = DialogBoxParamA(hwnd, form);
    if (lButton == 0)
        return 0;
    if (lButton == IDOK)
    {
        sNumerator = form.Find(lTimeNumerator)->sText;
        sDenominator = form.Find(lTimeDenominator)->sText;
    }
    *plNumerator = Unsigned(sNumerator);
    *plDenominator = Unsigned(sDenominator);
    if (IsPowerOfTwo(*plDenominator))
        return 1;
    Serious("Time signature denominator must be a power of 2");
    return 0;
}

int32_t QuestionBox(HWND hwnd, std::string_view sTitle, std::string_view sText, std::string_view sFirst,
                    std::string_view sSecond)
{
    Form form = QuestionForm(sTitle, sText, sFirst, sSecond);
    int32_t const lButton = DialogBoxParamA(hwnd, form);
    return lButton == lQuestionFirst ? 1 : lButton == lQuestionSecond ? 2 : 0;
}
} // namespace zarn

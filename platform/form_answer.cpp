// How an answer fills a dialog in, and how a dialog that was filled in tells its answer.
//
// A field of a dialog of several fields is NAME=VALUE: a row is its number from 0 or the first word of its text, a
// check box 1 or 0, an edit its text, in double quotes when it holds a blank. A button that fills fields in stands by
// its name alone.
#include "platform/answer.h"

#include "platform/decimal.h"
#include "platform/utf8.h"

#include <vector>

namespace zarn
{
namespace
{
bool IsEdit(FormControl const& control)
{
    return control.kind == FormControl::EDIT || control.kind == FormControl::MULTILINE;
}

bool IsList(FormControl const& control)
{
    return control.kind == FormControl::COMBO || control.kind == FormControl::LIST;
}

bool IsButton(FormControl const& control)
{
    return control.kind == FormControl::BUTTON || control.kind == FormControl::DEFAULT_BUTTON;
}

/// The nth button, from 0, that isn't Cancel; 0 when there are fewer.
int32_t NamedButton(Form const& form, int32_t n)
{
    for (FormControl const& control : form.aControls)
        if (IsButton(control) && control.lId != IDCANCEL && n-- == 0)
            return control.lId;
    return 0;
}

/// A dialog can always be closed, with a Cancel button or without one.
int32_t PlainButton(Form& form, Answer::Kind kind)
{
    int32_t const lId = Box_Take(kind == Answer::YES || kind == Answer::NO ? MB_YESNO : MB_OKCANCEL, {.kind = kind});
    FormControl const* const pButton = form.Find(lId);
    return lId == IDCANCEL || (pButton && IsButton(*pButton)) ? lId : 0;
}

template <typename TEST>
FormControl* FirstThat(Form& form, TEST test)
{
    for (FormControl& control : form.aControls)
        if (test(control))
            return &control;
    return nullptr;
}

bool Type(FormControl* pEdit, std::string_view sText)
{
    if (!pEdit)
        return false;
    pEdit->sText = pEdit->lLimit > 0 ? Utf8_Prefix(sText, static_cast<size_t>(pEdit->lLimit)) : sText;
    return true;
}

bool ChooseRow(FormControl* pList, int32_t lRow)
{
    if (!pList || lRow < 0 || lRow >= static_cast<int32_t>(pList->aRows.size()))
        return false;
    pList->lValue = lRow;
    return true;
}

bool ChooseRowNamed(FormControl& list, std::string_view sRow)
{
    int32_t lRow = -1;
    if (ParseDecimal(sRow, lRow))
        return ChooseRow(&list, lRow);
    for (size_t l = 0; l < list.aRows.size(); ++l)
        if (std::string_view(list.aRows[l]).substr(0, list.aRows[l].find(' ')) == sRow)
            return ChooseRow(&list, static_cast<int32_t>(l));
    return false;
}

/// Parts the words; a part between double quotes holds blanks, and a quote or backslash behind a backslash.
std::vector<std::string> SplitFields(std::string_view sText)
{
    std::vector<std::string> aFields;
    bool bInside = false;
    bool bQuoted = false;
    for (size_t l = 0; l < sText.size(); ++l)
    {
        char ch = sText[l];
        if (ch == ' ' && !bQuoted)
        {
            bInside = false;
            continue;
        }
        if (!bInside)
            aFields.emplace_back();
        bInside = true;
        if (ch == '"')
        {
            bQuoted = !bQuoted;
            continue;
        }
        if (ch == '\\' && bQuoted && l + 1 < sText.size())
            ch = sText[++l];
        aFields.back() += ch;
    }
    return aFields;
}

std::string Quoted(std::string_view sText)
{
    if (!sText.empty() && sText.find_first_of(" \"\\") == sText.npos)
        return std::string(sText);
    std::string s = "\"";
    for (char const ch : sText)
    {
        if (ch == '"' || ch == '\\')
            s += '\\';
        s += ch;
    }
    return s + '"';
}

bool PressFillButton(Form& form, std::string_view sName)
{
    FormControl const* const pButton =
        FirstThat(form, [&](FormControl const& control)
                  { return control.kind == FormControl::FILL_BUTTON && control.sName == sName; });
    if (!pButton)
        return false;
    for (FormFill const& fill : pButton->aFills)
        if (!Type(form.Find(fill.lEdit), fill.sText))
            return false;
    return true;
}

bool SetField(Form& form, std::string_view sField)
{
    if (PressFillButton(form, sField))
        return true;
    size_t const lEquals = sField.find('=');
    if (lEquals == 0 || lEquals == sField.npos)
        return false;
    std::string_view const sName = sField.substr(0, lEquals);
    std::string_view const sValue = sField.substr(lEquals + 1);
    FormControl* const pControl = FirstThat(form, [&](FormControl const& control) { return control.sName == sName; });
    if (!pControl)
        return false;
    if (IsEdit(*pControl))
        return Type(pControl, sValue);
    if (IsList(*pControl))
        return ChooseRowNamed(*pControl, sValue);
    if (pControl->kind != FormControl::CHECK || (sValue != "0" && sValue != "1"))
        return false;
    pControl->lValue = sValue == "1";
    return true;
}

int32_t TakeFields(Form& form, std::string_view sText)
{
    std::vector<std::string> aFields = SplitFields(sText);
    if (aFields.empty())
        return 0;
    std::string const sButton = aFields.back();
    aFields.pop_back();
    Form filled = form;
    for (std::string const& sField : aFields)
        if (!SetField(filled, sField))
            return 0;
    FormControl const* const pNamed =
        FirstThat(filled, [&](FormControl const& control) { return IsButton(control) && control.sName == sButton; });
    int32_t const lButton = pNamed                ? pNamed->lId
                            : sButton == "ok"     ? PlainButton(filled, Answer::OK)
                            : sButton == "cancel" ? IDCANCEL
                                                  : 0;
    if (lButton != 0)
        form = std::move(filled);
    return lButton;
}
} // namespace

int32_t Form_Take(Form& form, Answer const& answer)
{
    std::string_view const sKind = form.sAnswer;
    bool const bPrompt = sKind == "text" || sKind == "number";
    switch (answer.kind)
    {
    case Answer::YES:
    case Answer::NO:
    case Answer::CANCEL:
    case Answer::OK:
        return PlainButton(form, answer.kind);
    case Answer::FIRST:
    case Answer::SECOND:
        return sKind == "box" ? NamedButton(form, answer.kind == Answer::FIRST ? 0 : 1) : 0;
    case Answer::TEXT:
        return bPrompt && Type(FirstThat(form, IsEdit), answer.sText) ? IDOK : 0;
    case Answer::NUMBER:
        return bPrompt && Type(FirstThat(form, IsEdit), std::to_string(answer.lNumber)) ? IDOK : 0;
    case Answer::ROW:
        return sKind == "row" && ChooseRow(FirstThat(form, IsList), answer.lNumber) ? IDOK : 0;
    case Answer::FORM:
        return sKind == "form" ? TakeFields(form, answer.sText) : 0;
    }
    return 0;
}

static Answer FieldsAnswer(Form const& form, int32_t lButton)
{
    Answer answer{.kind = Answer::FORM};
    std::string sButton = lButton == IDOK ? "ok" : "cancel";
    for (FormControl const& control : form.aControls)
    {
        if (IsButton(control) && control.lId == lButton && !control.sName.empty())
            sButton = control.sName;
        bool const bValue = IsEdit(control) || IsList(control) || control.kind == FormControl::CHECK;
        if (control.sName.empty() || !bValue)
            continue;
        std::string const sValue = IsEdit(control) ? Quoted(control.sText) : std::to_string(control.lValue);
        answer.sText += control.sName + '=' + sValue + ' ';
    }
    answer.sText += sButton;
    return answer;
}

Answer Form_Answer(Form const& form, int32_t lButton)
{
    std::string_view const sKind = form.sAnswer;
    if (lButton == IDCANCEL || lButton == 0)
        return {.kind = Answer::CANCEL};
    if (sKind == "form")
        return FieldsAnswer(form, lButton);
    if (sKind == "box")
        for (int32_t n = 0; n < 2; ++n)
            if (NamedButton(form, n) == lButton)
                return {.kind = n == 0 ? Answer::FIRST : Answer::SECOND};
    for (FormControl const& control : form.aControls)
    {
        if (sKind == "row" && IsList(control))
            return {.kind = Answer::ROW, .lNumber = control.lValue};
        int32_t lNumber = 0;
        if (!IsEdit(control))
            continue;
        if (sKind == "number" && ParseDecimal(control.sText, lNumber) && std::to_string(lNumber) == control.sText)
            return {.kind = Answer::NUMBER, .lNumber = lNumber};
        return {.kind = Answer::TEXT, .sText = control.sText};
    }
    return Box_Answer(lButton);
}
} // namespace zarn

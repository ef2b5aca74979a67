// Answers and their words. A kind without a value is its word alone.
#include "platform/answer.h"

#include "platform/decimal.h"

#include <iterator>

namespace zarn
{
namespace
{
constexpr std::string_view aWords[] = {"yes", "no", "cancel", "ok", "first", "second", "text", "number", "row", "form"};
static_assert(std::size(aWords) == Answer::FORM + 1);
} // namespace

std::string Answer_Format(Answer const& answer)
{
    std::string s(aWords[answer.kind]);
    if (answer.kind == Answer::NUMBER || answer.kind == Answer::ROW)
        s += ' ' + std::to_string(answer.lNumber);
    else if ((answer.kind == Answer::TEXT || answer.kind == Answer::FORM) && !answer.sText.empty())
        s += ' ' + Text_Escape(answer.sText);
    return s;
}

std::optional<Answer> Answer_Parse(std::string_view sWords)
{
    size_t const lBlank = sWords.find(' ');
    std::string_view const sKind = sWords.substr(0, lBlank);
    std::string_view const sValue = lBlank != sWords.npos ? sWords.substr(lBlank + 1) : std::string_view();
    size_t const lFirst = sValue.find_first_not_of(' ');
    bool const bValue = lFirst != sValue.npos;
    for (size_t l = 0; l < std::size(aWords); ++l)
    {
        if (sKind != aWords[l])
            continue;
        Answer answer{.kind = static_cast<Answer::Kind>(l)};
        switch (answer.kind)
        {
        case Answer::TEXT:
        case Answer::FORM:
            answer.sText = Text_Unescape(sValue);
            return answer;
        case Answer::NUMBER:
        case Answer::ROW:
            return bValue && ParseDecimal(sValue.substr(lFirst, sValue.find_last_not_of(' ') + 1 - lFirst),
                                          answer.lNumber)
                       ? std::optional(answer)
                       : std::nullopt;
        default:
            return bValue ? std::nullopt : std::optional(answer);
        }
    }
    return std::nullopt;
}

std::string Text_Escape(std::string_view sText)
{
    std::string s;
    for (size_t l = 0; l < sText.size(); ++l)
    {
        char const ch = sText[l];
        char const chNext = l + 1 < sText.size() ? sText[l + 1] : '\0';
        if (ch == '\n')
            s += "\\n";
        else if (ch == '\r')
            s += "\\r";
        else if (ch == '\\' && (chNext == 'n' || chNext == 'r' || chNext == '\\' || chNext == '\n' || chNext == '\r'))
            s += "\\\\";
        else
            s += ch;
    }
    return s;
}

std::string Text_Unescape(std::string_view sText)
{
    std::string s;
    for (size_t l = 0; l < sText.size(); ++l)
    {
        char const chNext = sText[l] == '\\' && l + 1 < sText.size() ? sText[l + 1] : '\0';
        if (chNext != 'n' && chNext != 'r' && chNext != '\\')
        {
            s += sText[l];
            continue;
        }
        s += chNext == 'n' ? '\n' : chNext == 'r' ? '\r' : '\\';
        ++l;
    }
    return s;
}

std::string Text_OneLine(std::string_view sText)
{
    std::string s;
    bool bBreak = false;
    for (char const ch : sText)
    {
        bool const bIsBreak = ch == '\n' || ch == '\r';
        if (!bIsBreak)
            s += ch;
        else if (!bBreak)
            s += ' ';
        bBreak = bIsBreak;
    }
    return s;
}

int32_t Box_Take(uint32_t lFlags, Answer const& answer)
{
    uint32_t const lButtons = lFlags & MB_BUTTONS;
    bool const bYesNo = lButtons == MB_YESNOCANCEL || lButtons == MB_YESNO;
    switch (answer.kind)
    {
    case Answer::YES:
        return bYesNo ? IDYES : 0;
    case Answer::NO:
        return bYesNo ? IDNO : 0;
    case Answer::CANCEL:
        return lButtons == MB_YESNOCANCEL || lButtons == MB_OKCANCEL ? IDCANCEL : 0;
    case Answer::OK:
        return lButtons == MB_OK || lButtons == MB_OKCANCEL ? IDOK : 0;
    default:
        return 0;
    }
}

Answer Box_Answer(int32_t lId)
{
    return {.kind = lId == IDYES ? Answer::YES : lId == IDNO ? Answer::NO : lId == IDOK ? Answer::OK : Answer::CANCEL};
}
} // namespace zarn

// The scripted host. A question finds its answer at the head of the line or takes the safe one.
#include "platform/headless/script_host.h"

namespace zarn
{
namespace
{
struct BoxAnswer
{
    Answer::Kind kind;
    int32_t lId;
    char const* sName;
};
constexpr BoxAnswer aBoxAnswers[] = {{Answer::YES, IDYES, "yes"},
                                     {Answer::NO, IDNO, "no"},
                                     {Answer::CANCEL, IDCANCEL, "cancel"},
                                     {Answer::OK, IDOK, "ok"}};

bool BoxHas(uint32_t lButtons, int32_t lId)
{
    switch (lButtons)
    {
    case MB_YESNOCANCEL:
        return lId == IDYES || lId == IDNO || lId == IDCANCEL;
    case MB_YESNO:
        return lId == IDYES || lId == IDNO;
    case MB_OKCANCEL:
        return lId == IDOK || lId == IDCANCEL;
    default:
        return lId == IDOK;
    }
}
} // namespace

int32_t ScriptHost::MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags)
{
    uint32_t const lButtons = lFlags & MB_BUTTONS;
    Shown box{std::string(sText), std::string(sCaption), lFlags, {}};
    int32_t lId = IDOK;
    if (lButtons != MB_OK)
    {
        lId = lButtons == MB_YESNO ? IDNO : IDCANCEL;
        for (BoxAnswer const& known : aBoxAnswers)
            if (!answers.empty() && answers.front().kind == known.kind && BoxHas(lButtons, known.lId))
            {
                lId = known.lId;
                answers.pop_front();
                break;
            }
        for (BoxAnswer const& known : aBoxAnswers)
            if (known.lId == lId)
                box.sAnswer = known.sName;
    }
    shown.push_back(box);
    if (pOnShown)
        pOnShown(shown.back());
    return lId;
}

std::vector<std::string> ScriptHost::Messages() const
{
    std::vector<std::string> aTexts;
    for (Shown const& box : shown)
        aTexts.push_back(box.sText);
    return aTexts;
}
} // namespace zarn

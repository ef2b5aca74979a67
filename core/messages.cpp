// The program's messages, and the latch that keeps a run of errors down to one box.
#include "core/messages.h"

namespace zarn
{
constexpr char const* sCaption = "Zarn Message";
static bool bSeriousShown = false;

void Inform(std::string_view sText) { MessageBoxA(hwndMain, sText, sCaption, MB_OK | MB_ICONINFORMATION); }

int32_t AskYesNoCancel(std::string_view sText)
{
    int32_t const lAnswer = MessageBoxA(hwndMain, sText, sCaption, MB_YESNOCANCEL | MB_ICONQUESTION);
    return lAnswer == IDYES ? 1 : lAnswer == IDNO ? 0 : -1;
}

int32_t AskYesNo(std::string_view sText, int32_t lDefault)
{
    uint32_t const lFlags = MB_YESNO | MB_ICONQUESTION | (lDefault ? 0 : MB_DEFBUTTON2);
    return MessageBoxA(hwndMain, sText, sCaption, lFlags) == IDYES;
}

int32_t AskOkCancel(std::string_view sText, int32_t lDefault)
{
    uint32_t const lFlags = MB_OKCANCEL | MB_ICONQUESTION | (lDefault ? 0 : MB_DEFBUTTON2);
    return MessageBoxA(hwndMain, sText, sCaption, lFlags) == IDOK;
}

int32_t Serious(std::string_view sText)
{
    if (!bSeriousShown)
    {
        bSeriousShown = true;
        MessageBoxA(hwndMain, sText, sCaption, MB_OK | MB_ICONSTOP);
    }
    return IDOK;
}

void Serious_Rearm() { bSeriousShown = false; }
} // namespace zarn

// Number prompts.
#include "shell/number_prompt.h"

#include "core/settings.h"
#include "core/text.h"
#include "panels/dialogs.h"
#include "platform/registry.h"
#include "shell/menu.h"

#include <string>

namespace zarn
{
static std::string ValueName(std::string_view sLabel)
{
    while (sLabel.ends_with('.'))
        sLabel.remove_suffix(1);
    return std::string(sLabel);
}

static void ShowValue(std::string const& sName, int32_t lCommand, int32_t lValue)
{
    SetMenuText(lCommand, Format("%s (%d)...", sName.c_str(), lValue));
}

int32_t NumberPrompt(HWND hwnd, std::string_view sLabel, int32_t lCommand, int32_t lDefault)
{
    std::string const sName = ValueName(sLabel);
    int32_t lValue = lDefault;
    LoadSetting(&lValue, sName);
    if (!InputNumber(hwnd, &lValue, Format("%s (%d)", sName.c_str(), lValue)))
        return lValue;
    SaveSetting(lValue, sName);
    ShowValue(sName, lCommand, lValue);
    return lValue;
}

int32_t NumberPromptInit(std::string_view sLabel, int32_t lCommand, int32_t lDefault)
{
    std::string const sName = ValueName(sLabel);
    int32_t lValue = lDefault;
    if (LoadSetting(&lValue, sName) != ERROR_SUCCESS)
        return lDefault;
    ShowValue(sName, lCommand, lValue);
    return lValue;
}
} // namespace zarn

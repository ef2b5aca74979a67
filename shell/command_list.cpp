// The menu, flattened.
#include "shell/command_list.h"

#include "core/messages.h"
#include "shell/accelerators.h"
#include "shell/commands.h"
#include "shell/menu.h"

#include <string_view>

namespace zarn
{
constexpr int32_t lCommandsForm = 7050;
constexpr int32_t lCommandsList = 7051;

/// The label without the sign ahead of its mnemonic and without its key.
static std::string PlainLabel(std::string_view sLabel)
{
    std::string sPlain;
    for (size_t n = 0; n < sLabel.size() && sLabel[n] != '\t'; ++n)
    {
        if (sLabel[n] == '&' && n + 1 < sLabel.size())
            ++n; // "&&" is the sign itself
        sPlain += sLabel[n];
    }
    return sPlain;
}

/// As the menu tells it, or, where it doesn't, as the table of keys does.
static std::string KeyText(MenuItem const& item)
{
    std::string_view const sLabel = item.sLabel;
    size_t const nTab = sLabel.find('\t');
    return nTab != std::string_view::npos ? std::string(sLabel.substr(nTab + 1)) : Accelerator_KeyText(item.lCommand);
}

static void Flatten(std::vector<MenuItem> const& aItems, std::string const& sPath, std::vector<CommandLine>& aLines)
{
    for (MenuItem const& item : aItems)
    {
        if (!item.sLabel || item.sLabel[0] == '\0')
            continue; // a separator, or a place for a recent file
        std::string sText = sPath + PlainLabel(item.sLabel);
        if (item.lCommand == 0)
        {
            Flatten(item.aItems, sText + ": ", aLines);
            continue;
        }
        if (std::string const sKey = KeyText(item); !sKey.empty())
            sText += "  (" + sKey + ")";
        aLines.push_back({item.lCommand, std::move(sText)});
    }
}

std::vector<CommandLine> CommandList()
{
    std::vector<CommandLine> aLines;
    Flatten(MainMenu(), "", aLines);
    return aLines;
}

void AllCommandsCommand()
{
    std::vector<CommandLine> const aLines = CommandList();
    FormControl list{FormControl::LIST, lCommandsList, ""};
    list.bSearch = true;
    list.lValue = 0;
    for (CommandLine const& line : aLines)
        list.aRows.push_back(line.sText);
    Form form{
        lCommandsForm,
        "All commands",
        "row",
        {std::move(list), {FormControl::DEFAULT_BUTTON, IDOK, "Do it"}, {FormControl::BUTTON, IDCANCEL, "Close"}}};
    if (DialogBoxParamA(hwndMain, form) != IDOK)
        return;
    int32_t const lRow = form.Find(lCommandsList)->lValue;
    if (lRow < 0 || lRow >= static_cast<int32_t>(aLines.size()))
        return;
    int32_t const lCommand = aLines[static_cast<size_t>(lRow)].lCommand;
    if (!Menu_IsGrey(lCommand))
        Command_Run(lCommand);
}
} // namespace zarn

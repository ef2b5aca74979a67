// The list is kept in the user's settings alone: several windows may be open, and the last one to use a file tells.
#include "shell/recent_files.h"

#include "core/settings.h"
#include "core/text.h"
#include "shell/command_numbers.h"
#include "shell/file_names.h"
#include "shell/menu.h"

#include <algorithm>
#include <filesystem>

namespace zarn
{
constexpr char const* sRecentSetting = "Recent files";
constexpr char const* sFolderSetting = "Last folder";

/// As the menu shows it.
static std::vector<std::string> aShown;

/// "&2 tune.abc - /home/me/tunes"; what would be a mnemonic or a key in a name is shown as it is.
static std::string ItemText(size_t nNumber, std::string const& szPath)
{
    std::string const sFile = ShortName(szPath);
    std::string sFolder = szPath.substr(0, szPath.size() - sFile.size());
    if (sFolder.size() > 1)
        sFolder.pop_back();
    std::string sText;
    for (char const c : sFile + " - " + sFolder)
        if (static_cast<unsigned char>(c) < ' ')
            sText += ' ';
        else
            sText += c == '&' ? "&&" : std::string(1, c);
    return Format("&%zu %s", nNumber, sText.c_str());
}

static void Store(std::vector<std::string> aPaths)
{
    if (aPaths.size() > lMostRecent)
        aPaths.resize(lMostRecent);
    SaveTexts(aPaths, sRecentSetting);
    Recent_ShowMenu();
}

static std::vector<std::string> PathsWithout(std::string const& szPath)
{
    std::vector<std::string> aPaths = LoadTexts(sRecentSetting);
    std::erase(aPaths, szPath);
    return aPaths;
}

void Recent_Add(std::string const& szName)
{
    std::string const szPath = WholePath(szName);
    std::vector<std::string> aPaths = PathsWithout(szPath);
    aPaths.insert(aPaths.begin(), szPath);
    Store(std::move(aPaths));
    SaveTexts({std::filesystem::path(szPath).parent_path().string()}, sFolderSetting);
}

void Recent_Forget(std::string const& szName) { Store(PathsWithout(WholePath(szName))); }

void Recent_ShowMenu()
{
    aShown = LoadTexts(sRecentSetting);
    for (size_t n = 0; n < lMostRecent; ++n)
        SetMenuText(COMMAND_RECENT + static_cast<int32_t>(n) + 1,
                    n < aShown.size() ? ItemText(n + 1, aShown[n]) : std::string());
}

std::string Recent_At(int32_t lNumber)
{
    auto const n = static_cast<size_t>(lNumber) - 1; // 0 becomes a number beyond all
    return n < aShown.size() ? aShown[n] : std::string();
}

std::string Recent_Folder()
{
    std::vector<std::string> const aFolder = LoadTexts(sFolderSetting);
    return aFolder.empty() ? std::string() : aFolder.front();
}
} // namespace zarn

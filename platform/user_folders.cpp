// Where they are is told by the environment, as the desktops have agreed.
#include "platform/user_folders.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace zarn
{
static std::string StateHome()
{
    char const* const szState = std::getenv("XDG_STATE_HOME");
    if (szState && szState[0] == '/') // a path that isn't absolute doesn't count
        return szState;
    char const* const szHome = std::getenv("HOME");
    return szHome && szHome[0] == '/' ? std::string(szHome) + "/.local/state" : std::string();
}

std::string UserStateFolder()
{
    namespace fs = std::filesystem;
    std::string const szHome = StateHome();
    if (szHome.empty())
        return {};
    fs::path const folder = fs::path(szHome) / "zarn";
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        return {};
    fs::permissions(folder, fs::perms::owner_all, error);
    return folder.string();
}
} // namespace zarn

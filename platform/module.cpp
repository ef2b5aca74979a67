// Late loading. The three systems differ in how a library is opened and how a program finds itself.
#include "platform/module.h"

#include <cstdint>
#include <iterator>
#include <system_error>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#if defined(__APPLE__)
#include <mach-o/dyld.h>
#endif
#endif

namespace zarn
{
namespace fs = std::filesystem;

#if defined(_WIN32)
static constexpr char const* sModuleFile = "zarn_desktop.dll";

fs::path ExecutableFolder()
{
    wchar_t szPath[4096];
    DWORD const cch = GetModuleFileNameW(nullptr, szPath, DWORD{std::size(szPath)});
    return cch > 0 && cch < std::size(szPath) ? fs::path(szPath).parent_path() : fs::path();
}

static DesktopEntry OpenModule(fs::path const& file, std::string& sError)
{
    HMODULE const hModule = LoadLibraryW(file.c_str());
    void* const pEntry = hModule ? reinterpret_cast<void*>(GetProcAddress(hModule, sDesktopEntry)) : nullptr;
    if (!pEntry)
        sError = "error " + std::to_string(GetLastError());
    return reinterpret_cast<DesktopEntry>(pEntry);
}
#else
static constexpr char const* sModuleFile = "libzarn_desktop.so";

#if defined(__APPLE__)
fs::path ExecutableFolder()
{
    char szPath[4096];
    uint32_t cch = sizeof szPath;
    std::error_code error;
    return _NSGetExecutablePath(szPath, &cch) == 0 ? fs::canonical(szPath, error).parent_path() : fs::path();
}
#else
fs::path ExecutableFolder()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}
#endif

static DesktopEntry OpenModule(fs::path const& file, std::string& sError)
{
    void* const pModule = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const pEntry = pModule ? dlsym(pModule, sDesktopEntry) : nullptr;
    if (!pEntry)
        sError = dlerror();
    return reinterpret_cast<DesktopEntry>(pEntry);
}
#endif

DesktopHost* LoadDesktop(fs::path const& folder, int argc, char** argv, bool fWindow, std::string& sError)
{
    fs::path const aPlaces[] = {folder / sModuleFile, folder / ".." / "lib" / "zarn" / sModuleFile};
    std::error_code error;
    for (fs::path const& file : aPlaces)
    {
        if (!fs::exists(file, error))
            continue;
        std::string sWhy;
        DesktopEntry const pEntry = OpenModule(file, sWhy);
        if (!pEntry)
        {
            sError = "The desktop part of Zarn can't be loaded: " + sWhy;
            return nullptr;
        }
        DesktopHost* const pHost = pEntry(argc, argv, fWindow);
        if (!pHost)
            sError = "There is no display to open a window on.";
        return pHost;
    }
    sError = std::string("The desktop part of Zarn is missing: ") + sModuleFile + " is neither in " + folder.string() +
             " nor in ../lib/zarn beside it.";
    return nullptr;
}
} // namespace zarn

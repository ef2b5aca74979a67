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
static constexpr char const* sDesktopFile = "zarn_desktop.dll";
static constexpr char const* sSoundFile = "zarn_sound.dll";

fs::path ExecutableFolder()
{
    wchar_t szPath[4096];
    DWORD const cch = GetModuleFileNameW(nullptr, szPath, DWORD{std::size(szPath)});
    return cch > 0 && cch < std::size(szPath) ? fs::path(szPath).parent_path() : fs::path();
}

static void* OpenModule(fs::path const& file, char const* sEntry, std::string& sError)
{
    HMODULE const hModule = LoadLibraryW(file.c_str());
    void* const pEntry = hModule ? reinterpret_cast<void*>(GetProcAddress(hModule, sEntry)) : nullptr;
    if (!pEntry)
        sError = "error " + std::to_string(GetLastError());
    return pEntry;
}
#else
static constexpr char const* sDesktopFile = "libzarn_desktop.so";
static constexpr char const* sSoundFile = "libzarn_sound.so";

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

static void* OpenModule(fs::path const& file, char const* sEntry, std::string& sError)
{
    void* const pModule = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const pEntry = pModule ? dlsym(pModule, sEntry) : nullptr;
    if (!pEntry)
        sError = dlerror();
    return pEntry;
}
#endif

/// The exported function of a module, which is kept loaded. sPart is what a user calls it.
static void* FindEntry(fs::path const& folder, char const* sFile, char const* sEntry, std::string const& sPart,
                       std::string& sError)
{
    std::error_code error;
    for (fs::path const& file : {folder / sFile, folder / ".." / "lib" / "zarn" / sFile})
    {
        if (!fs::exists(file, error))
            continue;
        std::string sWhy;
        void* const pEntry = OpenModule(file, sEntry, sWhy);
        if (!pEntry)
            sError = "The " + sPart + " part of Zarn can't be loaded: " + sWhy;
        return pEntry;
    }
    sError = "The " + sPart + " part of Zarn is missing: " + sFile + " is neither in " + folder.string() +
             " nor in ../lib/zarn beside it.";
    return nullptr;
}

DesktopHost* LoadDesktop(fs::path const& folder, int argc, char** argv, bool fWindow, std::string& sError)
{
    auto const pEntry =
        reinterpret_cast<DesktopEntry>(FindEntry(folder, sDesktopFile, sDesktopEntry, "desktop", sError));
    if (!pEntry)
        return nullptr;
    DesktopHost* const pHost = pEntry(argc, argv, fWindow);
    if (!pHost)
        sError = "There is no display to open a window on.";
    return pHost;
}

SoundModule* LoadSound(fs::path const& folder, SoundSetup const& setup, std::string& sError)
{
    auto const pEntry = reinterpret_cast<SoundEntry>(FindEntry(folder, sSoundFile, sSoundEntry, "sound", sError));
    return pEntry ? pEntry(setup) : nullptr;
}
} // namespace zarn

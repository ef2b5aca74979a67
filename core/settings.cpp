// Settings on the platform's registry; each access opens and closes the key anew.
#include "core/settings.h"

#include "platform/registry.h"

namespace zarn
{
constexpr char const* sKey = "Software\\Zarn";

void SaveSetting(int32_t lValue, std::string_view szName)
{
    HKEY hKey = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, sKey, &hKey) != ERROR_SUCCESS)
        return;
    (void)RegSetValueExA(hKey, szName, REG_DWORD, lValue);
    RegCloseKey(hKey);
}

int32_t LoadSetting(int32_t* plValue, std::string_view szName)
{
    HKEY hKey = nullptr;
    int32_t const lError = RegCreateKeyExA(HKEY_CURRENT_USER, sKey, &hKey);
    if (lError != ERROR_SUCCESS)
        return lError;
    int32_t lValue = 0;
    int32_t const lResult = RegQueryValueExA(hKey, szName, &lValue);
    RegCloseKey(hKey);
    if (lResult == ERROR_SUCCESS)
        *plValue = lValue;
    return lResult;
}

int32_t LoadSetting(bool* pbValue, std::string_view szName)
{
    int32_t lValue = 0;
    int32_t const lResult = LoadSetting(&lValue, szName);
    if (lResult == ERROR_SUCCESS)
        *pbValue = lValue != 0;
    return lResult;
}

void SaveTexts(std::vector<std::string> const& aTexts, std::string_view szName)
{
    HKEY hKey = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, sKey, &hKey) != ERROR_SUCCESS)
        return;
    (void)hKey->WriteTexts(szName, aTexts);
    RegCloseKey(hKey);
}

std::vector<std::string> LoadTexts(std::string_view szName)
{
    HKEY hKey = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, sKey, &hKey) != ERROR_SUCCESS)
        return {};
    std::vector<std::string> aTexts = hKey->ReadTexts(szName);
    RegCloseKey(hKey);
    return aTexts;
}
} // namespace zarn

// Settings: forwards to the host's store.
#include "platform/registry.h"

#include "platform/host.h"

namespace zarn
{
int32_t MapStore::Read(std::string_view szName, int32_t* plValue)
{
    auto const found = values.find(szName);
    if (found == values.end())
        return ERROR_FILE_NOT_FOUND;
    *plValue = found->second;
    return ERROR_SUCCESS;
}

int32_t MapStore::Write(std::string_view szName, int32_t lValue)
{
    values.insert_or_assign(std::string(szName), lValue);
    return ERROR_SUCCESS;
}

std::vector<std::string> MapStore::ReadTexts(std::string_view szName)
{
    auto const found = texts.find(szName);
    return found == texts.end() ? std::vector<std::string>() : found->second;
}

int32_t MapStore::WriteTexts(std::string_view szName, std::vector<std::string> const& aTexts)
{
    texts.insert_or_assign(std::string(szName), aTexts);
    return ERROR_SUCCESS;
}

int32_t RegCreateKeyExA(int32_t, std::string_view, HKEY* phKey)
{
    *phKey = host.pSettings;
    return host.pSettings ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

int32_t RegQueryValueExA(HKEY hKey, std::string_view szName, int32_t* plValue) { return hKey->Read(szName, plValue); }

int32_t RegSetValueExA(HKEY hKey, std::string_view szName, uint32_t lType, int32_t lValue)
{
    return lType == REG_DWORD ? hKey->Write(szName, lValue) : ERROR_ACCESS_DENIED;
}

void RegCloseKey(HKEY) {}
} // namespace zarn

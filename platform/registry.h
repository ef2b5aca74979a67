/// The store of settings: 32-bit values by name under one key.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zarn
{
constexpr int32_t ERROR_SUCCESS = 0;
constexpr int32_t ERROR_FILE_NOT_FOUND = 2;
constexpr int32_t ERROR_ACCESS_DENIED = 5;
constexpr uint32_t REG_DWORD = 4;

/// An open key: one host's store.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;
    virtual int32_t Read(std::string_view szName, int32_t* plValue) = 0; ///< 0, or an error and *plValue as it was
    virtual int32_t Write(std::string_view szName, int32_t lValue) = 0;
    /// A list of texts under a name of its own, apart from the numbers; empty when there is none.
    virtual std::vector<std::string> ReadTexts(std::string_view szName) = 0;
    virtual int32_t WriteTexts(std::string_view szName, std::vector<std::string> const& aTexts) = 0;
};

/// Settings that die with the process: tests, and conversions without a window.
class MapStore : public SettingsStore
{
public:
    int32_t Read(std::string_view szName, int32_t* plValue) override;
    int32_t Write(std::string_view szName, int32_t lValue) override;
    std::vector<std::string> ReadTexts(std::string_view szName) override;
    int32_t WriteTexts(std::string_view szName, std::vector<std::string> const& aTexts) override;
    std::map<std::string, int32_t, std::less<>> values;
    std::map<std::string, std::vector<std::string>, std::less<>> texts;
};

using HKEY = SettingsStore*;
constexpr int32_t HKEY_CURRENT_USER = 1;

/// The key itself, made when missing. *phKey is null after a failure.
[[nodiscard]] int32_t RegCreateKeyExA(int32_t hRoot, std::string_view szPath, HKEY* phKey);
/// Reads 4 bytes; on failure *plValue is left as it was.
[[nodiscard]] int32_t RegQueryValueExA(HKEY hKey, std::string_view szName, int32_t* plValue);
/// lType is always REG_DWORD.
[[nodiscard]] int32_t RegSetValueExA(HKEY hKey, std::string_view szName, uint32_t lType, int32_t lValue);
void RegCloseKey(HKEY hKey);
} // namespace zarn

/// The user's settings: a file of their configuration folder, or the registry where there is one.
#pragma once
#include "platform/registry.h"

#include <QSettings>
#include <string>
#include <vector>

namespace zarn
{
class QtSettings : public SettingsStore
{
public:
    int32_t Read(std::string_view szName, int32_t* plValue) override;
    int32_t Write(std::string_view szName, int32_t lValue) override;
    std::vector<std::string> ReadTexts(std::string_view szName) override;
    int32_t WriteTexts(std::string_view szName, std::vector<std::string> const& aTexts) override;

private:
    /// The value is on the disk when this returns 0.
    int32_t Store(std::string_view szName, QVariant const& value);

#if defined(_WIN32)
    QSettings settings{QStringLiteral("HKEY_CURRENT_USER\\Software\\Zarn"), QSettings::NativeFormat};
#else
    QSettings settings{QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Zarn"), QStringLiteral("Zarn")};
#endif
};
} // namespace zarn

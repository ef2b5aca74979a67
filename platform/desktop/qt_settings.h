/// The user's settings: a file of their configuration folder, or the registry where there is one.
#pragma once
#include "platform/registry.h"

#include <QSettings>

namespace zarn
{
class QtSettings : public SettingsStore
{
public:
    int32_t Read(std::string_view szName, int32_t* plValue) override;
    /// The value is on the disk when this returns 0.
    int32_t Write(std::string_view szName, int32_t lValue) override;

private:
#if defined(_WIN32)
    QSettings settings{QStringLiteral("HKEY_CURRENT_USER\\Software\\Zarn"), QSettings::NativeFormat};
#else
    QSettings settings{QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Zarn"), QStringLiteral("Zarn")};
#endif
};
} // namespace zarn

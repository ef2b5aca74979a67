// A value that isn't a number counts as missing: the file is open to everyone's editor.
#include "platform/desktop/qt_settings.h"

#include "platform/desktop/qt_text.h"

#include <QStringList>
#include <QVariant>

namespace zarn
{
int32_t QtSettings::Read(std::string_view szName, int32_t* plValue)
{
    bool bNumber = false;
    int32_t const lValue = settings.value(ToQt(szName)).toInt(&bNumber);
    if (!bNumber)
        return ERROR_FILE_NOT_FOUND;
    *plValue = lValue;
    return ERROR_SUCCESS;
}

int32_t QtSettings::Write(std::string_view szName, int32_t lValue) { return Store(szName, lValue); }

std::vector<std::string> QtSettings::ReadTexts(std::string_view szName)
{
    std::vector<std::string> aTexts;
    for (QString const& sText : settings.value(ToQt(szName)).toStringList())
        aTexts.push_back(sText.toStdString());
    return aTexts;
}

int32_t QtSettings::WriteTexts(std::string_view szName, std::vector<std::string> const& aTexts)
{
    QStringList texts;
    for (std::string const& sText : aTexts)
        texts.append(ToQt(sText));
    return Store(szName, texts);
}

int32_t QtSettings::Store(std::string_view szName, QVariant const& value)
{
    settings.setValue(ToQt(szName), value);
    settings.sync();
    return settings.status() == QSettings::NoError ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}
} // namespace zarn

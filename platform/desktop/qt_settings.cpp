// A value that isn't a number counts as missing: the file is open to everyone's editor.
#include "platform/desktop/qt_settings.h"

#include "platform/desktop/qt_text.h"

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

int32_t QtSettings::Write(std::string_view szName, int32_t lValue)
{
    settings.setValue(ToQt(szName), lValue);
    settings.sync();
    return settings.status() == QSettings::NoError ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}
} // namespace zarn

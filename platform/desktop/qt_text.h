/// Texts on their way between the program and Qt.
#pragma once
#include "platform/font_metrics.h"

#include <QString>
#include <string>
#include <string_view>

namespace zarn
{
/// Bytes that aren't valid UTF-8 are shown as Latin-1.
[[nodiscard]] inline QString ToQt(std::string_view sText) { return QString::fromStdString(Utf8OrLatin1(sText)); }

/// The same for what is shown in several lines: the platform's line ends become Qt's.
[[nodiscard]] inline QString LinesToQt(std::string_view sText)
{
    return ToQt(sText).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}
} // namespace zarn

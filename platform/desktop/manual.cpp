// The manual lies beside the program: installed, unpacked, or built.
#include "platform/desktop/manual.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QTextBrowser>
#include <QUrl>

namespace zarn
{
static QString ManualPath()
{
    QDir const program(QCoreApplication::applicationDirPath());
    for (char const* const sFolder : {"../share/doc/zarn", "../docs", "../../docs"})
        for (char const* const sFile : {"manual.html", "index.html"})
        {
            QString const sPath =
                program.filePath(QStringLiteral("%1/%2").arg(QLatin1String(sFolder), QLatin1String(sFile)));
            if (QFileInfo::exists(sPath))
                return QDir::cleanPath(sPath);
        }
    return {};
}

/// An open dialog lets no window have the keys but its own: then the manual is one of those.
static void ShowOurselves(QUrl const& url)
{
    constexpr QSize size(900, 700);
    auto* const pBrowser = new QTextBrowser(QApplication::activeModalWidget());
    pBrowser->setWindowFlag(Qt::Window);
    pBrowser->setAttribute(Qt::WA_DeleteOnClose);
    pBrowser->setWindowTitle(QStringLiteral("Zarn help"));
    pBrowser->setSource(url);
    pBrowser->resize(size);
    pBrowser->show();
}

bool Manual_Show()
{
    QString const sPath = ManualPath();
    if (sPath.isEmpty())
        return false;
    QUrl const url = QUrl::fromLocalFile(sPath);
    if (!QDesktopServices::openUrl(url))
        ShowOurselves(url);
    return true;
}
} // namespace zarn

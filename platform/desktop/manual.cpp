// The manual lies beside the program: installed, unpacked, or built.
#include "platform/desktop/manual.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>

namespace zarn
{
static QString ManualPath()
{
    QDir const program(QCoreApplication::applicationDirPath());
    for (char const* const sFile : {"../share/zarn/docs/index.html", "../docs/index.html", "../../docs/index.html"})
    {
        QString const sPath = program.filePath(QLatin1String(sFile));
        if (QFileInfo::exists(sPath))
            return QDir::cleanPath(sPath);
    }
    return {};
}

namespace
{
/// A window of its own, beside the score. Links out of the manual go to the user's browser.
class ManualWindow : public QTextBrowser
{
public:
    ManualWindow(QUrl const& url, QWidget* pParent) : QTextBrowser(pParent)
    {
        setWindowFlag(Qt::Window);
        constexpr QSize size(900, 700);
        setAttribute(Qt::WA_DeleteOnClose);
        setWindowTitle(QStringLiteral("Zarn help"));
        setOpenExternalLinks(true);
        setSource(url);
        resize(size);
    }

protected:
    void keyPressEvent(QKeyEvent* pKey) override
    {
        if (pKey->matches(QKeySequence::Cancel))
            close();
        else
            QTextBrowser::keyPressEvent(pKey);
    }
};
} // namespace

bool Manual_Show()
{
    static QPointer<ManualWindow> pShown;
    QString const sPath = ManualPath();
    if (sPath.isEmpty())
        return false;
    // An open dialog lets no window have the keys but its own: then the manual is one of those.
    QWidget* const pDialog = QApplication::activeModalWidget();
    if (pShown && pShown->parentWidget() != pDialog)
        delete pShown;
    if (!pShown)
        pShown = new ManualWindow(QUrl::fromLocalFile(sPath), pDialog);
    pShown->show();
    pShown->raise();
    pShown->activateWindow();
    return true;
}
} // namespace zarn

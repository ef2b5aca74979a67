// Where the program comes in.
#include "platform/desktop/qt_host.h"

#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>

namespace zarn
{
namespace
{
/// What Qt is told: nothing of the program's own command line, whose words it might take for its own.
struct QtArguments
{
    char szPlatform[10] = "-platform";
    std::string sPlatform;
    char* argv[4] = {};
    int argc = 0;
};

void Prepare(QtArguments& arguments, char* szProgram, char const* sPlatform)
{
    arguments.argv[arguments.argc++] = szProgram;
    if (!sPlatform)
        return;
    arguments.sPlatform = sPlatform;
    arguments.argv[arguments.argc++] = arguments.szPlatform;
    arguments.argv[arguments.argc++] = arguments.sPlatform.data();
}

/// Qt's remarks on the machine (no runtime folder, a plugin that isn't there) are nothing that a user can act on; what
/// it can't go on from is told.
void TellFailuresOnly(QtMsgType type, QMessageLogContext const&, QString const& sText)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "zarn: %s\n", sText.toUtf8().constData());
    if (type == QtFatalMsg)
        std::abort();
}

/// The display systems to try, null for what Qt or the user chose. "offscreen" comes last where no display is an
/// ordinary thing: without it Qt would end the process.
char const* Platform(bool fWindow)
{
    if (!fWindow)
        return "offscreen";
#if defined(__linux__)
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return "xcb;wayland;offscreen"; // X11 first: there the keyboard can move the pointer
#endif
    return nullptr;
}

/// The same picture as in the desktop's menu, also when nothing is installed.
QIcon Icon()
{
    QIcon icon;
    for (char const* const sFile : {"zarn-16.png", "zarn-32.png", "zarn-48.png", "zarn-128.png"})
        icon.addFile(QStringLiteral(":/icons/") + QLatin1String(sFile));
    return icon;
}
} // namespace

extern "C" Q_DECL_EXPORT DesktopHost* zarn_desktop_host(int, char** argv, bool fWindow)
{
    static QtArguments arguments;
    qInstallMessageHandler(TellFailuresOnly);
    char const* const sPlatform = Platform(fWindow);
    Prepare(arguments, argv[0], sPlatform);
    QCoreApplication::setApplicationName(QStringLiteral("zarn"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZARN_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("zarn"));
    // They live to the end of the process: what Qt tears down after main isn't worth the wait.
    if (!fWindow)
    {
        new QGuiApplication(arguments.argc, arguments.argv);
        return new QtHost;
    }
    new QApplication(arguments.argc, arguments.argv);
    QApplication::setWindowIcon(Icon());
    if (sPlatform && QGuiApplication::platformName() == QLatin1String("offscreen"))
        return nullptr;
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return new QtHost;
}
} // namespace zarn

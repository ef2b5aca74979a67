// The window greets with a line; a line goes over to it, the path escaped as in a URL; a line comes back, "yes" or
// "no". Who is not greeted in time has said nothing yet, so a window that comes back to life opens nothing unasked.
#include "platform/desktop/one_window.h"

#include "platform/desktop/qt_text.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QLocalSocket>
#include <QStandardPaths>
#include <utility>

namespace zarn
{
namespace
{
constexpr int cAnswerMs = 2000; ///< for a window that is busy; then the file gets one of its own
constexpr qint64 cbLongestLine = 32768;
QByteArray const sGreeting = QByteArrayLiteral("zarn");

/// In the user's own folder, so that nobody else can listen there. Two displays have two windows.
QString ServerName()
{
    QByteArray const display =
        qgetenv("WAYLAND_DISPLAY") + ' ' + qgetenv("DISPLAY") + ' ' + QGuiApplication::platformName().toUtf8();
    QString const hash =
        QString::fromLatin1(QCryptographicHash::hash(display, QCryptographicHash::Sha1).toHex().left(12));
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/zarn-") + hash;
}

QByteArray ReadLine(QLocalSocket& socket)
{
    QDeadlineTimer deadline(cAnswerMs);
    while (!socket.canReadLine() && socket.bytesAvailable() < cbLongestLine)
        if (!socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return {};
    return socket.readLine(cbLongestLine).trimmed();
}
} // namespace

OneWindow::OneWindow(Taker pTake) : pTake(std::move(pTake))
{
    server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server, &QLocalServer::newConnection, &server,
                     [this]
                     {
                         while (QLocalSocket* const pSocket = server.nextPendingConnection())
                         {
                             QObject::connect(pSocket, &QLocalSocket::disconnected, pSocket, &QObject::deleteLater);
                             QObject::connect(pSocket, &QLocalSocket::readyRead, pSocket,
                                              [this, pSocket] { Answer(*pSocket); });
                             pSocket->write(sGreeting + '\n');
                         }
                     });
    // With these options a server takes the place even of one that listens, so that is looked for first.
    QString const name = ServerName();
    QLocalSocket other;
    other.connectToServer(name);
    if (other.waitForConnected(cAnswerMs))
        return;
    QLocalServer::removeServer(name); // a program that was killed may have left it behind
    (void)server.listen(name);
}

void OneWindow::Answer(QLocalSocket& socket)
{
    if (!socket.canReadLine())
    {
        if (socket.bytesAvailable() >= cbLongestLine)
            socket.abort();
        return;
    }
    QByteArray const path = QByteArray::fromPercentEncoding(socket.readLine(cbLongestLine).trimmed());
    socket.write(!path.isEmpty() && pTake(path.toStdString()) ? "yes\n" : "no\n");
    socket.flush();
    socket.disconnectFromServer();
}

bool OneWindow::Ask(std::string_view szPath)
{
    QLocalSocket socket;
    socket.connectToServer(ServerName());
    if (!socket.waitForConnected(cAnswerMs))
        return false;
    if (ReadLine(socket) != sGreeting)
        return false;
    socket.write(QByteArray(szPath.data(), static_cast<qsizetype>(szPath.size())).toPercentEncoding("/") + '\n');
    return socket.waitForBytesWritten(cAnswerMs) && ReadLine(socket) == "yes";
}
} // namespace zarn

#include "app/forms/SingleInstance.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <QWidget>

#include "app/InstanceClaim.h"
#include "app/UserPaths.h"

#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace
{

// The request a later start sends and the running program's answer.
constexpr char kRaiseRequest[] = "raise\n";
constexpr char kRaisedAnswer[] = "raised\n";

#if !defined(_WIN32)
// Asks the program holding the name to come to the front; false when nobody answers on it.
bool askToRaise(const QString& name)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(1000)) return false;
    socket.write(kRaiseRequest);
    socket.waitForBytesWritten(1000);
    // The answer only confirms; the running program was found either way.
    socket.waitForReadyRead(1000);
    return true;
}
#endif

}  // namespace

QString singleInstanceServerName()
{
    // Per user, and per settings folder, so that a separate profile (ROVANEL_CONFIG_DIR) is a separate
    // user here too.
    const QByteArray folder = QByteArray::fromStdString(rovanel::userConfigDirectory().string());
    const QString hash =
        QString::fromLatin1(QCryptographicHash::hash(folder, QCryptographicHash::Sha1).toHex().left(12));
#if defined(_WIN32)
    return "rovanel-" + hash;
#else
    return QString("rovanel-%1-%2").arg(::getuid()).arg(hash);
#endif
}

std::unique_ptr<SingleInstance> SingleInstance::claim()
{
    std::unique_ptr<SingleInstance> instance(new SingleInstance);
    const QString name = singleInstanceServerName();
#if defined(_WIN32)
    instance->m_claim = rovanel::InstanceClaim::claim(name.toStdU16String());
    if (!instance->m_claim) {
        rovanel::raiseRunningMainWindow();
        return nullptr;
    }
#else
    // Asked first: a server with access options replaces an existing socket file instead of failing.
    if (askToRaise(name)) return nullptr;
    // Nobody answers: no socket, or one left by a program that ended without removing it.
    QLocalServer::removeServer(name);
    instance->m_server = new QLocalServer(instance.get());
    instance->m_server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!instance->m_server->listen(name) && askToRaise(name)) return nullptr;
    connect(instance->m_server, &QLocalServer::newConnection, instance.get(), &SingleInstance::answer);
#endif
    return instance;
}

SingleInstance::~SingleInstance() = default;

void SingleInstance::answer()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->readAll().contains("raise")) return;
            QWidget* front = QApplication::activeModalWidget();
            if (!front) front = m_window;
            if (front) {
                if (front->isMinimized()) front->showNormal();
                if (front != m_window || front->isVisible()) {
                    front->raise();
                    front->activateWindow();
                }
            }
            socket->write(kRaisedAnswer);
            socket->flush();
        });
    }
}

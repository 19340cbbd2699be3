#include "app/forms/SingleInstance.h"

#include <QCryptographicHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <QWidget>

#include "app/UserPaths.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace
{

bool isMainWindowCaption(const QString& caption)
{
    return caption.contains(QLatin1String("Rovanel")) && caption.contains(QString::fromUtf8("Lezárva"));
}

// The request a later start sends and the running window's answer.
constexpr char kRaiseRequest[] = "raise\n";
constexpr char kRaisedAnswer[] = "raised\n";

#if defined(_WIN32)
struct Search {
    HWND found = nullptr;
};

BOOL CALLBACK visitWindow(HWND window, LPARAM parameter)
{
    if (!window) return FALSE;
    DWORD process = 0;
    if (GetWindowThreadProcessId(window, &process) == 0) return FALSE;
    wchar_t caption[250] = {};
    GetWindowTextW(window, caption, 250);
    if (isMainWindowCaption(QString::fromWCharArray(caption)))
        reinterpret_cast<Search*>(parameter)->found = window;  // the last matching window wins
    return TRUE;
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

bool raiseRunningInstance()
{
#if defined(_WIN32)
    Search search;
    EnumWindows(visitWindow, reinterpret_cast<LPARAM>(&search));
    if (!search.found) return false;
    SetForegroundWindow(search.found);
    return true;
#else
    QLocalSocket socket;
    socket.connectToServer(singleInstanceServerName());
    if (!socket.waitForConnected(1000)) return false;
    socket.write(kRaiseRequest);
    socket.waitForBytesWritten(1000);
    // The answer only confirms; the running window was found either way.
    socket.waitForReadyRead(1000);
    return true;
#endif
}

SingleInstanceAnswer::SingleInstanceAnswer(QWidget* mainWindow) : QObject(mainWindow), m_window(mainWindow)
{
#if !defined(_WIN32)
    connect(m_window, &QWidget::windowTitleChanged, this, &SingleInstanceAnswer::captionChanged);
    captionChanged();
#endif
}

bool SingleInstanceAnswer::isListening() const { return m_server && m_server->isListening(); }

void SingleInstanceAnswer::captionChanged()
{
    if (isListening() || !isMainWindowCaption(m_window->windowTitle())) return;
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    const QString name = singleInstanceServerName();
    if (!m_server->listen(name)) {
        // A socket left by a program that ended without removing it: nobody answers on it.
        QLocalSocket probe;
        probe.connectToServer(name);
        if (probe.waitForConnected(200)) return;  // another window answers already
        QLocalServer::removeServer(name);
        if (!m_server->listen(name)) return;
    }
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstanceAnswer::answer);
}

void SingleInstanceAnswer::answer()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->readAll().contains("raise")) return;
            if (m_window->isMinimized()) m_window->showNormal();
            m_window->show();
            m_window->raise();
            m_window->activateWindow();
            socket->write(kRaisedAnswer);
            socket->flush();
        });
    }
}

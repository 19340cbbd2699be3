#include "tests/forms/support/LoopbackHttpServer.h"

#include <QTcpSocket>
#include <memory>

namespace
{

constexpr qint64 kFloodBytes = 10 * 1024 * 1024;

}  // namespace

LoopbackHttpServer::LoopbackHttpServer(QObject* parent) : QTcpServer(parent)
{
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = nextPendingConnection()) {
            auto request = std::make_shared<QByteArray>();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket, request] {
                const bool complete = request->contains("\r\n\r\n");
                *request += socket->readAll();
                if (complete || !request->contains("\r\n\r\n")) return;
                requestLines.append(request->left(request->indexOf("\r\n")));
                if (behaviour == Behaviour::Answer) answer(socket);
                if (behaviour == Behaviour::Flood) flood(socket);
            });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

QString LoopbackHttpServer::url(const QString& path) const
{
    return QString("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
}

void LoopbackHttpServer::answer(QTcpSocket* socket)
{
    socket->write(QByteArray("HTTP/1.1 ") + QByteArray::number(status) +
                  (status == 200 ? " OK" : " Not Found") +
                  "\r\nContent-Type: text/plain\r\nContent-Length: " + QByteArray::number(body.size()) +
                  "\r\nConnection: close\r\n\r\n" + body);
    socket->disconnectFromHost();
}

// Written as the client takes it, so that a client that stops reading stops the flood.
void LoopbackHttpServer::flood(QTcpSocket* socket)
{
    socket->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(kFloodBytes) + "\r\n\r\n");
    const QByteArray chunk =
        QByteArray("20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n").leftJustified(64 * 1024, 'x');
    const auto more = [this, socket, chunk] {
        if (floodSent >= kFloodBytes || socket->bytesToWrite() > 0) return;
        floodSent += socket->write(chunk);
    };
    connect(socket, &QTcpSocket::bytesWritten, socket, more);
    more();
}

quint16 LoopbackHttpServer::closedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    const quint16 port = probe.serverPort();
    probe.close();
    return port;
}

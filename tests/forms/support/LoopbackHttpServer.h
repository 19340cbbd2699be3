// An HTTP server on 127.0.0.1 for the update notice tests, in the test's own event loop: answers every
// request with one reply, never answers, or floods. Serves as an HTTP proxy too (the request line then
// names the whole address).
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>

class LoopbackHttpServer : public QTcpServer
{
    Q_OBJECT
public:
    enum class Behaviour { Answer, NeverAnswer, Flood };  // Flood: 200 and ten megabytes

    explicit LoopbackHttpServer(QObject* parent = nullptr) : QTcpServer(parent)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = nextPendingConnection()) {
                connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
                    m_requests.remove(socket);
                    socket->deleteLater();
                });
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { read(socket); });
            }
        });
    }
    [[nodiscard]] QString url() const  // its rvupg.ini
    {
        return QString("http://127.0.0.1:%1/rovanel/rvupg.ini").arg(serverPort());
    }
    [[nodiscard]] static quint16 closedPort()  // a loopback port nothing listens on
    {
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost);
        return probe.serverPort();  // closed when `probe` goes
    }

    Behaviour behaviour = Behaviour::Answer;
    int status = 200;
    QByteArray body;
    QList<QByteArray> requestLines;  // the first line of every request received

private:
    void read(QTcpSocket* socket)
    {
        QByteArray& request = m_requests[socket];
        const bool answered = request.contains("\r\n\r\n");
        request += socket->readAll();
        if (answered || !request.contains("\r\n\r\n")) return;
        requestLines.append(request.left(request.indexOf("\r\n")));
        if (behaviour == Behaviour::Answer) {
            socket->write("HTTP/1.1 " + QByteArray::number(status) + (status == 200 ? " OK" : " Hiba") +
                          "\r\nContent-Length: " + QByteArray::number(body.size()) +
                          "\r\nConnection: close\r\n\r\n" + body);
            socket->disconnectFromHost();
        } else if (behaviour == Behaviour::Flood) {  // ten megabytes, beginning with three lines
            constexpr int kFloodBytes = 10 * 1024 * 1024;
            socket->write(
                "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(kFloodBytes) + "\r\n\r\n" +
                QByteArray("20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n").leftJustified(kFloodBytes, 'x'));
        }
    }

    QHash<QTcpSocket*, QByteArray> m_requests;
};

// An HTTP server on 127.0.0.1 for the update notice tests: answers every request with one reply, or
// never answers, or floods. It also serves as an HTTP proxy (the request line then names the full
// address). Runs in the test's own event loop.
#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>

class QTcpSocket;

class LoopbackHttpServer : public QTcpServer
{
    Q_OBJECT
public:
    enum class Behaviour {
        Answer,       // the status and body below, then close
        NeverAnswer,  // accept, read, say nothing
        Flood,        // 200 and ten megabytes
    };

    explicit LoopbackHttpServer(QObject* parent = nullptr);

    // Listens on a free loopback port; the address of its rvupg.ini.
    [[nodiscard]] QString url(const QString& path = "/rovanel/rvupg.ini") const;

    Behaviour behaviour = Behaviour::Answer;
    int status = 200;
    QByteArray body;

    // The first line of every request received, and the bytes of the flood actually sent.
    QList<QByteArray> requestLines;
    qint64 floodSent = 0;

    // A loopback port nothing listens on.
    [[nodiscard]] static quint16 closedPort();

private:
    void answer(QTcpSocket* socket);
    void flood(QTcpSocket* socket);
};

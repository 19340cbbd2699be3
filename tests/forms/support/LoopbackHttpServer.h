// An HTTP server on 127.0.0.1 for the update notice tests, in the test's own event loop: answers every
// request with one reply, never answers, or floods. Serves as an HTTP proxy too (the request line then
// names the whole address).
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QTcpServer>

class QTcpSocket;

class LoopbackHttpServer : public QTcpServer
{
    Q_OBJECT
public:
    enum class Behaviour { Answer, NeverAnswer, Flood };  // Flood: 200 and ten megabytes

    explicit LoopbackHttpServer(QObject* parent = nullptr);
    [[nodiscard]] QString url() const;          // its rvupg.ini
    [[nodiscard]] static quint16 closedPort();  // a loopback port nothing listens on

    Behaviour behaviour = Behaviour::Answer;
    int status = 200;
    QByteArray body;
    QList<QByteArray> requestLines;  // the first line of every request received

private:
    void flood(QTcpSocket* socket);
    QHash<QTcpSocket*, QByteArray> m_requests;
};

// rvcli check-update against a server on the loopback address.
#include <gtest/gtest.h>

#if defined(_WIN32)
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <thread>

#include "tests/support/RunRvcli.h"

namespace rovanel
{
namespace
{

using testing::rvcli;

#if defined(_WIN32)
using Socket = SOCKET;
[[maybe_unused]] const bool kSocketsStarted = [] {
    WSADATA data;
    return ::WSAStartup(MAKEWORD(2, 2), &data) == 0;
}();
void closeSocket(Socket socket) { ::closesocket(socket); }
#else
using Socket = int;
void closeSocket(Socket socket) { ::close(socket); }
#endif

// Answers one connection with `reply` and keeps the first line of its request.
class LoopbackServer
{
public:
    explicit LoopbackServer(std::string reply)
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        ::bind(m_socket, reinterpret_cast<sockaddr*>(&address), length);
        ::listen(m_socket, 1);
        ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &length);
        port = ntohs(address.sin_port);
        m_thread = std::thread([this, reply = std::move(reply)] {
            const Socket client = ::accept(m_socket, nullptr, nullptr);
            if (client == static_cast<Socket>(-1)) return;
            std::string request(4096, '\0');
            request.resize(
                static_cast<std::size_t>(std::max<long long>(0, ::recv(client, request.data(), 4096, 0))));
            requestLine = request.substr(0, request.find("\r\n"));
#if defined(_WIN32)
            (void)::send(client, reply.data(), static_cast<int>(reply.size()), 0);
#else
            (void)::send(client, reply.data(), reply.size(), MSG_NOSIGNAL);
#endif
            closeSocket(client);
        });
    }
    ~LoopbackServer()
    {
#if defined(_WIN32)
        closeSocket(m_socket);  // what ends a waiting accept on Windows
        m_thread.join();
#else
        ::shutdown(m_socket, SHUT_RDWR);
        m_thread.join();
        ::close(m_socket);
#endif
    }
    [[nodiscard]] std::string url() const
    {
        return "http://127.0.0.1:" + std::to_string(port) + "/rvupg.ini";
    }
    int port = 0;
    std::string requestLine;

private:
    Socket m_socket = ::socket(AF_INET, SOCK_STREAM, 0);
    std::thread m_thread;
};

std::string ok(const std::string& body)
{
    return "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

TEST(RvcliCheckUpdate, PrintsTheThreeLinesAndWhetherTheyAnnounceANewerDatabase)
{
    const std::string notice = "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n";
    const std::string lines = "line 1: 20261201\nline 2: 2026.12.01\nline 3: www.rovanel.hu\n";
    const struct {
        const char* what;
        std::string reply;
        std::string arguments;  // after the address
        int exitCode;
        std::string out;
    } cases[] = {
        {"newer", ok(notice), "20261101", 0, lines + "newer\n"},
        {"equal", ok(notice), "20261201", 0, lines + "not newer\n"},
        {"404", "HTTP/1.0 404 Not Found\r\n\r\nnincs", "1", 1,
         "rvcli: Hiba: 127.0.0.1 nem érhető el. (HTTP status 404)\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        LoopbackServer server(c.reply);
        const auto run = rvcli("check-update " + server.url() + " " + c.arguments, true);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(server.requestLine, "GET /rvupg.ini HTTP/1.0");
    }

    LoopbackServer proxy(ok(notice));
    EXPECT_EQ(rvcli("check-update http://frissites.rovanel.invalid/rvupg.ini 1 --proxy 127.0.0.1:" +
                    std::to_string(proxy.port))
                  .exitCode,
              0);
    EXPECT_EQ(proxy.requestLine, "GET http://frissites.rovanel.invalid/rvupg.ini HTTP/1.0");
    const int closedPort = LoopbackServer("").port;
    EXPECT_EQ(rvcli("check-update http://127.0.0.1:" + std::to_string(closedPort) + "/ 1", true).out,
              "rvcli: Hiba: 127.0.0.1 nem érhető el. (connection failed)\n");
}

}  // namespace
}  // namespace rovanel

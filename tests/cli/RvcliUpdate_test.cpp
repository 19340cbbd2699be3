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
constexpr int kSendFlags = 0;
#else
using Socket = int;
void closeSocket(Socket socket) { ::close(socket); }
constexpr int kSendFlags = MSG_NOSIGNAL;  // a client gone is no signal
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
            (void)::send(client, reply.data(), static_cast<int>(reply.size()), kSendFlags);
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
    const std::string notice = ok("20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n");
    const std::string lines = "line 1: 20261201\nline 2: 2026.12.01\nline 3: www.rovanel.hu\n";
    const std::string url = "http://127.0.0.1:$PORT/rvupg.ini ", get = "GET /rvupg.ini HTTP/1.0";
    const std::string proxied = "http://frissites.rovanel.invalid/rvupg.ini";
    const std::string closedPort = std::to_string(LoopbackServer("").port);
    const struct {
        std::string reply;
        std::string arguments;  // $PORT: the server's
        int exitCode;
        std::string out, requestLine;
    } cases[] = {
        {notice, url + "20261101", 0, lines + "newer\n", get},
        {notice, url + "20261201", 0, lines + "not newer\n", get},
        {"HTTP/1.0 404 Not Found\r\n\r\nnincs", url + "1", 1,
         "rvcli: Hiba: 127.0.0.1 nem érhető el. (HTTP status 404)\n", get},
        {notice, proxied + " 1 --proxy 127.0.0.1:$PORT", 0, lines + "newer\n",
         "GET " + proxied + " HTTP/1.0"},
        {notice, "http://127.0.0.1:" + closedPort + "/ 1", 1,
         "rvcli: Hiba: 127.0.0.1 nem érhető el. (connection failed)\n", ""},
    };
    for (const auto& c : cases) {
        LoopbackServer server(c.reply);
        std::string arguments = c.arguments;
        if (const std::size_t at = arguments.find("$PORT"); at != std::string::npos)
            arguments.replace(at, 5, std::to_string(server.port));
        SCOPED_TRACE(arguments);
        const auto run = rvcli("check-update " + arguments, true);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(server.requestLine, c.requestLine);
    }
}

}  // namespace
}  // namespace rovanel

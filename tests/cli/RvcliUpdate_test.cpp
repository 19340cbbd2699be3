// rvcli check-update against a server on the loopback address, and rvcli refresh.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "tests/support/RunRvcli.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

using testing::rvcli;
using testing::ScratchDirectory;

// Answers every connection with `reply` and keeps the first line of the last request.
class LoopbackServer
{
public:
    explicit LoopbackServer(std::string reply) : m_reply(std::move(reply))
    {
        m_socket = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        ::bind(m_socket, reinterpret_cast<sockaddr*>(&address), length);
        ::listen(m_socket, 4);
        ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &length);
        m_port = ntohs(address.sin_port);
        m_thread = std::thread([this] { serve(); });
    }
    ~LoopbackServer()
    {
        m_stopping = true;
        ::shutdown(m_socket, SHUT_RDWR);
        ::close(m_socket);
        m_thread.join();
    }
    [[nodiscard]] int port() const { return m_port; }
    [[nodiscard]] std::string url() const
    {
        return "http://127.0.0.1:" + std::to_string(m_port) + "/rvupg.ini";
    }
    std::string requestLine;

private:
    void serve()
    {
        while (!m_stopping) {
            const int client = ::accept(m_socket, nullptr, nullptr);
            if (client < 0) return;
            std::string request;
            char buffer[4096];
            while (request.find("\r\n\r\n") == std::string::npos) {
                const ssize_t got = ::recv(client, buffer, sizeof buffer, 0);
                if (got <= 0) break;
                request.append(buffer, static_cast<std::size_t>(got));
            }
            requestLine = request.substr(0, request.find("\r\n"));
            (void)::send(client, m_reply.data(), m_reply.size(), MSG_NOSIGNAL);
            ::close(client);
        }
    }

    std::string m_reply;
    int m_socket = -1;
    int m_port = 0;
    std::atomic<bool> m_stopping{false};
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
        {"empty", ok(""), "''", 0, "line 1: \nline 2: \nline 3: \nnot newer\n"},
        {"404", "HTTP/1.0 404 Not Found\r\n\r\nnincs", "1", 1,
         "rvcli: Hiba: 127.0.0.1 nem érhető el. (HTTP status 404)\n"},
        {"not HTTP", "garbage", "1", 1, "rvcli: Hiba: 127.0.0.1 nem érhető el. (no HTTP reply)\n"},
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
                    std::to_string(proxy.port()))
                  .exitCode,
              0);
    EXPECT_EQ(proxy.requestLine, "GET http://frissites.rovanel.invalid/rvupg.ini HTTP/1.0");
    const int closedPort = LoopbackServer("").port();
    EXPECT_EQ(rvcli("check-update http://127.0.0.1:" + std::to_string(closedPort) + "/ 1", true).out,
              "rvcli: Hiba: 127.0.0.1 nem érhető el. (connection failed)\n");
}

TEST(RvcliRefresh, DryRunListsTheFilesAndARunInstallsThem)
{
    ScratchDirectory data;
    ScratchDirectory update;
    data.write("ZARAS.INF", "20261101\r\n2026.11.01\r\n");
    data.write("gy.ful", "old");
    update.write("ZARAS.INF", "20261201\r\n2026.12.01\r\n");
    update.write("gy.ful", "new");
    const std::string directories = data.path().string() + " " + update.path().string();

    const std::string listing = "update: 2026.12.01\ncurrent: 2026.11.01\ncopy: ZARAS.INF\ncopy: gy.ful\n";
    EXPECT_EQ(rvcli("refresh " + directories + " --dry-run").out, listing);
    EXPECT_EQ(data.read("gy.ful"), "old");
    EXPECT_EQ(rvcli("refresh " + directories).out, listing + "installed\n");
    EXPECT_EQ(data.read("gy.ful"), "new");
    EXPECT_EQ(rvcli("refresh " + directories).out, "update: 2026.12.01\ncurrent: 2026.12.01\nnot newer\n");
}

}  // namespace
}  // namespace rovanel

#include "cli/HttpGet.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string_view>

#if defined(_WIN32)
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace rovanel::cli
{
namespace
{

using Clock = std::chrono::steady_clock;

// The few calls that differ between Winsock and POSIX sockets.
#if defined(_WIN32)
using Socket = SOCKET;
constexpr Socket kNoSocket = INVALID_SOCKET;
bool startSockets()
{
    static const bool started = [] {
        WSADATA data;
        return ::WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }();
    return started;
}
void setNonBlocking(Socket socket)
{
    u_long on = 1;
    ::ioctlsocket(socket, FIONBIO, &on);
}
bool connectionPending() { return ::WSAGetLastError() == WSAEWOULDBLOCK; }
int pollOne(pollfd& wait, int timeoutMs) { return ::WSAPoll(&wait, 1, timeoutMs); }
long long sendSome(Socket socket, const char* data, std::size_t size)
{
    return ::send(socket, data, static_cast<int>(size), 0);
}
void closeSocket(Socket socket) { ::closesocket(socket); }
#else
using Socket = int;
constexpr Socket kNoSocket = -1;
bool startSockets() { return true; }
void setNonBlocking(Socket socket) { ::fcntl(socket, F_SETFL, ::fcntl(socket, F_GETFL) | O_NONBLOCK); }
bool connectionPending() { return errno == EINPROGRESS; }
int pollOne(pollfd& wait, int timeoutMs) { return ::poll(&wait, 1, timeoutMs); }
long long sendSome(Socket socket, const char* data, std::size_t size)
{
    return ::send(socket, data, size, MSG_NOSIGNAL);
}
void closeSocket(Socket socket) { ::close(socket); }
#endif

struct Address {
    std::string host;
    std::string port = "80";
    std::string path = "/";
};

std::optional<Address> parseUrl(const std::string& url)
{
    constexpr std::string_view scheme = "http://";
    if (url.compare(0, scheme.size(), scheme) != 0) return std::nullopt;
    Address address;
    std::string rest = url.substr(scheme.size());
    const std::size_t slash = rest.find('/');
    if (slash != std::string::npos) {
        address.path = rest.substr(slash);
        rest.resize(slash);
    }
    const std::size_t colon = rest.rfind(':');
    if (colon != std::string::npos && rest.find(']', colon) == std::string::npos) {
        address.port = rest.substr(colon + 1);
        rest.resize(colon);
    }
    if (rest.size() >= 2 && rest.front() == '[' && rest.back() == ']') rest = rest.substr(1, rest.size() - 2);
    address.host = rest;
    if (address.host.empty()) return std::nullopt;
    return address;
}

int remainingMs(Clock::time_point deadline)
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

}  // namespace

HttpReply httpGet(const std::string& url, const std::string& proxyHost, int proxyPort, int timeoutMs,
                  std::size_t limit)
{
    HttpReply reply;
    const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    const auto target = parseUrl(url);
    if (!target) {
        reply.error = "not an http:// address";
        return reply;
    }
    const bool proxied = !proxyHost.empty();
    const std::string host = proxied ? proxyHost : target->host;
    const std::string port = proxied ? std::to_string(proxyPort) : target->port;

    if (!startSockets()) {
        reply.error = "no network";
        return reply;
    }
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (::getaddrinfo(host.c_str(), port.c_str(), &hints, &found) != 0 || !found) {
        reply.error = "host not found";
        return reply;
    }
    Socket socket = kNoSocket;
    for (addrinfo* each = found; each && socket == kNoSocket; each = each->ai_next) {
        socket = ::socket(each->ai_family, each->ai_socktype, each->ai_protocol);
        if (socket == kNoSocket) continue;
        setNonBlocking(socket);
        if (::connect(socket, each->ai_addr, static_cast<socklen_t>(each->ai_addrlen)) == 0) break;
        pollfd wait{socket, POLLOUT, 0};
        int error = 0;
        socklen_t length = sizeof error;
        if (!connectionPending() || pollOne(wait, remainingMs(deadline)) != 1 ||
            ::getsockopt(socket, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length) != 0 ||
            error != 0) {
            closeSocket(socket);
            socket = kNoSocket;
        }
    }
    ::freeaddrinfo(found);
    if (socket == kNoSocket) {
        reply.error = "connection failed";
        return reply;
    }

    // No header fields beyond the host the request goes to.
    const std::string request =
        "GET " + (proxied ? url : target->path) + " HTTP/1.0\r\nHost: " + target->host + "\r\n\r\n";
    std::size_t sent = 0;
    std::string received;
    bool timedOut = false;
    while (true) {
        const bool sending = sent < request.size();
        pollfd wait{socket, static_cast<short>(sending ? POLLOUT : POLLIN), 0};
        const int ready = pollOne(wait, remainingMs(deadline));
        if (ready <= 0) {
            timedOut = true;
            break;
        }
        if (sending) {
            const long long written = sendSome(socket, request.data() + sent, request.size() - sent);
            if (written <= 0) break;
            sent += static_cast<std::size_t>(written);
            continue;
        }
        char buffer[16384];
        const auto got = ::recv(socket, buffer, sizeof buffer, 0);
        if (got <= 0) break;
        received.append(buffer, static_cast<std::size_t>(got));
        const std::size_t headerEnd = received.find("\r\n\r\n");
        if (headerEnd != std::string::npos && received.size() - headerEnd - 4 >= limit) break;
    }
    closeSocket(socket);

    const std::size_t headerEnd = received.find("\r\n\r\n");
    if (timedOut || received.compare(0, 5, "HTTP/") != 0 || headerEnd == std::string::npos) {
        reply.error = timedOut ? "timed out" : "no HTTP reply";
        return reply;
    }
    const std::size_t blank = received.find(' ');
    reply.status = std::atoi(received.c_str() + (blank == std::string::npos ? 0 : blank + 1));
    reply.body = received.substr(headerEnd + 4, limit);
    reply.ok = reply.status >= 200 && reply.status < 300;
    if (!reply.ok) reply.error = "HTTP status " + std::to_string(reply.status);
    return reply;
}

}  // namespace rovanel::cli

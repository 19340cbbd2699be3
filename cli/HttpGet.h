// rvcli's HTTP client for check-update: one GET over HTTP/1.0, directly or through an HTTP proxy, ended
// by a deadline and a size limit. The program's windows use Qt's client; rvcli links the core only.
#pragma once

#include <optional>
#include <string>

namespace rovanel::cli
{

struct HttpReply {
    bool ok = false;    // a 2xx status arrived
    int status = 0;     // 0: no status line (refused, timed out, not HTTP)
    std::string body;   // at most `limit` bytes
    std::string error;  // what failed, for the user
};

// GET of "http://host[:port]/path". `proxyHost` empty: direct.
[[nodiscard]] HttpReply httpGet(const std::string& url, const std::string& proxyHost, int proxyPort,
                                int timeoutMs, std::size_t limit);

}  // namespace rovanel::cli

// rvcli check-update URL ZARAS_LINE1 [--proxy HOST:PORT]: fetches the update notice file and prints its
// three lines and whether it announces a database newer than ZARAS_LINE1 (compared byte by byte). The
// registry is not touched. Exit 0 after a reply, 1 when the server could not be reached.
#include <cstdio>

#include "app/UpdateNotice.h"
#include "cli/Common.h"
#include "cli/HttpGet.h"

namespace rovanel::cli
{

namespace
{

constexpr int kTimeoutMs = 5000;
constexpr std::size_t kReplyLimit = 64 * 1024;

}  // namespace

int runCheckUpdate(const Invocation& call)
{
    const std::vector<std::string>& args = call.args;
    if (args.size() != 2 && !(args.size() == 4 && args[2] == "--proxy")) return call.usageError();
    ProxySetting proxy;
    if (args.size() == 4) {
        const std::size_t colon = args[3].rfind(':');
        if (colon == std::string::npos) return call.usageError();
        proxy = proxySetting(args[3].substr(0, colon), args[3].substr(colon + 1));
    }
    const HttpReply reply = httpGet(args[0], proxy.host, proxy.port, kTimeoutMs, kReplyLimit);
    if (!reply.ok) {
        std::fprintf(stderr, "rvcli: %s (%s)\n", toUtf8(unreachableMessage(hostOfUrl(args[0])).text).c_str(),
                     reply.error.c_str());
        return 1;
    }
    const NoticeLines lines = splitNoticeReply(reply.body);
    std::printf("line 1: %s\nline 2: %s\nline 3: %s\n", toUtf8(lines.closingDate).c_str(),
                toUtf8(lines.closingText).c_str(), toUtf8(lines.place).c_str());
    // An empty reply is no news.
    std::printf("%s\n", !reply.body.empty() && lines.closingDate > args[1] ? "newer" : "not newer");
    return 0;
}

}  // namespace rovanel::cli

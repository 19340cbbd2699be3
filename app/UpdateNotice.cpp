#include "app/UpdateNotice.h"

#include <charconv>
#include <cstdlib>

#include "app/RegistrySettings.h"
#include "db/Cp1250.h"

#ifndef ROVANEL_UPDATE_URL
#define ROVANEL_UPDATE_URL "http://frissites.rovanel.hu/rovanel/rvupg.ini"
#endif

namespace rovanel
{
namespace
{

constexpr std::string_view kVersionPath = "\\Software\\Rovanel\\Version";
constexpr std::string_view kUpgShowPath = "\\Software\\Rovanel\\UpgShow";

// The text from `start` up to its first CR, within a window of `kNoticeLineLimit` bytes.
std::string_view lineAt(std::string_view body, std::size_t start)
{
    if (start >= body.size()) return {};
    const std::string_view window = body.substr(start, kNoticeLineLimit);
    return window.substr(0, window.find('\r'));
}

// "\Software\Rovanel\Version", its key opened by the path without the leading backslash (the same key).
StringRead readLastSeenVersion(RegistryStore& registry)
{
    const std::string_view key = kVersionPath.substr(1);
    const auto failed = [](std::string_view text) {
        return StringRead{{}, Message{std::string(text), "Rovanel", MessageIcon::Stop, false}};
    };
    if (!registry.keyExists(key)) return failed(utf8ToCp1250(kRegistryNotFoundText));
    RegistryValueRead read = registry.readValue(key, kVersionPath);
    if (!read.value) return failed(read.errorText);
    if (read.value->kind != RegistryValue::Kind::String) return failed(utf8ToCp1250(kRegistryWrongTypeText));
    return {std::move(read.value->text), std::nullopt};
}

}  // namespace

std::string updateNoticeUrl()
{
    if (const char* url = std::getenv("ROVANEL_UPDATE_URL"); url && *url) return url;
    return ROVANEL_UPDATE_URL;
}

std::string hostOfUrl(std::string_view url)
{
    const std::size_t scheme = url.find("://");
    if (scheme == std::string_view::npos) return std::string(url);
    std::string_view rest = url.substr(scheme + 3);
    rest = rest.substr(0, rest.find_first_of("/?#"));
    if (const std::size_t at = rest.rfind('@'); at != std::string_view::npos) rest.remove_prefix(at + 1);
    // "[::1]:8080" keeps its brackets; "host:8080" loses the port.
    if (!rest.empty() && rest.front() == '[') return std::string(rest.substr(0, rest.find(']') + 1));
    return std::string(rest.substr(0, rest.find(':')));
}

NoticeLines splitNoticeReply(std::string_view body)
{
    NoticeLines lines;
    const std::size_t firstReturn = body.find('\r');
    // No CR at all: line 1 is empty, and line 2 starts two bytes in, as after an empty line 1.
    const std::string_view first =
        firstReturn == std::string_view::npos ? std::string_view{} : body.substr(0, firstReturn);
    lines.closingDate = std::string(first.substr(0, kNoticeLineLimit));
    const std::size_t secondStart = first.size() + 2;
    const std::string_view second = lineAt(body, secondStart);
    lines.closingText = std::string(second);
    lines.place = std::string(lineAt(body, secondStart + second.size() + 2));
    return lines;
}

NoticeOutcome evaluateNoticeReply(RegistryStore& registry, std::string_view body,
                                  std::string_view closingDate, bool manual)
{
    NoticeOutcome outcome;
    if (body.empty()) return outcome;
    outcome.lines = splitNoticeReply(body);

    const StringRead seen = readLastSeenVersion(registry);
    std::optional<Message> failure = seen.error;
    if (!failure && seen.value < closingDate) {
        // A newer database was installed here since the last check: remember it and re-arm the notice.
        failure = RegWriteString(registry, kVersionPath, closingDate);
        if (!failure) failure = RegWriteBool(registry, kUpgShowPath, true);
    }
    if (failure) {
        outcome.messages.push_back(*failure);
        outcome.registryFailed = true;
        return outcome;
    }

    if (outcome.lines.closingDate > closingDate) {
        outcome.titleSuffix = utf8ToCp1250(" - Frissítés elérhető a ") + outcome.lines.place + " oldalon";
        const BoolRead show = RegReadBool(registry, kUpgShowPath);
        if (show.error) outcome.messages.push_back(*show.error);
        outcome.showNotice = show.value || manual;
    } else if (manual) {
        outcome.messages.push_back(
            {utf8ToCp1250("Nincsen újabb adatbázis a ") + outcome.lines.place + " oldalon", "",
             MessageIcon::None, false});
    }
    return outcome;
}

Message unreachableMessage(std::string_view host)
{
    return {"Hiba: " + std::string(host) + utf8ToCp1250(" nem érhető el."), "", MessageIcon::None, false};
}

ProxySetting proxySetting(std::string_view host, std::string_view portText)
{
    ProxySetting proxy;
    if (host.empty()) return proxy;
    proxy.host = std::string(host);
    int port = 0;
    const auto [end, error] = std::from_chars(portText.data(), portText.data() + portText.size(), port);
    if (error == std::errc{} && end == portText.data() + portText.size() && port >= 0 && port <= 65535)
        proxy.port = port;
    return proxy;
}

}  // namespace rovanel

// The update notice check without its transport: where the notice file "rvupg.ini" is published, how
// its reply splits into three lines, and what a reply means for the registry, the title and the notice
// window. The window fetches the file over HTTP and hands the body here; nothing is downloaded or
// installed. Texts are Windows-1250; versions are never parsed, only compared byte by byte.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"

namespace rovanel
{

class RegistryStore;

// The notice file's address, fixed at build time (ROVANEL_UPDATE_URL), unless the environment variable
// ROVANEL_UPDATE_URL names another one (tests, a practice's own mirror).
[[nodiscard]] std::string updateNoticeUrl();
// The host part of an "http://host[:port]/path" address; the whole text when it has no scheme.
[[nodiscard]] std::string hostOfUrl(std::string_view url);

// The three lines of a reply: the newest closing date on the server, the text of that closing time, and
// the web page that offers it. Each at most 100 bytes.
struct NoticeLines {
    std::string closingDate;
    std::string closingText;
    std::string place;

    friend bool operator==(const NoticeLines&, const NoticeLines&) = default;
};

inline constexpr std::size_t kNoticeLineLimit = 100;

// Line 1 is the text before the first CR (none: line 1 is empty). Each further line starts two bytes
// past the end of the one before (past CR LF) and is the text up to its first CR within a window of 100
// bytes. A line that would start past the end of the body is empty.
[[nodiscard]] NoticeLines splitNoticeReply(std::string_view body);

// What the check does after a reply, in order: messages to show, then the title suffix and the notice.
struct NoticeOutcome {
    NoticeLines lines;
    std::vector<Message> messages;  // registry errors, or "Nincsen újabb adatbázis a ... oldalon"
    std::string titleSuffix;        // " - Frissítés elérhető a <place> oldalon", or empty
    bool showNotice = false;        // open the notice window with `lines`
    bool registryFailed = false;    // the check ended at the registry: the running flag stays set
};

// The reply `body` against the local `closingDate`. An empty body is no news, even for a manual run.
// Keeps "\Software\Rovanel\Version" at the newest local closing date seen and re-arms "UpgShow" when it
// moves on.
[[nodiscard]] NoticeOutcome evaluateNoticeReply(RegistryStore& registry, std::string_view body,
                                                std::string_view closingDate, bool manual);

// "Hiba: <host> nem érhető el." for a manual run whose request failed.
[[nodiscard]] Message unreachableMessage(std::string_view host);

// The proxy of the settings: host and port. A port that is not a whole number from 0 to 65535 is 0.
struct ProxySetting {
    std::string host;
    int port = 0;
};
[[nodiscard]] ProxySetting proxySetting(std::string_view host, std::string_view portText);

}  // namespace rovanel

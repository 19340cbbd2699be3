// The update notice reply and the closing-date files of a database refresh. Segments after the (unused)
// parameter line: the server's reply, the data directory's ZARAS.INF, the update directory's ZARAS.INF.
// A missing segment is a missing file.
#include <cstdint>
#include <string>

#include "app/DatabaseRefresh.h"
#include "app/UpdateNotice.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

void place(const std::filesystem::path& file, const std::vector<std::string_view>& segments,
           std::size_t index)
{
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    if (index >= segments.size()) {
        std::filesystem::remove(file, ignored);
        return;
    }
    std::ofstream(file, std::ios::binary | std::ios::trunc)
        .write(segments[index].data(), static_cast<std::streamsize>(segments[index].size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto segments = splitSegments(std::string_view(reinterpret_cast<const char*>(data), size));
    const std::string_view reply = segments.size() > 1 ? segments[1] : std::string_view{};

    // Three lines, each at most 100 bytes, none holding a CR, each a piece of the reply.
    const NoticeLines lines = splitNoticeReply(reply);
    for (const std::string* line : {&lines.closingDate, &lines.closingText, &lines.place}) {
        ROVANEL_FUZZ_CHECK(line->size() <= kNoticeLineLimit);
        ROVANEL_FUZZ_CHECK(line->find('\r') == std::string::npos);
        ROVANEL_FUZZ_CHECK(line->empty() || reply.find(*line) != std::string_view::npos);
    }
    ROVANEL_FUZZ_CHECK(reply.substr(0, lines.closingDate.size()) == lines.closingDate);
    if (reply.find('\r') == std::string_view::npos) ROVANEL_FUZZ_CHECK(lines.closingDate.empty());

    // The second line of a ZARAS.INF holds no line end and comes from the file.
    for (std::size_t index : {2u, 3u}) {
        if (index >= segments.size()) continue;
        const auto line = refreshDateLine(segments[index]);
        if (!line) continue;
        ROVANEL_FUZZ_CHECK(line->find_first_of("\r\n") == std::string::npos);
        ROVANEL_FUZZ_CHECK(segments[index].find(*line) != std::string_view::npos);
    }

    // The refresh check: newer only when both files have a second line and the update's is greater.
    const std::filesystem::path root = fuzzDirectory().path();
    place(root / "db" / "ZARAS.INF", segments, 2);
    place(root / "upd" / "ZARAS.INF", segments, 3);
    const RefreshCheck check = checkRefresh(root / "db", (root / "upd").string() + "/");
    const auto current = segments.size() > 2 ? refreshDateLine(segments[2]) : std::nullopt;
    const auto update = segments.size() > 3 ? refreshDateLine(segments[3]) : std::nullopt;
    ROVANEL_FUZZ_CHECK(check.newer == (current && update && *update > *current));
    ROVANEL_FUZZ_CHECK(check.newer || check.files.empty());
    return 0;
}

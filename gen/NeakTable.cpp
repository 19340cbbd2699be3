#include "gen/NeakTable.h"

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

std::string quoted(std::string_view text) { return "\"" + cp1250ToUtf8(text) + "\""; }

}  // namespace

std::optional<SourceTable> parseSourceTable(std::string_view content, const TableLayout& layout,
                                            std::string* error)
{
    const auto fail = [&](const std::string& why) -> std::optional<SourceTable> {
        if (error) *error = std::string(layout.file) + ": " + why;
        return std::nullopt;
    };
    const auto failAt = [&](std::size_t line, const std::string& why) -> std::optional<SourceTable> {
        if (error) *error = std::string(layout.file) + " line " + std::to_string(line) + ": " + why;
        return std::nullopt;
    };
    if (content.size() > kMaximumTableBytes) return fail("larger than the importer reads");
    if (content.starts_with("\xEF\xBB\xBF")) content.remove_prefix(3);
    const std::string converted =
        layout.encoding == SourceEncoding::Utf8 ? utf8ToCp1250(content) : std::string(content);
    const std::string_view text = converted;

    SourceTable table;
    bool header = true;
    std::size_t line = 1, i = 0;
    while (i < text.size()) {
        const std::size_t recordLine = line;
        std::vector<std::string> fields(1);
        bool endOfRecord = false;
        while (!endOfRecord) {
            std::string& field = fields.back();
            if (i < text.size() && text[i] == '"') {
                ++i;
                for (;;) {
                    if (i >= text.size()) return failAt(recordLine, "a quoted field is not closed");
                    if (text[i] == '"') {
                        if (i + 1 < text.size() && text[i + 1] == '"') {
                            field += '"';
                            i += 2;
                            continue;
                        }
                        ++i;
                        break;
                    }
                    if (text[i] == '\n') ++line;
                    field += text[i++];
                }
            }
            // Unquoted bytes (also any after a closing quote) up to the delimiter or the line end.
            while (i < text.size() && text[i] != layout.delimiter && text[i] != '\n') field += text[i++];
            if (i < text.size() && text[i] == layout.delimiter) {
                ++i;
                fields.emplace_back();
                continue;
            }
            if (!field.empty() && field.back() == '\r') field.pop_back();
            if (i < text.size()) {
                ++i;
                ++line;
            }
            endOfRecord = true;
        }
        if (fields.size() == 1 && fields.front().empty()) continue;  // a blank line
        if (header) {
            header = false;
            for (std::size_t c = 0; c < layout.columns.size() || c < fields.size(); ++c) {
                if (c >= fields.size())
                    return fail("column " + std::to_string(c + 1) + " is missing, expected " +
                                quoted(layout.columns[c]));
                if (c >= layout.columns.size())
                    return fail("column " + std::to_string(c + 1) + " " + quoted(fields[c]) +
                                " is not in the layout");
                if (fields[c] != utf8ToCp1250(layout.columns[c]))
                    return fail("column " + std::to_string(c + 1) + " is " + quoted(fields[c]) +
                                ", expected " + quoted(utf8ToCp1250(layout.columns[c])));
            }
            continue;
        }
        if (fields.size() != layout.columns.size())
            return failAt(recordLine, std::to_string(fields.size()) + " fields, expected " +
                                          std::to_string(layout.columns.size()));
        table.rows.push_back(std::move(fields));
        table.lines.push_back(recordLine);
    }
    if (header)
        return fail("empty, expected the header " + quoted(utf8ToCp1250(layout.columns.front())) + "...");
    return table;
}

}  // namespace rovanel

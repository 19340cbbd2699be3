#include "gen/NeakTable.h"

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

std::string quoted(std::string_view text) { return "\"" + cp1250ToUtf8(text) + "\""; }

// A strict JSON reader over one document; every value is a string in `Json::Value`.
class Json
{
public:
    explicit Json(std::string_view text) : m_text(text) {}
    std::size_t line() const { return m_line; }
    std::string problem;

    void blanks()
    {
        while (m_at < m_text.size() &&
               (m_text[m_at] == ' ' || m_text[m_at] == '\t' || m_text[m_at] == '\r' || m_text[m_at] == '\n'))
            if (m_text[m_at++] == '\n') ++m_line;
    }
    bool take(char c)
    {
        blanks();
        if (m_at < m_text.size() && m_text[m_at] == c) {
            ++m_at;
            return true;
        }
        return false;
    }
    bool fail(const std::string& why)
    {
        if (problem.empty()) problem = why;
        return false;
    }
    bool expect(char c) { return take(c) || fail(std::string("expected '") + c + "'"); }

    // A string (after blanks), its UTF-8 bytes into `out`.
    bool string(std::string& out)
    {
        if (!take('"')) return fail("expected a string");
        while (m_at < m_text.size()) {
            const char c = m_text[m_at++];
            if (c == '"') return true;
            if (static_cast<unsigned char>(c) < 0x20) return fail("a control character inside a string");
            if (c != '\\') {
                out += c;
                continue;
            }
            if (m_at >= m_text.size()) break;
            const char e = m_text[m_at++];
            static constexpr std::string_view kFrom = "\"\\/bfnrt", kTo = "\"\\/\b\f\n\r\t";
            if (const std::size_t k = kFrom.find(e); k != std::string_view::npos) {
                out += kTo[k];
                continue;
            }
            if (e != 'u') return fail("a bad escape inside a string");
            unsigned code = 0;
            if (!hex(code)) return false;
            if (code >= 0xD800 && code < 0xDC00) {
                unsigned low = 0;
                if (m_text.substr(m_at, 2) != "\\u" || (m_at += 2, !hex(low)) || low < 0xDC00 || low > 0xDFFF)
                    return fail("a lone surrogate inside a string");
                code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
            }
            if (code < 0x80) {
                out += static_cast<char>(code);
            } else if (code < 0x800) {
                out += static_cast<char>(0xC0 | (code >> 6));
                out += static_cast<char>(0x80 | (code & 0x3F));
            } else if (code < 0x10000) {
                out += static_cast<char>(0xE0 | (code >> 12));
                out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
                out += static_cast<char>(0x80 | (code & 0x3F));
            } else {
                out += static_cast<char>(0xF0 | (code >> 18));
                out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
                out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
                out += static_cast<char>(0x80 | (code & 0x3F));
            }
        }
        return fail("a string is not closed");
    }

    // Any value; a scalar's text into `out` (objects and arrays leave it empty).
    bool value(std::string& out, int depth)
    {
        if (depth > 64) return fail("nested deeper than 64 levels");
        blanks();
        if (m_at >= m_text.size()) return fail("a value is missing");
        const char c = m_text[m_at];
        if (c == '"') return string(out);
        if (c == '{' || c == '[') {
            ++m_at;
            const char close = c == '{' ? '}' : ']';
            if (take(close)) return true;
            do {
                std::string ignored;
                if (c == '{' && !(string(ignored) && expect(':'))) return false;
                ignored.clear();
                if (!value(ignored, depth + 1)) return false;
            } while (take(','));
            return expect(close);
        }
        for (const std::string_view word : {"true", "false", "null"})
            if (m_text.substr(m_at, word.size()) == word) {
                m_at += word.size();
                if (word != "null") out = word;
                return true;
            }
        const std::size_t from = m_at;
        while (m_at < m_text.size() &&
               std::string_view("+-.0123456789eE").find(m_text[m_at]) != std::string_view::npos)
            ++m_at;
        if (m_at == from) return fail("not a JSON value");
        out = m_text.substr(from, m_at - from);
        return true;
    }

    bool atEnd()
    {
        blanks();
        return m_at >= m_text.size() || fail("text after the document");
    }

private:
    bool hex(unsigned& code)
    {
        if (m_at + 4 > m_text.size()) return fail("a bad escape inside a string");
        for (int k = 0; k < 4; ++k) {
            const char h = m_text[m_at++];
            const int digit = h >= '0' && h <= '9'   ? h - '0'
                              : h >= 'a' && h <= 'f' ? h - 'a' + 10
                              : h >= 'A' && h <= 'F' ? h - 'A' + 10
                                                     : -1;
            if (digit < 0) return fail("a bad escape inside a string");
            code = code * 16 + static_cast<unsigned>(digit);
        }
        return true;
    }

    std::string_view m_text;
    std::size_t m_at = 0, m_line = 1;
};

}  // namespace

std::optional<SourceTable> parseJsonItems(std::string_view content, std::string_view arrayName,
                                          const TableLayout& layout, std::string* error)
{
    if (content.size() > kMaximumTableBytes) {
        if (error) *error = std::string(layout.file) + ": larger than the importer reads";
        return std::nullopt;
    }
    if (content.starts_with("\xEF\xBB\xBF")) content.remove_prefix(3);
    Json json(content);
    SourceTable table;
    bool found = false;
    const auto items = [&]() -> bool {
        if (!json.expect('[')) return false;
        if (json.take(']')) return true;
        do {
            const std::size_t line = (json.blanks(), json.line());
            std::vector<std::string> row(layout.columns.size());
            std::vector<bool> seen(layout.columns.size(), false);
            if (!json.expect('{')) return false;
            if (!json.take('}')) {
                do {
                    std::string name, value;
                    if (!json.string(name) || !json.expect(':') || !json.value(value, 2)) return false;
                    for (std::size_t c = 0; c < layout.columns.size(); ++c)
                        if (name == layout.columns[c] && !seen[c]) {
                            seen[c] = true;
                            row[c] = utf8ToCp1250(value);
                        }
                } while (json.take(','));
                if (!json.expect('}')) return false;
            }
            for (std::size_t c = 0; c < layout.columns.size(); ++c)
                if (!seen[c])
                    return json.fail("item " + std::to_string(table.rows.size() + 1) + " has no " +
                                     quoted(utf8ToCp1250(layout.columns[c])));
            table.rows.push_back(std::move(row));
            table.lines.push_back(line);
        } while (json.take(','));
        return json.expect(']');
    };
    const auto document = [&]() -> bool {
        if (!json.expect('{')) return false;
        if (json.take('}')) return true;
        do {
            std::string name, ignored;
            if (!json.string(name) || !json.expect(':')) return false;
            if (name == arrayName && !found) {
                found = true;
                if (!items()) return false;
            } else if (!json.value(ignored, 1)) {
                return false;
            }
        } while (json.take(','));
        return json.expect('}') && json.atEnd();
    };
    if (!document() || !found) {
        if (error)
            *error = std::string(layout.file) + " line " + std::to_string(json.line()) + ": " +
                     (json.problem.empty() ? "no \"" + std::string(arrayName) + "\" array" : json.problem);
        return std::nullopt;
    }
    return table;
}

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

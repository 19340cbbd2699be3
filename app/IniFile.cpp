#include "app/IniFile.h"

#include <cstdio>
#include <fstream>
#include <system_error>
#include <vector>

#include "db/DataFile.h"
#include "db/Text.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace rovanel
{
namespace
{

// A section header "[name]" gives the name; anything else gives nothing.
std::optional<std::string_view> sectionName(std::string_view line)
{
    line = stripBlanks(line);
    if (line.size() < 2 || line.front() != '[') return std::nullopt;
    const std::size_t close = line.find(']');
    if (close == std::string_view::npos) return std::nullopt;
    return stripBlanks(line.substr(1, close - 1));
}

struct Line {
    std::string_view text;  // without its line end
    std::size_t begin = 0;  // offset of the line in the content
    std::size_t end = 0;    // offset after its line end
};

std::vector<Line> splitLines(std::string_view content)
{
    std::vector<Line> lines;
    std::size_t start = 0;
    while (start < content.size()) {
        std::size_t newline = content.find('\n', start);
        const std::size_t next = newline == std::string_view::npos ? content.size() : newline + 1;
        std::string_view text =
            content.substr(start, (newline == std::string_view::npos ? content.size() : newline) - start);
        if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
        lines.push_back({text, start, next});
        start = next;
    }
    return lines;
}

}  // namespace

std::optional<std::string> findProfileValue(std::string_view content, std::string_view section,
                                            std::string_view key)
{
    bool inSection = false;
    for (const Line& line : splitLines(content)) {
        if (const auto name = sectionName(line.text)) {
            inSection = equalsIgnoringAsciiCase(*name, section);
            continue;
        }
        if (!inSection) continue;
        const std::size_t equals = line.text.find('=');
        if (equals == std::string_view::npos) continue;
        if (!equalsIgnoringAsciiCase(stripBlanks(line.text.substr(0, equals)), key)) continue;
        std::string_view value = stripBlanks(line.text.substr(equals + 1));
        if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
            value.back() == value.front())
            value = value.substr(1, value.size() - 2);
        return std::string(value);
    }
    return std::nullopt;
}

std::string setProfileValue(std::string_view content, std::string_view section, std::string_view key,
                            std::string_view value)
{
    const std::vector<Line> lines = splitLines(content);
    const std::string newLine = std::string(key) + "=" + std::string(value) + "\r\n";
    bool inSection = false;
    std::optional<std::size_t> sectionEnd;  // offset after the last non-blank line of our section
    for (const Line& line : lines) {
        if (const auto name = sectionName(line.text)) {
            if (inSection) break;
            inSection = equalsIgnoringAsciiCase(*name, section);
            if (inSection) sectionEnd = line.end;
            continue;
        }
        if (!inSection) continue;
        const std::size_t equals = line.text.find('=');
        if (equals != std::string_view::npos &&
            equalsIgnoringAsciiCase(stripBlanks(line.text.substr(0, equals)), key)) {
            std::string result(content.substr(0, line.begin));
            result += newLine;
            result += content.substr(line.end);
            return result;
        }
        if (!stripBlanks(line.text).empty()) sectionEnd = line.end;
    }
    std::string result(content);
    if (sectionEnd) {
        // A last line without its line end gets one before the new key.
        std::string insert = newLine;
        if (*sectionEnd == content.size() && !content.empty() && content.back() != '\n')
            insert = "\r\n" + insert;
        result.insert(*sectionEnd, insert);
        return result;
    }
    if (!result.empty() && result.back() != '\n') result += "\r\n";
    result += "[" + std::string(section) + "]\r\n" + newLine;
    return result;
}

std::string readProfileString(const std::filesystem::path& file, std::string_view section,
                              std::string_view key, std::string_view defaultValue, std::size_t bufferSize)
{
    std::string value(defaultValue);
    if (const auto content = readWholeFile(file))
        if (auto found = findProfileValue(*content, section, key)) value = std::move(*found);
    if (bufferSize > 0 && value.size() > bufferSize - 1) value.resize(bufferSize - 1);
    return value;
}

bool writeProfileString(const std::filesystem::path& file, std::string_view section, std::string_view key,
                        std::string_view value)
{
    const std::string content = readWholeFile(file).value_or(std::string{});
    return writeFileAtomically(file, setProfileValue(content, section, key, value));
}

bool writeFileAtomically(const std::filesystem::path& file, std::string_view content)
{
    std::error_code error;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
    std::filesystem::path temporary = file;
    temporary += ".tmp~";
    {
        std::FILE* out = openFile(temporary, "wb");
        if (!out) return false;
        const bool written = std::fwrite(content.data(), 1, content.size(), out) == content.size();
        bool flushed = std::fflush(out) == 0;
#if defined(_WIN32)
        flushed = flushed && ::_commit(::_fileno(out)) == 0;
#else
        flushed = flushed && ::fsync(::fileno(out)) == 0;
#endif
        const bool closed = std::fclose(out) == 0;
        if (!written || !flushed || !closed) {
            std::filesystem::remove(temporary, error);
            return false;
        }
    }
    std::filesystem::rename(temporary, file, error);
    if (error) {
        std::filesystem::remove(temporary, error);
        return false;
    }
    return true;
}

}  // namespace rovanel

#include "db/Text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <limits>

namespace rovanel
{

std::string_view trim(std::string_view text)
{
    const void* tilde = text.empty() ? nullptr : std::memchr(text.data(), '~', text.size());
    if (tilde) text = text.substr(0, static_cast<std::size_t>(static_cast<const char*>(tilde) - text.data()));
    return trimEnd(text);
}

std::string_view stripLeadingBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view stripBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

namespace
{
constexpr char upperAsciiByte(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
}  // namespace

std::string upperAscii(std::string_view text)
{
    std::string result(text);
    for (char& c : result) c = upperAsciiByte(c);
    return result;
}

bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (upperAsciiByte(a[i]) != upperAsciiByte(b[i])) return false;
    return true;
}

std::string padTo(std::string_view text, std::size_t width)
{
    if (width == 0) return {};
    std::string result(text.substr(0, width - 1));
    result.resize(width - 1, ' ');
    return result;
}

std::optional<std::string_view> fixedRecord(std::string_view data, std::size_t length, std::size_t index)
{
    if (length == 0 || index >= data.size() / length) return std::nullopt;
    return data.substr(index * length, length);
}

std::optional<std::int64_t> parseInteger(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return std::nullopt;
    const std::size_t last = text.find_last_not_of(' ');
    text = text.substr(first, last - first + 1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<std::int32_t> scanInteger(std::string_view text, std::size_t* consumed)
{
    std::size_t position = 0;
    while (position < text.size() && (text[position] == ' ' || text[position] == '\t' ||
                                      text[position] == '\r' || text[position] == '\n'))
        ++position;
    std::size_t digitsStart = position;
    if (position < text.size() && (text[position] == '-' || text[position] == '+')) ++digitsStart;
    std::size_t digitsEnd = digitsStart;
    while (digitsEnd < text.size() && text[digitsEnd] >= '0' && text[digitsEnd] <= '9') ++digitsEnd;
    if (digitsEnd == digitsStart) return std::nullopt;
    std::int64_t value = 0;
    for (std::size_t i = digitsStart; i < digitsEnd; ++i) {
        value = value * 10 + (text[i] - '0');
        if (value > std::numeric_limits<std::int32_t>::max() + std::int64_t{1}) return std::nullopt;
    }
    if (text[position] == '-') value = -value;
    if (value > std::numeric_limits<std::int32_t>::max() || value < std::numeric_limits<std::int32_t>::min())
        return std::nullopt;
    if (consumed) *consumed = digitsEnd;
    return static_cast<std::int32_t>(value);
}

}  // namespace rovanel

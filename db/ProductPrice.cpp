#include "db/ProductPrice.h"

#include <charconv>
#include <cmath>

#include "db/Text.h"

namespace rovanel
{

namespace
{

constexpr std::string_view kSupportDelimiters[kSupportFieldCount] = {
    ";", ";", ";", ";", ";", ";", ";", ";", "^",    "@", "#",
    "$", "*", "[", "]", "{", "}", "(", ")", "\xB3", "@", "\r\n"};

constexpr std::string_view kMarkers[] = {"#ar", "#ha", "#ter", "#jav", "#adag", "#bet", "#ell",
                                         "#mh", "#ov", "#til", "#mer", "#fig",  "#nev", "#vege"};

}  // namespace

std::array<std::string, kSupportFieldCount> splitSupportLine(std::string_view line)
{
    std::array<std::string, kSupportFieldCount> fields;
    std::size_t position = 0;
    for (std::size_t i = 0; i < kSupportFieldCount; ++i) {
        const std::string_view delimiters = kSupportDelimiters[i];
        while (position < line.size() && delimiters.find(line[position]) != std::string_view::npos)
            ++position;
        if (position >= line.size()) break;  // strtok gives nothing from here on
        std::size_t end = line.find_first_of(delimiters, position);
        if (end == std::string_view::npos) end = line.size();
        fields[i] = std::string(line.substr(position, end - position));
        position = end < line.size() ? end + 1 : end;
    }
    return fields;
}

float leadingNumber(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    double value = 0;
    bool digits = false;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        value = value * 10 + (text[i] - '0');
        digits = true;
    }
    if (i < text.size() && text[i] == '.') {
        double scale = 0.1;
        for (++i; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i, scale /= 10) {
            value += (text[i] - '0') * scale;
            digits = true;
        }
    }
    if (!digits || !std::isfinite(value)) return 0;
    return static_cast<float>(negative ? -value : value);
}

float dailyDoses(std::string_view field)
{
    std::string text(field);
    const auto comma = text.find(',');
    if (comma != std::string::npos) text[comma] = '.';
    return leadingNumber(text);
}

std::vector<IndicationSupport> indicationSupports(std::string_view field)
{
    std::vector<IndicationSupport> entries;
    std::size_t start = 0;
    while (start < field.size()) {
        std::size_t end = field.find(',', start);
        if (end == std::string_view::npos) end = field.size();
        const std::string_view entry = stripBlanks(field.substr(start, end - start));
        start = end + 1;
        const std::size_t blank = entry.find(' ');
        if (entry.empty() || blank == std::string_view::npos) continue;  // "-" and bare codes carry no amount
        IndicationSupport support;
        support.code = std::string(entry.substr(0, blank));
        support.amount = static_cast<long>(leadingNumber(entry.substr(blank + 1)));
        support.highlighted = support.code.find_first_of("&_*") == std::string::npos;
        entries.push_back(std::move(support));
    }
    return entries;
}

bool isMarkerLine(std::string_view line)
{
    const std::string_view text = stripBlanks(line);
    if (text.empty() || text.front() != '#') return false;
    for (std::string_view marker : kMarkers)
        if (text == marker) return true;
    return false;
}

std::vector<std::string_view> sectionLines(const std::vector<std::string_view>& lines,
                                           std::string_view marker)
{
    std::vector<std::string_view> section;
    std::size_t i = 1;  // line 0 is the product code
    while (i < lines.size() && stripBlanks(lines[i]) != marker) ++i;
    for (++i; i < lines.size() && !isMarkerLine(lines[i]); ++i) section.push_back(lines[i]);
    return section;
}

PriceData priceData(const std::vector<std::string_view>& lines)
{
    PriceData data;
    const auto prices = sectionLines(lines, "#ar");
    if (!prices.empty()) {
        data.hasPriceLines = true;
        data.fullPrice = leadingNumber(prices[0]);
        if (prices.size() > 1) data.normativeSupport = leadingNumber(prices[1]);
    }
    const auto support = sectionLines(lines, "#ha");
    if (!support.empty()) data.support = splitSupportLine(support[0]);
    return data;
}

std::optional<float> dailyCost(float fullPrice, float payable, float doses, bool fromFullPrice)
{
    if (fullPrice <= 0 || doses <= 0) return std::nullopt;
    return (fromFullPrice ? fullPrice : payable) / doses;
}

std::string fixedDecimals(double value, int decimals)
{
    char buffer[64];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
    if (error != std::errc{}) return "0";
    return std::string(buffer, end);
}

}  // namespace rovanel

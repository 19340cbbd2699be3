#include "rx/PrintLayout.h"

#include <ctime>

namespace rovanel
{

PrintLayout shiftedCopy(const PrintLayout& layout, int left, int top)
{
    PrintLayout copy = layout;
    for (PrintPage& page : copy.pages) {
        for (PrintItem& item : page.items) {
            item.left += left;
            item.top += top;
        }
    }
    return copy;
}

const PrintItem* findItem(const PrintLayout& layout, std::string_view name)
{
    for (const PrintPage& page : layout.pages) {
        for (const PrintItem& item : page.items) {
            if (item.name == name) return &item;
        }
    }
    return nullptr;
}

std::string spacedCharacters(std::string_view text)
{
    std::string spaced;
    for (const char c : text) {
        if (!spaced.empty()) spaced += ' ';
        spaced += c;
    }
    return spaced;
}

std::string todayDigits()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    char buffer[16];
    std::strftime(buffer, sizeof buffer, "%Y%m%d", &local);
    return buffer;
}

std::string dottedDate(std::string_view digits)
{
    if (digits.size() != 8 || digits.find_first_not_of("0123456789") != std::string_view::npos)
        return std::string(digits);
    return std::string(digits.substr(0, 4)) + "." + std::string(digits.substr(4, 2)) + "." +
           std::string(digits.substr(6, 2)) + ".";
}

std::vector<std::string_view> itemLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            lines.push_back(text.substr(start));
            return lines;
        }
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
}

}  // namespace rovanel

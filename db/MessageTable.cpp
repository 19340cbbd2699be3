#include "db/MessageTable.h"

#include "db/Text.h"

namespace rovanel
{

MessageTable MessageTable::parse(std::string_view fileContent)
{
    MessageTable table;
    forEachLine(fileContent, [&](std::string_view line) {
        // Each line is read through a 255-byte buffer: a longer line is cut there rather than split, so
        // later line numbers never shift (MessageTable.AnOverLongLineIsCutAndLaterNumbersDoNotShift).
        const std::string_view text = trim(line.substr(0, 254));
        if (text == "NULL")
            table.m_lines.emplace_back(std::nullopt);
        else
            table.m_lines.emplace_back(std::string(text));
        return true;
    });
    table.m_lines.emplace_back(std::nullopt);
    table.m_lines.emplace_back(std::nullopt);
    return table;
}

std::string_view MessageTable::at(std::size_t line) const
{
    if (line >= m_lines.size() || !m_lines[line]) return {};
    return *m_lines[line];
}

bool MessageTable::isNull(std::size_t line) const { return line >= m_lines.size() || !m_lines[line]; }

}  // namespace rovanel

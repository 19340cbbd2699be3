// The lines of MSG.DAT by line number (from 0); "NULL" lines and numbers past the end read as empty.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

class MessageTable
{
public:
    MessageTable() = default;
    // Parses the file's bytes: each line trimmed, a trimmed "NULL" becomes a null entry.
    [[nodiscard]] static MessageTable parse(std::string_view fileContent);

    // Entry `line`, or the empty text for a null entry or a number past the end.
    [[nodiscard]] std::string_view at(std::size_t line) const;
    [[nodiscard]] bool isNull(std::size_t line) const;
    // Number of slots: lines + 2, the last two null, so a message number just past the file is empty.
    [[nodiscard]] std::size_t slotCount() const { return m_lines.size(); }

private:
    std::vector<std::optional<std::string>> m_lines;
};

}  // namespace rovanel

// The catalogues' string-list files (names, codes, offsets): one entry a line.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{

// A string list's lines: split at LF, a CR before it dropped, nothing else changed; no lines when the
// file is missing.
inline std::vector<std::string> stringList(const std::filesystem::path& directory, std::string_view name)
{
    std::vector<std::string> lines;
    const auto content = readWholeFile(dataFilePath(directory, name));
    if (!content) return lines;
    forEachLine(*content, [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        return true;
    });
    return lines;
}

}  // namespace rovanel

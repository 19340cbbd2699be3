// How the generator's writers put a file into the database directory.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rovanel
{

// Writes `content` to `directory`/`name`, replacing an older file. False, with the reason in `error`
// (when given), when the file cannot be written.
[[nodiscard]] bool writeGeneratedFile(const std::filesystem::path& directory, std::string_view name,
                                      std::string_view content, std::string* error);

}  // namespace rovanel

// INI files with the semantics of the Windows private-profile functions: sections and keys match
// without regard to ASCII case, values lose surrounding blanks and one pair of surrounding quotes, the
// first of duplicate keys wins, and a write keeps every other line of the file as it was. Bytes are
// Windows-1250. Writes are atomic: the new file is written beside the old one and renamed over it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rovanel
{

// The value of `key` in `section`, or `defaultValue` when the file, section or key is missing.
// The value is cut to `bufferSize` - 1 bytes, as a fixed read buffer would cut it.
[[nodiscard]] std::string readProfileString(const std::filesystem::path& file, std::string_view section,
                                            std::string_view key, std::string_view defaultValue,
                                            std::size_t bufferSize = 4096);

// Sets `key` in `section`, creating the section, key and file as needed. False when the file cannot
// be written; the old file is then left unchanged.
[[nodiscard]] bool writeProfileString(const std::filesystem::path& file, std::string_view section,
                                      std::string_view key, std::string_view value);

// The same lookups on content already in memory (for tests and fuzzing).
[[nodiscard]] std::optional<std::string> findProfileValue(std::string_view content, std::string_view section,
                                                          std::string_view key);
[[nodiscard]] std::string setProfileValue(std::string_view content, std::string_view section,
                                          std::string_view key, std::string_view value);

// Writes `content` to `file` atomically (temporary file in the same directory, flushed, renamed).
[[nodiscard]] bool writeFileAtomically(const std::filesystem::path& file, std::string_view content);

}  // namespace rovanel

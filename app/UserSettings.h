// Settings the physician changes from a window ("TTNemKellLeirasba"): kept in the user's own RV.INI
// (app/UserPaths.h), section "Rovanel Beallitasok". The database folder's RV.INI gives the value the
// user has not set yet; it is never written, since that folder is read-only in an installation and a
// database refresh replaces it (docs/decisions/user-settings.md).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rovanel
{

// The user's value of `key`; else the database folder's; else `defaultValue`.
[[nodiscard]] std::string readUserSetting(const std::filesystem::path& userIni,
                                          const std::filesystem::path& dataDirectory, std::string_view key,
                                          std::string_view defaultValue);

// Writes `value` to `key` of the user's file (atomically, the folder made when missing). False when it
// cannot be written; the file is then as it was.
[[nodiscard]] bool writeUserSetting(const std::filesystem::path& userIni, std::string_view key,
                                    std::string_view value);

// "TTNemKellLeirasba": hide packages deleted from the register; on when the value holds "IGEN".
inline constexpr std::string_view kHideDeletedKey = "TTNemKellLeirasba";
[[nodiscard]] bool readHideDeleted(const std::filesystem::path& userIni,
                                   const std::filesystem::path& dataDirectory);
[[nodiscard]] bool writeHideDeleted(const std::filesystem::path& userIni, bool on);

}  // namespace rovanel

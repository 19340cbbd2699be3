// Where the per-user files live. On Windows Rovanel keeps the user's RV.INI in the Windows directory and
// the settings in the registry; elsewhere both go to one per-user folder:
// $ROVANEL_CONFIG_DIR, else $XDG_CONFIG_HOME/rovanel, else $HOME/.config/rovanel.
#pragma once

#include <filesystem>
#include <string>

namespace rovanel
{

[[nodiscard]] std::filesystem::path userConfigDirectory();

// The user's RV.INI (on Windows "RV.INI" by bare name, which the system finds in the Windows directory).
[[nodiscard]] std::filesystem::path userIniPath();

// The settings file of the data directory: the directory joined with "RV.INI" (no doubled separator).
[[nodiscard]] std::filesystem::path settingsFilePath(const std::filesystem::path& dataDirectory);

// "KgyTxtPath" of section "Rovanel Beallitasok" of the settings file; the empty text when unset.
[[nodiscard]] std::string publicCareTextPath(const std::filesystem::path& dataDirectory);

inline constexpr const char* kSettingsSection = "Rovanel Beallitasok";

}  // namespace rovanel

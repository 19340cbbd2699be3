#include "app/UserPaths.h"

#include <cstdlib>

#include "app/IniFile.h"

namespace rovanel
{

std::filesystem::path userConfigDirectory()
{
    // The override wins everywhere: a separate profile (and the tests' own folder) on Windows too.
    if (const char* own = std::getenv("ROVANEL_CONFIG_DIR"); own && *own) return std::filesystem::path(own);
#if defined(_WIN32)
    if (const char* windows = std::getenv("WINDIR")) return std::filesystem::path(windows);
#endif
    if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg)
        return std::filesystem::path(xdg) / "rovanel";
    if (const char* home = std::getenv("HOME"); home && *home)
        return std::filesystem::path(home) / ".config" / "rovanel";
    return std::filesystem::path(".rovanel");
}

std::filesystem::path userIniPath() { return userConfigDirectory() / "RV.INI"; }

std::filesystem::path settingsFilePath(const std::filesystem::path& dataDirectory)
{
    // path::operator/ never doubles a separator that is already there.
    return dataDirectory / "RV.INI";
}

std::string publicCareTextPath(const std::filesystem::path& dataDirectory)
{
    return readProfileString(settingsFilePath(dataDirectory), kSettingsSection, "KgyTxtPath", "");
}

}  // namespace rovanel

#include "app/UserSettings.h"

#include <system_error>

#include "app/IniFile.h"
#include "app/UserPaths.h"

namespace rovanel
{

std::string readUserSetting(const std::filesystem::path& userIni, const std::filesystem::path& dataDirectory,
                            std::string_view key, std::string_view defaultValue)
{
    const std::string shipped =
        readProfileString(settingsFilePath(dataDirectory), kSettingsSection, key, defaultValue, 80);
    return readProfileString(userIni, kSettingsSection, key, shipped, 80);
}

bool writeUserSetting(const std::filesystem::path& userIni, std::string_view key, std::string_view value)
{
    std::error_code ignored;
    if (userIni.has_parent_path()) std::filesystem::create_directories(userIni.parent_path(), ignored);
    return writeProfileString(userIni, kSettingsSection, key, value);
}

bool readHideDeleted(const std::filesystem::path& userIni, const std::filesystem::path& dataDirectory)
{
    return readUserSetting(userIni, dataDirectory, kHideDeletedKey, "").find("IGEN") != std::string::npos;
}

bool writeHideDeleted(const std::filesystem::path& userIni, bool on)
{
    return writeUserSetting(userIni, kHideDeletedKey, on ? "IGEN" : "NEM");
}

}  // namespace rovanel

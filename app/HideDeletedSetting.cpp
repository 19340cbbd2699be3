#include "app/HideDeletedSetting.h"

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/SharedState.h"

namespace rovanel
{

bool readHideDeletedSetting(SharedState& state)
{
    const std::string value = readProfileString(settingsFilePath(state.tables.dataDirectory),
                                                kSettingsSection, kHideDeletedKey, "", 80);
    state.hideDeleted = value.find("IGEN") != std::string::npos;
    return state.hideDeleted;
}

bool writeHideDeletedSetting(SharedState& state, bool hide)
{
    state.hideDeleted = hide;
    return writeProfileString(settingsFilePath(state.tables.dataDirectory), kSettingsSection, kHideDeletedKey,
                              hide ? "IGEN" : "NEM");
}

}  // namespace rovanel

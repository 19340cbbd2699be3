#include "app/UserPaths.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/Environment.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

TEST(SettingsFilePath, NeverDoublesTheSeparator)
{
    EXPECT_EQ(settingsFilePath("/data/db"), std::filesystem::path("/data/db/RV.INI"));
    EXPECT_EQ(settingsFilePath("/data/db/"), std::filesystem::path("/data/db/RV.INI"));
}

TEST(PublicCareTextPath, ReadsKgyTxtPathOrGivesEmptyText)
{
    testing::ScratchDirectory directory;
    EXPECT_EQ(publicCareTextPath(directory.path()), "");
    directory.write("RV.INI", "[Rovanel Beallitasok]\r\nKgyTxtPath=c:\\rovanelw\\kgy.txt\r\n");
    EXPECT_EQ(publicCareTextPath(directory.path()), "c:\\rovanelw\\kgy.txt");
}

TEST(UserConfigDirectory, FollowsTheOverrideThenXdgThenHome)
{
    const char* saved = std::getenv("ROVANEL_CONFIG_DIR");
    const std::string keep = saved ? saved : "";
    ::setenv("ROVANEL_CONFIG_DIR", "/tmp/rovanel-own", 1);
    EXPECT_EQ(userIniPath(), std::filesystem::path("/tmp/rovanel-own/RV.INI"));
    ::unsetenv("ROVANEL_CONFIG_DIR");
#if defined(_WIN32)
    EXPECT_EQ(userConfigDirectory(), std::filesystem::path(std::getenv("WINDIR")));
#else
    ::setenv("XDG_CONFIG_HOME", "/tmp/xdg", 1);
    EXPECT_EQ(userConfigDirectory(), std::filesystem::path("/tmp/xdg/rovanel"));
#endif
    if (saved) ::setenv("ROVANEL_CONFIG_DIR", keep.c_str(), 1);
}

}  // namespace
}  // namespace rovanel

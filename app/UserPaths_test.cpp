#include "app/UserPaths.h"

#include <gtest/gtest.h>

#include "tests/support/ScopedEnvironment.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

TEST(PublicCareTextPath, ReadsKgyTxtPathOrGivesEmptyTextFromAnRvIniNamedWithoutADoubledSeparator)
{
    EXPECT_EQ(settingsFilePath("/data/db"), std::filesystem::path("/data/db/RV.INI"));
    EXPECT_EQ(settingsFilePath("/data/db/"), std::filesystem::path("/data/db/RV.INI"));
    testing::ScratchDirectory directory;
    EXPECT_EQ(publicCareTextPath(directory.path()), "");
    directory.write("RV.INI", "[Rovanel Beallitasok]\r\nKgyTxtPath=c:\\rovanelw\\kgy.txt\r\n");
    EXPECT_EQ(publicCareTextPath(directory.path()), "c:\\rovanelw\\kgy.txt");
}

TEST(UserConfigDirectory, FollowsTheOverrideThenXdgThenHome)
{
    testing::ScopedEnvironment environment;
    environment.set("ROVANEL_CONFIG_DIR", "/tmp/rovanel-own");
    EXPECT_EQ(userIniPath(), std::filesystem::path("/tmp/rovanel-own/RV.INI"));
    environment.set("ROVANEL_CONFIG_DIR", std::nullopt);
#if defined(_WIN32)
    EXPECT_EQ(userConfigDirectory(), std::filesystem::path(std::getenv("WINDIR")));
#else
    environment.set("XDG_CONFIG_HOME", "/tmp/xdg");
    EXPECT_EQ(userConfigDirectory(), std::filesystem::path("/tmp/xdg/rovanel"));
#endif
}

}  // namespace
}  // namespace rovanel

#include "app/DataRoot.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

// The installed copies are offered for copying into the user's data folder, only those that exist, and
// "GY.FUL" counts as gy.ful.
TEST(DataRoot, MissingDatabaseOffersTheInstalledCopies)
{
    testing::ScratchDirectory share;
    std::filesystem::create_directories(share.path() / "demo-db");
    share.write("demo-db/GY.FUL", "");
    DataRootSearch search{{}, {}, "/nowhere/work", "/home/orvos/.local/share/rovanel", share.path()};
    const DataRootChoice choice = findDataRoot(search);
    ASSERT_FALSE(choice.directory);
    const std::string demo = (share.path() / "demo-db").string();
    EXPECT_EQ(cp1250ToUtf8(choice.missing->text),
              "Rovanel nem talált adatbázist (gy.ful). Itt kereste:\n    /nowhere/work\n"
              "    /home/orvos/.local/share/rovanel\n\nAdatbázist így kaphat:\n"
              "  - a telepített bemutató adatbázis: másolja a(z) \"" +
                  demo +
                  "\" mappa tartalmát ide: "
                  "\"/home/orvos/.local/share/rovanel\"\n"
                  "  - bemutató adatbázis készítése: rvcli gen \"/home/orvos/.local/share/rovanel\"\n"
                  "  - valódi adatok a NEAK tábláiból: rvcli import-neak FORRÁSMAPPA "
                  "\"/home/orvos/.local/share/rovanel\"\n"
                  "  - meglévő adatbázis: rvw32 --data MAPPA, vagy a ROVANEL_DATA_DIR környezeti változó");
    EXPECT_EQ(choice.missing->caption, "Rovanel");
    search.workingDirectory = share.path() / "demo-db";
    EXPECT_EQ(findDataRoot(search).directory, search.workingDirectory);
}

}  // namespace
}  // namespace rovanel

#include "gen/PrescriptionFiles.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "db/StartupTables.h"
#include "gen/DatabaseGenerator.h"
#include "rx/PackageData.h"
#include "rx/Qualification.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

// The files agree with the products (their own format, the tree and the planted rules are the database
// check's): every product's tamttt.dat entry is line-initial, first, and carries the keys of its support
// line, and every key a product uses has rules.
TEST(PrescriptionFiles, GeneratedFilesAgreeWithTheProducts)
{
    testing::ScratchDirectory database;
    ASSERT_TRUE(generateDatabase(database.path(), GeneratorOptions{400, 3}));
    std::istringstream bnohr(database.read("bnohr.dat"));
    std::set<std::string> ruleKeys;
    std::size_t lines = 0;
    for (std::string line; std::getline(bnohr, line); ++lines)
        ruleKeys.insert(line.substr(0, line.find(' ')));
    EXPECT_EQ(lines, 12000u);
    const std::string tamttt = database.read("tamttt.dat");
    const StartupTables tables = loadStartupTables(database.path(), database.path() / "no-user.ini");
    int withKeys = 0;
    for (std::int32_t record = 0; record < tables.counts.products(); ++record) {
        const auto package = packageData(tables, database.path(), record);
        ASSERT_TRUE(package);
        const TamtttEntry entry = lookupTamttt(tamttt, package->ttt);
        ASSERT_TRUE(entry.found) << package->ttt;
        EXPECT_EQ(tamttt.find(package->ttt), tamttt.find("\n" + package->ttt) + 1)
            << "line-initial and first";
        EXPECT_EQ(entry.keys, package->keys);
        for (const std::string& keys : {package->keys.freeKey, package->keys.feeKey}) {
            if (keys.empty()) continue;
            ++withKeys;
            for (std::size_t start = 0; start <= keys.size();) {
                const std::size_t end = std::min(keys.find(',', start), keys.size());
                EXPECT_TRUE(ruleKeys.count(keys.substr(start, end - start))) << keys;
                start = end + 1;
            }
        }
    }
    EXPECT_GT(withKeys, 0);
}

}  // namespace
}  // namespace rovanel

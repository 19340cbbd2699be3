#include "gen/PrescriptionFiles.h"

#include <gtest/gtest.h>

#include <set>

#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/StartupTables.h"
#include "db/Text.h"
#include "gen/DatabaseGenerator.h"
#include "rx/BnoTree.h"
#include "rx/PackageData.h"
#include "rx/Qualification.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

// The files agree with each other and with the products: every rule's code is a 5-character node of the
// tree (or the wildcard), every key a product uses has rules, and every product's tamttt.dat entry carries
// the keys of its support line.
TEST(PrescriptionFiles, GeneratedFilesAgreeWithTheProducts)
{
    testing::ScratchDirectory database;
    ASSERT_TRUE(generateDatabase(database.path(), GeneratorOptions{400, 3}));

    const auto tree = loadBnoTree(database.path());
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->size(), bnoTreeNodeCount());
    EXPECT_GT(tree->size(), 23000u);
    std::set<std::string> codes;
    for (std::size_t i = 0; i < tree->size(); ++i) {
        const TreeNode& node = (*tree)[i];
        ASSERT_TRUE(i == 0 ? node.depth == 0 : node.depth <= (*tree)[i - 1].depth + 1) << node.text;
        if (node.depth > 0) codes.insert(node.text.substr(0, node.text.find(' ')));
    }

    std::set<std::string> ruleKeys;
    std::size_t lines = 0;
    forEachLine(database.read("bnohr.dat"), [&](std::string_view line) {
        ++lines;
        const std::string_view rule = trim(line);
        const std::size_t blank = rule.find(' ');
        EXPECT_NE(blank, std::string_view::npos);
        const std::string code(rule.substr(blank + 1));
        EXPECT_TRUE(code == "XXXXX" || (code.size() == 5 && codes.count(code))) << rule;
        ruleKeys.insert(std::string(rule.substr(0, blank)));
        return true;
    });
    EXPECT_EQ(lines, 12000u);
    for (const char* planted : {kPlantedFreeKey, kPlantedFeeKey, kPlantedWildcardKey, kPlantedFeeWildcardKey})
        EXPECT_TRUE(ruleKeys.count(planted)) << planted;
    EXPECT_FALSE(ruleKeys.count(kPlantedRulelessKey));

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
        EXPECT_EQ(entry.flags.size(), 10u);
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
    EXPECT_FALSE(lookupTamttt(tamttt, kPlantedAbsentDrug).found);
    EXPECT_EQ(lookupTamttt(tamttt, kPlantedListDrug).keys.feeKey, "EU901,_EU902/a");
    EXPECT_NE(database.read("szvhr.dat").find("_EU902/a,00401;"), std::string::npos);
    EXPECT_FALSE(database.read("DsListT.txt").empty());
}

}  // namespace
}  // namespace rovanel

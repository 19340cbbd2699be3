// The generated medical aids catalogue and FoNo formulary read back through the windows' own readers.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "catalogues/Formulary.h"
#include "catalogues/MedicalAids.h"
#include "db/MessageTable.h"
#include "gen/DatabaseGenerator.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

TEST(CatalogueWriters, EveryAidGroupListsItsAidsAndEveryFormularyItemIsFoundByItsNameLine)
{
    testing::ScratchDirectory directory;
    ASSERT_TRUE(generateDatabase(directory.path(), {600, 3}));
    const AidCatalogue aidCatalogue = loadAidCatalogue(directory.path());
    const MessageTable messages = MessageTable::parse(directory.read("MSG.DAT"));
    ASSERT_GT(aidCatalogue.tree.size(), 50u);
    EXPECT_EQ(aidCatalogue.names.size(), 200u) << "a third of the products";
    std::set<std::string> listed;
    for (int node = 0; node < static_cast<int>(aidCatalogue.tree.size()); ++node) {
        const auto aids = listAidGroup(aidCatalogue, node);
        ASSERT_FALSE(aids.empty()) << "node " << node;
        for (const AidEntry& aid : aids) {
            listed.insert(aid.code);
            ASSERT_TRUE(aidDescription(aidCatalogue, messages, node, aid.code)) << aid.code;
        }
    }
    EXPECT_EQ(listed.size(), aidCatalogue.names.size());
    EXPECT_TRUE(std::ranges::is_sorted(aidCatalogue.notes, {}, &AidNote::code)) << "semegj.dat by code";
    const auto hits = findAidNames(aidCatalogue, aidCatalogue.names.front().substr(0, 5));
    ASSERT_FALSE(hits.empty());
    EXPECT_GE(hits.front().node, 0);

    const FonoCatalogue catalogue = loadFonoCatalogue(directory.path());
    ASSERT_GE(catalogue.names.size(), 200u);
    ASSERT_EQ(catalogue.offsets.size(), catalogue.names.size());
    for (int k = 0; k < static_cast<int>(catalogue.names.size()); ++k) {
        const auto item = readFonoItem(catalogue, k);
        ASSERT_TRUE(item);
        EXPECT_EQ(item->name, catalogue.names[static_cast<std::size_t>(k)]);
        EXPECT_EQ(fonoItemNamed(catalogue, item->name), k);
        ASSERT_EQ(item->lines.size(), 17u) << item->name;
        EXPECT_EQ(item->lines[0].style, FonoStyle::Title);
        EXPECT_EQ(item->lines[1], (FonoLine{FonoStyle::Rp, "Rp.\n"}));
    }
    std::multiset<std::string> leaves;  // the tree's items: the names, by chapter
    for (const TreeNode& node : catalogue.tree)
        if (node.depth == 1) leaves.insert(node.text);
    EXPECT_EQ(leaves, std::multiset<std::string>(catalogue.names.begin(), catalogue.names.end()));
    const std::string fono = directory.read("fono.dat");
    EXPECT_EQ(static_cast<std::size_t>(std::count(fono.begin(), fono.end(), '#')), 2 * catalogue.names.size())
        << "no marker inside a text";
}

}  // namespace
}  // namespace rovanel

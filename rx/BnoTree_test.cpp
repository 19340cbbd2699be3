#include "rx/BnoTree.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

std::vector<TreeNode> tree()
{
    return parseTreeText(
        utf8ToCp1250("IX. fejezet: A keringési rendszer betegségei (I00-I99)\n"
                     "\tI10 Magasvérnyomás-betegség (elsődleges)\n"
                     "\t\tI10H0 Magasvérnyomás-betegség (elsődleges)\n"
                     "\tI11 Hypertoniás szívbetegség\n"
                     "\t\tI110 Hypertoniás szívbetegség pangásos szívelégtelenséggel\n"
                     "\t\t\tI1100 Hypertoniás szívbetegség pangásos szívelégtelenséggel\n"
                     "XI. fejezet: Az emésztőrendszer betegségei (K00-K93)\n"
                     "\tK2900 Heveny vérzéses gastritis\n"));
}

TEST(BnoTree, ACodeIsFoundOnlyAsAWholeCodeAtTheStartOfANode)
{
    const auto nodes = tree();
    const std::pair<const char*, std::optional<std::size_t>> cases[] = {
        {"I10H0", 2},
        {"I1100", 5},
        {"K2900", 7},
        {"I110", 4},
        {"I10", 1},
        {"I1090", std::nullopt},  // no such node
        {"I11 H", std::nullopt},  // a code and the first letter of a name
        {"IX. f", std::nullopt},  // a chapter title holds no code
        {"", std::nullopt},
    };
    for (const auto& [code, expected] : cases) EXPECT_EQ(findBnoCode(nodes, code), expected) << code;
}

TEST(BnoTree, SearchInTreeAndListMode)
{
    const auto nodes = tree();
    BnoSearchPosition position;
    // Exact case: "szív" is in three nodes, "SZÍV" in none.
    EXPECT_EQ(bnoSearchAll(nodes, utf8ToCp1250("szív"), false), (std::vector<std::size_t>{3, 4, 5}));
    EXPECT_TRUE(bnoSearchAll(nodes, utf8ToCp1250("SZÍV"), false).empty());
    // Ignoring case folds accented letters too.
    EXPECT_EQ(bnoSearchAll(nodes, utf8ToCp1250("SZÍVBETEGSÉG"), true), (std::vector<std::size_t>{3, 4, 5}));
    EXPECT_EQ(bnoSearchAll(nodes, utf8ToCp1250("ÉLETTAN"), true), std::vector<std::size_t>{});

    EXPECT_EQ(bnoSearchFirst(nodes, "Hypertoni", false, position), 3u);
    EXPECT_EQ(position.counter, 3u);
    EXPECT_EQ(bnoSearchNext(nodes, "Hypertoni", false, position), 4u);
    EXPECT_EQ(bnoSearchNext(nodes, "Hypertoni", false, position), 5u);
    // After the last hit "next" ends silently, however often it is pressed.
    EXPECT_EQ(bnoSearchNext(nodes, "Hypertoni", false, position), std::nullopt);
    EXPECT_EQ(bnoSearchNext(nodes, "Hypertoni", false, position), std::nullopt);
    // A new search starts from the first node again; no hit leaves nothing selected.
    EXPECT_EQ(bnoSearchFirst(nodes, "I10", false, position), 1u);
    EXPECT_EQ(bnoSearchFirst(nodes, "nincs ilyen", false, position), std::nullopt);
    EXPECT_EQ(bnoSearchNext({}, "x", false, position), std::nullopt);
}

}  // namespace
}  // namespace rovanel

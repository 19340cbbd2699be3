#include "pricelist/AtcTreeSearch.h"

#include <gtest/gtest.h>

#include "db/TextList.h"

namespace rovanel
{
namespace
{

TEST(AtcTreeSearch, TextSearchIsCaseBlindAndBoundedByTheCodeCount)
{
    const std::vector<TreeNode> tree = {{0, "Kardiovaszkul\xE1ris rendszer (C)"},
                                        {1, "Kalciumcsatorna-blokkol\xF3k (C08)"},
                                        {2, "amlodipin (C08CA01)"},
                                        {2, "Kalcium extra (C08CA02)"}};
    struct Case {
        const char* what;
        std::size_t limit, from;
        const char* text;
        int expected;
    };
    const Case cases[] = {
        {"lower case finds upper", 4, 0, "kalcium", 1},
        {"accented letters fold to upper case", 4, 0, "KARDIOVASZKUL\xC1RIS", 0},
        {"next from after the hit", 4, 2, "kalcium", 3},
        {"no more", 4, 4, "kalcium", -1},
        {"nodes past the code count are not searched", 3, 2, "extra", -1},
        {"not found", 4, 0, "xyz", -1},
        {"start past the end", 4, 9, "a", -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(findAtcText(tree, c.limit, c.from, c.text), c.expected);
    }
}

TEST(AtcTreeSearch, CodesAreFoundAsPhysiciansTypeThem)
{
    TextList codes;
    for (const char* code : {"C", "C08", "C08CA-", "C08CA-01"}) codes.push_back(code);
    EXPECT_EQ(findAtcCode(codes, "c08ca01"), 3);
    EXPECT_EQ(findAtcCode(codes, "C08CA-01"), 3);
    EXPECT_EQ(findAtcCode(codes, "C08CA"), 2);
    EXPECT_EQ(findAtcCode(codes, "c"), 0);
    EXPECT_EQ(findAtcCode(codes, "C08CA02"), -1);
    EXPECT_EQ(findAtcCode(codes, ""), -1);
}

}  // namespace
}  // namespace rovanel

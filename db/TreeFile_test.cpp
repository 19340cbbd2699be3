#include "db/TreeFile.h"

#include <gtest/gtest.h>

namespace rovanel
{
namespace
{

TEST(ParseTreeText, EveryLineIsANodeAndBadIndentationHasADefinedDepth)
{
    struct Case {
        const char* what;
        std::string_view text;
        std::vector<TreeNode> nodes;
    };
    const Case cases[] = {
        {"nested with CR LF",
         "A\r\n\tB\r\n\t\tC\r\n\tD\r\nE\r\n",
         {{0, "A"}, {1, "B"}, {2, "C"}, {1, "D"}, {0, "E"}}},
        {"no line end at the end", "A\n\tB", {{0, "A"}, {1, "B"}}},
        {"indented first line", "\t\tA\r\n\tB\r\n", {{0, "A"}, {1, "B"}}},
        {"jump of two levels", "A\r\n\t\t\tB\r\n\t\t\t\tC\r\n", {{0, "A"}, {1, "B"}, {2, "C"}}},
        {"blank line keeps the numbering", "A\r\n\r\n\tB\r\n", {{0, "A"}, {0, ""}, {1, "B"}}},
        {"leading blanks are text, trailing ones go", "A\r\n\t  B \t\r\n", {{0, "A"}, {1, "  B"}}},
        {"empty", "", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(parseTreeText(c.text), c.nodes);
    }
}

TEST(LoadTreeFile, MissingFileGivesNothing) { EXPECT_FALSE(loadTreeFile("/nonexistent/rovanel/rend2.ful")); }

}  // namespace
}  // namespace rovanel

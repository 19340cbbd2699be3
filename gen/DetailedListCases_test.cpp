#include "gen/DetailedListCases.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "db/StartupTables.h"
#include "gen/DatabaseGenerator.h"
#include "pricelist/DetailedList.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

TEST(DetailedListCases, EveryRowPathIsPlanted)
{
    testing::ScratchDirectory directory;
    const auto planted = generateDatabase(directory.path(), {2000, 1});
    ASSERT_TRUE(planted);
    const DetailedListCases& cases = planted->detailed;
    const StartupTables tables = loadStartupTables(directory.path(), directory.path() / "none.ini");

    DetailedList list(tables);
    (void)list.bFillSameAtc(cases.groupCode, ListingMode::Plain);
    struct Case {
        const char* what;
        std::int32_t record;
        std::vector<std::pair<int, std::string>> cells;
    };
    const Case expected[] = {
        {"minus first", cases.minusCategories, {{5, ""}, {10, ""}, {15, ""}, {6, "9001"}, {25, ""}}},
        {"333", cases.allThreeGroups, {{5, "3"}, {10, "3"}, {15, "3"}, {25, "NORM,EUTK,EUTM"}}},
        {"333 amounts", cases.allThreeGroups, {{7, "500"}, {12, "600"}}},
        {"333 elsewhere", cases.allThreeElsewhere, {{25, "NORM,EUTK,EUTM"}}},
        {"356", cases.fiveAndSix, {{5, "3"}, {10, ""}, {15, ""}, {25, "NORM"}}},
        {"565", cases.fivesAndSixes, {{5, ""}, {10, ""}, {15, ""}, {25, ""}}},
        {"653 with 0415", cases.leadingZeroId, {{5, ""}, {15, "3"}, {16, "0415"}, {25, "EUTM"}}},
        {"355 with id 0", cases.groupIdZero, {{5, "3"}, {6, ""}, {25, "NORM"}}},
        {"increased above the price",
         cases.increasedAbovePrice,
         {{7, "900"}, {8, "-400"}, {9, "-40.0"}, {10, "2"}}},
        {"free package", cases.freePackage, {{1, "0"}, {3, "0"}, {4, ""}}},
        {"daily doses 1,5", cases.decimalDoses, {{4, "5794.7"}}},
    };
    for (const Case& c : expected) {
        SCOPED_TRACE(c.what);
        const auto row = std::find_if(list.rows().begin(), list.rows().end(),
                                      [&c](const DetailedRow& r) { return r.record == c.record; });
        ASSERT_NE(row, list.rows().end());
        for (const auto& [column, text] : c.cells) EXPECT_EQ(row->cells[column], text) << column;
    }

    // The all-TT substance: listed when shown, "Nincs ilyen" when hidden.
    ASSERT_EQ(cases.allTtGroup.size(), 8u);
    DetailedList hidden(tables);
    hidden.setHideDeleted(true);
    EXPECT_EQ(hidden.bFillSameAtc(cases.allTtGroup, ListingMode::Plain).messages.size(), 1u);
    EXPECT_TRUE(hidden.rows().empty());
}

}  // namespace
}  // namespace rovanel

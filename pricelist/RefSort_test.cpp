#include "pricelist/RefSort.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

// Rows with the given cells in one column (and an id in the next, for category columns); the full price
// holds `prices` when given. The record numbers tell the order.
std::vector<DetailedRow> rowsOf(int column, const std::vector<std::string>& cells,
                                const std::vector<std::string>& ids = {},
                                const std::vector<std::string>& prices = {})
{
    std::vector<DetailedRow> rows(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        rows[i].record = static_cast<std::int32_t>(i);
        rows[i].cells[static_cast<std::size_t>(column)] = cells[i];
        if (i < ids.size()) rows[i].cells[static_cast<std::size_t>(column) + 1] = ids[i];
        if (i < prices.size()) rows[i].cells[column::kFullPrice] = prices[i];
    }
    return rows;
}

std::vector<std::int32_t> order(const std::vector<DetailedRow>& rows)
{
    std::vector<std::int32_t> records;
    for (const DetailedRow& row : rows) records.push_back(row.record);
    return records;
}

TEST(RefSort, EachComparisonClassOrdersAsTheListShowsIt)
{
    // What the column holds, the column, its cells, group ids and full prices, and the records in sorted
    // order.
    using Case = std::tuple<const char*, int, std::vector<std::string>, std::vector<std::string>,
                            std::vector<std::string>, std::vector<std::int32_t>>;
    const Case cases[] = {
        {"caption: bytes, case-sensitive", 0, {"b", "B", "a", "\xC1"}, {}, {}, {1, 2, 0, 3}},
        {"text: empty reads yyyy, after lower-case values",
         17,
         {"", "V", "zz", "KP", "yyyy"},
         {},
         {},
         {3, 1, 0, 4, 2}},
        {"text: equal cells keep their order", 18, {"I", "", "I", ""}, {}, {}, {0, 2, 1, 3}},
        {"decimal: empty after every number", 4, {"10.5", "", "2.0", "0", "-1.5"}, {}, {}, {4, 3, 2, 0, 1}},
        {"decimal: 2147483648 equals empty", 9, {"", "2147483648", "1"}, {}, {}, {2, 0, 1}},
        {"integer: empty last, negative first", 1, {"12", "", "3", "-1", "0"}, {}, {}, {3, 4, 2, 0, 1}},
        {"integer: numbers compare as numbers, not text", 20, {"1000", "999", "99"}, {}, {}, {2, 1, 0}},
        {"integer: largest 32-bit equals empty", 34, {"", "2147483647", "5"}, {}, {}, {2, 0, 1}},
        {"category: rows without a group last",
         5,
         {"3", "", "3", "1", "3"},
         {"20", "20", "10", "", "0"},
         {},
         {2, 0, 1, 3, 4}},
        {"category: a group id below 1 is no group", 10, {"3", "3"}, {"-4", "7"}, {}, {1, 0}},
        {"category: inside a group the tie-break puts 999 before 1000",
         15,
         {"3", "3", "3"},
         {"5", "5", "5"},
         {"1000", "999", "1500"},
         {1, 2, 0}},
    };
    for (const auto& [what, column, cells, ids, prices, expected] : cases) {
        SCOPED_TRACE(what);
        auto rows = rowsOf(column, cells, ids, prices);
        EXPECT_FALSE(sortRows(rows, column));
        EXPECT_EQ(order(rows), expected);
    }
}

TEST(RefSort, ANonIntegerCellStopsTheSortWithTheConversionError)
{
    // What the column holds, its cells, and the cell that stops the sort.
    const std::tuple<const char*, std::vector<std::string>, std::string> cases[] = {
        {"a dash", {"3", "-", "1"}, "-"},
        {"a decimal", {"3", "1.5", "1"}, "1.5"},
        {"trailing text", {"12a", "3"}, "12a"},
    };
    for (const auto& [what, cells, bad] : cases) {
        SCOPED_TRACE(what);
        auto rows = rowsOf(22, cells);
        const auto before = order(rows);
        const auto error = sortRows(rows, 22);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->text, "'" + bad + "'" + utf8ToCp1250(" nem érvényes egész szám"));
        EXPECT_EQ(order(rows), before);
    }
    // One row is never compared, so it raises nothing.
    auto single = rowsOf(22, {"-"});
    EXPECT_FALSE(sortRows(single, 22));
}

TEST(RefSort, SortingTwiceGivesTheSameOrderAndEveryRowOnce)
{
    // 600 rows of pseudo-random cells in every column, sorted by each column twice.
    std::uint64_t state = 7;
    const auto next = [&state] {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>(state >> 33);
    };
    std::vector<DetailedRow> rows(600);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].record = static_cast<std::int32_t>(i);
        for (auto& cell : rows[i].cells) {
            const int kind = next() % 4;
            cell = kind == 0 ? "" : kind == 1 ? "3" : std::to_string(next() % 50);
        }
    }
    for (int column = 0; column < kDetailedColumnCount; ++column) {
        SCOPED_TRACE(column);
        auto once = rows;
        ASSERT_FALSE(sortRows(once, column));
        auto twice = once;
        ASSERT_FALSE(sortRows(twice, column));
        EXPECT_EQ(order(once), order(twice));
        auto records = order(once);
        std::sort(records.begin(), records.end());
        for (std::size_t i = 0; i < records.size(); ++i) ASSERT_EQ(records[i], static_cast<std::int32_t>(i));
    }
}

}  // namespace
}  // namespace rovanel

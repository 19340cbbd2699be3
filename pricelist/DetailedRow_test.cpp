#include "pricelist/DetailedRow.h"

#include <gtest/gtest.h>

#include <sstream>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

// A support line from its 22 fields, delimited as the format says.
std::string supportLine(const std::array<std::string, 22>& fields)
{
    static constexpr char kDelimiters[21] = {';', ';', ';', ';', ';', ';', ';', ';', '^',    '@', '#',
                                             '$', '*', '[', ']', '{', '}', '(', ')', '\xB3', '@'};
    std::string line = fields[0];
    for (std::size_t i = 1; i < 22; ++i) line += kDelimiters[i - 1] + fields[i];
    return line;
}

struct Product {
    std::string price = "1000", normative = "800", doses = "10", categories = "155";
    std::string ids[3] = {"0", "0", "0"};
    std::string supports = "-", dispensing = "2", publicCare = "0", deleted = "0", fresh = "1";
    std::string rating = "0";

    [[nodiscard]] std::vector<std::string> lines() const
    {
        const std::array<std::string, 22> fields = {
            doses,   ids[0], ids[1],      ids[2],     categories, supports, dispensing, publicCare,
            deleted, fresh,  "210751477", "_EU1/a",   "EU5",      "-",      "3",        "123456",
            "7",     "8",    "9",         "napi 1x1", rating,     "C08CA01"};
        return {"C08CA-0103", "C08CA-01", "#ar", price, normative, "#ha", supportLine(fields), "#ter"};
    }
};

// The cells of `columns` in UTF-8 joined by '|' of the product's row, and the fixed groups seen into `seen`.
std::string cellsOf(const Product& product, const std::vector<int>& columns, FixedGroupState* seen = nullptr)
{
    FixedGroupState own;
    FixedGroupState& groups = seen ? *seen : own;
    const auto row = GetDailyPrice(product.lines(), 42, "AMLODIPIN 5 MG", ListingMode::Plain, false, groups);
    EXPECT_TRUE(row.has_value());
    std::string cells;
    for (const int column : columns)
        cells += (column == columns.front() ? "" : "|") + cp1250ToUtf8(row ? row->cells[column] : "?");
    return cells;
}

TEST(GetDailyPrice, PricesAndDailyCostsFollowTheirFormats)
{
    // The cells: full price, normative support, payable, daily cost; the same three for the increased support
    // and for the highlighted support.
    using Case = std::tuple<const char*, Product, const char*>;
    const Case cases[] = {
        {"plain normative support", {}, "1000|800|200|20.0||||||"},
        {"full price 0: payable 0, no daily cost", {.price = "0", .normative = "0"}, "0||0|||||||"},
        {"normative support 0 shows empty", {.normative = "0", .doses = "3"}, "1000||1000|333.3||||||"},
        {"dose count with a decimal comma", {.normative = "400", .doses = "1,5"}, "1000|400|600|400.0||||||"},
        {"no doses: no daily cost", {.normative = "400", .doses = "0"}, "1000|400|600|||||||"},
        {"support above the price: no daily cost", {.normative = "1200"}, "1000|1200|-200|||||||"},
        {"payable keeps only its integer part",
         {.price = "999.9", .normative = "0.5", .doses = "2"},
         "999.9|0.5|999|499.5||||||"},
        {"increased support above the full price goes negative",
         {.supports = "_EU1/a 1500"},
         "1000|800|200|20.0|1500|-500|-50.0|||"},
        {"highlighted support", {.doses = "4", .supports = "EU5 700"}, "1000|800|200|50.0||||700|300|75.0"},
        {"a later entry of a kind wins",
         {.supports = "_A 100,&B 200,C 300,D 400"},
         "1000|800|200|20.0|200|800|80.0|400|600|60.0"},
        {"increased support without doses: no daily cost",
         {.doses = "0", .supports = "*E 100"},
         "1000|800|200||100|900||||"},
        {"support amount 0 leaves the cells empty", {.supports = "_A 0"}, "1000|800|200|20.0||||||"},
    };
    for (const auto& [what, product, cells] : cases)
        EXPECT_EQ(cellsOf(product, {1, 2, 3, 4, 7, 8, 9, 12, 13, 14}), cells) << what;
}

TEST(GetDailyPrice, CategoriesGroupsAndTfxWords)
{
    // The cells: categories (R, RTK, RTM), their fixed-group ids, the TFX words; and the groups seen.
    using Case = std::tuple<Product, const char*, std::array<bool, 3>>;
    const Case cases[] = {
        {{.categories = "155"}, "1||||||", {false, false, false}},
        {{.categories = "-33", .ids = {"12", "22", "32"}}, "|||12|22|32|", {false, false, false}},
        {{.categories = "-23"}, "||||||", {false, false, false}},
        {{.categories = "333", .ids = {"12", "22", "32"}},
         "3|3|3|12|22|32|NORM,EUTK,EUTM",
         {true, true, true}},
        {{.categories = "356", .ids = {"12", "0", "0"}}, "3|||12|||NORM", {true, false, false}},
        {{.categories = "563", .ids = {"0", "0", "0415"}}, "||3|||0415|EUTM", {false, false, true}},
        {{.categories = "636", .ids = {"0", "22", "0"}}, "|3|||22||EUTK", {false, true, false}},
        {{.categories = "1--"}, "1|-|-||||", {false, false, false}},
        {{.categories = "2"}, "2||||||", {false, false, false}},
        {{.categories = "424"}, "4|2|4||||", {false, false, false}},
    };
    for (const auto& [product, cells, seen] : cases) {
        SCOPED_TRACE(product.categories);
        FixedGroupState groups;
        EXPECT_EQ(cellsOf(product, {5, 10, 15, 6, 11, 16, 25}, &groups), cells);
        EXPECT_EQ(groups.seen, seen);
    }
}

TEST(GetDailyPrice, WordsAndMarks)
{
    // The product, and its dispensing word, public care, TT, new and DOT rating cells.
    const std::pair<Product, const char*> cases[] = {
        {{.dispensing = "1", .publicCare = "1", .deleted = "1", .fresh = "0", .rating = "-1"},
         "VN|I|TT|*|C.É. ALATT"},
        {{.dispensing = "2", .rating = "0"}, "V||||NEM ÉRT."},
        {{.dispensing = "3", .publicCare = "2", .deleted = "2", .fresh = "2", .rating = "1"},
         "KP||||C.É. FÖLÖTT"},
        {{.dispensing = "4", .rating = "2"}, "Abusus||||2"},
        {{.dispensing = "5", .rating = "-"}, "Uj||||-"},
        {{.dispensing = "8"}, "I||||NEM ÉRT."},
        {{.dispensing = "9"}, "||||NEM ÉRT."},   // 9 is no word
        {{.dispensing = "12"}, "||||NEM ÉRT."},  // nor are two digits
    };
    for (const auto& [product, cells] : cases)
        EXPECT_EQ(cellsOf(product, {17, 18, 19, 26, 34}), cells) << product.dispensing;
}

TEST(GetDailyPrice, ListingModeAndHideTtSkipProducts)
{
    struct Case {
        const char* what;
        ListingMode mode;
        bool seen;
        std::string stored, id, deleted;
        bool hide, listed;
    };
    const Case cases[] = {
        {"plain listing ignores the group", ListingMode::Plain, true, "12", "13", "0", false, true},
        {"normative listing keeps its group", ListingMode::Normative, true, "12", "12", "0", false, true},
        {"normative listing skips another group", ListingMode::Normative, true, "12", "13", "0", false,
         false},
        {"not seen: nothing is skipped", ListingMode::Normative, false, "12", "13", "0", false, true},
        {"empty stored id keeps the products with id 0", ListingMode::Normative, true, "", "0", "0", false,
         true},
        {"empty stored id skips a real group", ListingMode::Normative, true, "", "12", "0", false, false},
        {"hide-TT skips a TT package", ListingMode::Plain, false, "", "0", "1", true, false},
        {"TT shown when not hidden", ListingMode::Plain, false, "", "0", "1", false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Product product;
        product.ids[0] = c.id;
        product.deleted = c.deleted;
        FixedGroupState groups;
        groups.seen[0] = c.seen;
        groups.storedIds[0] = c.stored;
        const auto row = GetDailyPrice(product.lines(), 1, "X", c.mode, c.hide, groups);
        EXPECT_EQ(row.has_value(), c.listed);
    }
}

}  // namespace
}  // namespace rovanel

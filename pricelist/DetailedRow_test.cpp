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

DetailedRow rowOf(const Product& product, FixedGroupState& groups, ListingMode mode = ListingMode::Plain)
{
    auto row = GetDailyPrice(product.lines(), 42, "AMLODIPIN 5 MG", mode, false, groups);
    EXPECT_TRUE(row.has_value());
    return row.value_or(DetailedRow{});
}

TEST(GetDailyPrice, PricesAndDailyCostsFollowTheirFormats)
{
    struct Case {
        const char* what;
        std::string product;  // full price|normative support|doses|supports
        std::vector<std::pair<int, std::string>> cells;
    };
    const Case cases[] = {
        {"plain normative support", "1000|800|10|-", {{1, "1000"}, {2, "800"}, {3, "200"}, {4, "20.0"}}},
        {"full price 0: payable 0, no daily cost", "0|0|10|-", {{2, ""}, {3, "0"}, {4, ""}}},
        {"normative support 0 shows empty", "1000|0|3|-", {{2, ""}, {3, "1000"}, {4, "333.3"}}},
        {"dose count with a decimal comma", "1000|400|1,5|-", {{3, "600"}, {4, "400.0"}}},
        {"no doses: no daily cost", "1000|400|0|-", {{3, "600"}, {4, ""}}},
        {"support above the price: no daily cost", "1000|1200|10|-", {{3, "-200"}, {4, ""}}},
        {"payable keeps only its integer part", "999.9|0.5|2|-", {{3, "999"}, {4, "499.5"}}},
        {"increased support above the full price goes negative",
         "1000|800|10|_EU1/a 1500",
         {{7, "1500"}, {8, "-500"}, {9, "-50.0"}, {12, ""}}},
        {"highlighted support", "1000|800|4|EU5 700", {{7, ""}, {12, "700"}, {13, "300"}, {14, "75.0"}}},
        {"a later entry of a kind wins",
         "1000|800|10|_A 100,&B 200,C 300,D 400",
         {{7, "200"}, {8, "800"}, {12, "400"}, {13, "600"}}},
        {"increased support without doses: no daily cost",
         "1000|800|0|*E 100",
         {{7, "100"}, {8, "900"}, {9, ""}}},
        {"support amount 0 leaves the cells empty", "1000|800|10|_A 0", {{7, ""}, {8, ""}, {9, ""}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Product product;
        std::istringstream fields(c.product);
        for (std::string* field : {&product.price, &product.normative, &product.doses, &product.supports})
            std::getline(fields, *field, '|');
        FixedGroupState groups;
        const DetailedRow row = rowOf(product, groups);
        for (const auto& [column, text] : c.cells) EXPECT_EQ(row.cells[column], text) << "column " << column;
    }
}

TEST(GetDailyPrice, CategoriesGroupsAndTfxWords)
{
    struct Case {
        std::string categories, ids[3];
        std::string r, rtk, rtm, normfix, euemfix, eukiemfix, tfx;
        std::array<bool, 3> seen;
    };
    const Case cases[] = {
        {"155", {"0", "0", "0"}, "1", "", "", "", "", "", "", {false, false, false}},
        {"-33", {"12", "22", "32"}, "", "", "", "12", "22", "32", "", {false, false, false}},
        {"-23", {"0", "0", "0"}, "", "", "", "", "", "", "", {false, false, false}},
        {"333", {"12", "22", "32"}, "3", "3", "3", "12", "22", "32", "NORM,EUTK,EUTM", {true, true, true}},
        {"356", {"12", "0", "0"}, "3", "", "", "12", "", "", "NORM", {true, false, false}},
        {"563", {"0", "0", "0415"}, "", "", "3", "", "", "0415", "EUTM", {false, false, true}},
        {"636", {"0", "22", "0"}, "", "3", "", "", "22", "", "EUTK", {false, true, false}},
        {"1--", {"0", "0", "0"}, "1", "-", "-", "", "", "", "", {false, false, false}},
        {"2", {"0", "0", "0"}, "2", "", "", "", "", "", "", {false, false, false}},
        {"424", {"0", "0", "0"}, "4", "2", "4", "", "", "", "", {false, false, false}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.categories);
        Product product;
        product.categories = c.categories;
        for (int i = 0; i < 3; ++i) product.ids[i] = c.ids[i];
        FixedGroupState groups;
        const DetailedRow row = rowOf(product, groups);
        EXPECT_EQ(row.cells[5], c.r);
        EXPECT_EQ(row.cells[10], c.rtk);
        EXPECT_EQ(row.cells[15], c.rtm);
        EXPECT_EQ(row.cells[6], c.normfix);
        EXPECT_EQ(row.cells[11], c.euemfix);
        EXPECT_EQ(row.cells[16], c.eukiemfix);
        EXPECT_EQ(row.cells[25], c.tfx);
        EXPECT_EQ(groups.seen, c.seen);
    }
}

TEST(GetDailyPrice, WordsAndMarks)
{
    struct Case {
        const char* what;
        std::string dispensing, publicCare, deleted, fresh, rating;
        std::string rend, kgy, tk, uj, dot;
    };
    const Case cases[] = {
        {"VN", "1", "1", "1", "0", "-1", "VN", "I", "TT", "*", "C.É. ALATT"},
        {"V", "2", "0", "0", "1", "0", "V", "", "", "", "NEM ÉRT."},
        {"KP", "3", "2", "2", "2", "1", "KP", "", "", "", "C.É. FÖLÖTT"},
        {"Abusus", "4", "0", "0", "1", "2", "Abusus", "", "", "", "2"},
        {"Uj", "5", "0", "0", "1", "-", "Uj", "", "", "", "-"},
        {"I", "8", "0", "0", "1", "0", "I", "", "", "", "NEM ÉRT."},
        {"9 is no word", "9", "0", "0", "1", "0", "", "", "", "", "NEM ÉRT."},
        {"two digits are no word", "12", "0", "0", "1", "0", "", "", "", "", "NEM ÉRT."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Product product;
        product.dispensing = c.dispensing;
        product.publicCare = c.publicCare;
        product.deleted = c.deleted;
        product.fresh = c.fresh;
        product.rating = c.rating;
        FixedGroupState groups;
        const DetailedRow row = rowOf(product, groups);
        EXPECT_EQ(row.cells[17], c.rend);
        EXPECT_EQ(row.cells[18], c.kgy);
        EXPECT_EQ(row.cells[19], c.tk);
        EXPECT_EQ(row.cells[26], c.uj);
        EXPECT_EQ(row.cells[34], utf8ToCp1250(c.dot));
    }
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

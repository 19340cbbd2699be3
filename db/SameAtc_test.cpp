#include "db/SameAtc.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/StartupTables.h"
#include "tests/fixtures/Databases.h"

namespace rovanel
{
namespace
{

std::vector<std::string> utf8(const std::vector<std::string>& lines)
{
    std::vector<std::string> converted;
    for (const auto& line : lines) converted.push_back(cp1250ToUtf8(line));
    return converted;
}

std::vector<std::int32_t> records(const SameAtcList& list)
{
    std::vector<std::int32_t> numbers;
    for (const FoundDrug& entry : list.found) numbers.push_back(entry.record);
    return numbers;
}

class SameAtc : public ::testing::Test
{
protected:
    std::vector<std::int32_t> listed(std::string_view code, std::size_t length, SameAtcOrder order, bool hide)
    {
        return records(sameAtcProducts(tables, code, length, order, hide));
    }
    testing::SixProductDatabase database;
    StartupTables tables = database.load();
};

TEST_F(SameAtc, AtcLevelsListEveryLevelFoundAsAGroup)
{
    const AtcLevels full = atcLevels(tables, "C08CA-0100");
    EXPECT_EQ(utf8(full.lines),
              (std::vector<std::string>{"C  Szív- és érrendszer", "C08  Kalciumcsatorna-blokkolók",
                                        "C08C  Szelektív kalciumcsatorna-blokkolók",
                                        "C08CA  Dihidropiridin-származékok", "C08CA01  amlodipin"}));
    EXPECT_EQ(full.levelLength, 8u);
    // A01A and A01AA- are not groups: three lines.
    const AtcLevels three = atcLevels(tables, "A01AA-0100");
    EXPECT_EQ(utf8(three.lines),
              (std::vector<std::string>{"A  Tápcsatorna és anyagcsere", "A01  Szájüregi készítmények",
                                        "A01AA01  nátrium-fluorid"}));
    EXPECT_EQ(three.levelLength, 8u);
    const AtcLevels none = atcLevels(tables, "Q01AA-0100");
    EXPECT_TRUE(none.lines.empty());
    EXPECT_EQ(none.levelLength, 0u);
}

TEST_F(SameAtc, ProductsOrderByDailyPriceWithNoPriceLastOrByName)
{
    const SameAtcList byPrice = sameAtcProducts(tables, "C08CA-0100", 1, SameAtcOrder::Price, false);
    EXPECT_EQ(utf8(byPrice.lines),
              (std::vector<std::string>{"BETA 10 MG TABLETTA 30X  6.7 Ft/nap",
                                        "ALFA 5 MG TABLETTA 30X  13.3 Ft/nap", "GAMMA KAPSZULA 20X  N.á."}));
    EXPECT_EQ(records(byPrice), (std::vector<std::int32_t>{1, 0, 2}));
    const SameAtcList byName = sameAtcProducts(tables, "C08CA-0100", 1, SameAtcOrder::Name, false);
    EXPECT_EQ(records(byName), (std::vector<std::int32_t>{0, 1, 2}));
    EXPECT_EQ(cp1250ToUtf8(byName.lines[0]), "ALFA 5 MG TABLETTA 30X  13.3 Ft/nap");
    // The substance level: only the products of C08CA-01.
    EXPECT_EQ(listed("C08CA-0100", 8, SameAtcOrder::Name, false), (std::vector<std::int32_t>{0, 2}));
    // Hiding deleted products leaves out the TT ones; the full-price setting prices by the full price.
    EXPECT_EQ(listed("C", 1, SameAtcOrder::Name, true), (std::vector<std::int32_t>{0, 1}));
    tables.fullPriceDailyCost = true;
    EXPECT_EQ(cp1250ToUtf8(sameAtcProducts(tables, "C08CA-01", 8, SameAtcOrder::Price, false).lines[0]),
              "ALFA 5 MG TABLETTA 30X  66.7 Ft/nap");
}

TEST_F(SameAtc, BadCodesFilesAndCountsGiveEmptyOrBoundedLists)
{
    EXPECT_TRUE(listed("Q01AA-0100", 8, SameAtcOrder::Price, false).empty()) << "no group: the sentinel";
    EXPECT_TRUE(listed("", 8, SameAtcOrder::Price, false).empty());
    for (const char* missing : {"atcindin.dat", "atcind.dat", "gy.ful", "nevpos.dat"}) {
        const std::string intact = database.directory.read(missing);
        database.directory.remove(missing);
        EXPECT_TRUE(listed("C", 1, SameAtcOrder::Price, false).empty()) << missing;
        database.directory.write(missing, intact);
    }
    // A count beyond the file and record numbers out of range: the count is bounded by the six
    // products, so the seventh number is never read.
    std::string atcindin = database.directory.read("atcindin.dat");
    database.directory.write("atcindin.dat", atcindin.replace(3 * 16, 14, "0,99999999    "));
    database.directory.write("atcind.dat", "3\r\n0\r\n-1\r\n77\r\n1\r\n2\r\n3\r\n");
    EXPECT_EQ(listed("C", 1, SameAtcOrder::Name, false), (std::vector<std::int32_t>{0, 1, 2, 3}));
}

}  // namespace
}  // namespace rovanel

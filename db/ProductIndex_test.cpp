#include "db/ProductIndex.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/StartupTables.h"
#include "tests/fixtures/Databases.h"

namespace rovanel
{
namespace
{

using testing::ScratchDirectory;
using testing::writeTinyDatabase;

class ProductIndexTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        writeTinyDatabase(m_directory);
        reload();
    }
    void reload() { m_tables = loadStartupTables(m_directory.path(), m_directory.path() / "no-user.ini"); }

    ScratchDirectory m_directory;
    StartupTables m_tables;
};

TEST_F(ProductIndexTest, NameListsHoldEachGroupFromItsByteOffsetAndStopAtTheEndOfTheFile)
{
    const auto medicines = nameListFill(m_tables, NameGroup::Medicines);
    ASSERT_EQ(medicines.size(), 3u);
    for (std::size_t i = 0; i < medicines.size(); ++i) EXPECT_EQ(medicines[i], m_tables.productName(i));
    const auto nutrition = nameListFill(m_tables, NameGroup::Nutrition);
    EXPECT_EQ(nutrition, (std::vector<std::string>{utf8ToCp1250("TÁPLÁLÓ ITAL 200 ML")}));
    EXPECT_EQ(recordOfListPosition(m_tables, NameGroup::Medicines, 2), 2);
    EXPECT_EQ(recordOfListPosition(m_tables, NameGroup::Nutrition, 0), 3);
    EXPECT_EQ(recordOfListPosition(m_tables, NameGroup::Nutrition, -1), -1);

    // Medicine lines of the wrong length would move a line-counting reader; the fill seeks instead.
    const std::string nevrend = m_directory.read("nevrend.dat");
    m_directory.write("nevrend.dat", std::string(48, 'Q') + "\r\n" + nevrend.substr(50));
    EXPECT_EQ(nameListFill(m_tables, NameGroup::Nutrition).front(), utf8ToCp1250("TÁPLÁLÓ ITAL 200 ML"));
    // A truncated file: the lists stop at its end.
    m_directory.write("nevrend.dat", nevrend.substr(0, 120));
    EXPECT_EQ(nameListFill(m_tables, NameGroup::Medicines).size(), 3u) << "the third line is cut short";
    EXPECT_TRUE(nameListFill(m_tables, NameGroup::Nutrition).empty());
    m_directory.remove("nevrend.dat");
    EXPECT_TRUE(nameListFill(m_tables, NameGroup::Medicines).empty());
}

TEST_F(ProductIndexTest, TextPositionsReadExactlyTheirOwnRecord)
{
    DataFile nevpos(m_directory.path() / "nevpos.dat");
    EXPECT_EQ(textPosition(nevpos, 0), 0u);
    const auto second = textPosition(nevpos, 1);
    ASSERT_TRUE(second);
    EXPECT_GT(*second, 0u);
    EXPECT_EQ(textPosition(nevpos, 5), std::nullopt) << "past the last record";
    EXPECT_EQ(textPosition(nevpos, -1), std::nullopt);

    std::string bytes = m_directory.read("nevpos.dat");
    bytes.replace(0, 8, "        ");   // an all-blank record must not borrow the next one's number
    bytes.replace(10, 8, "00000037");  // leading zeros instead of blanks read the same
    m_directory.write("nevpos.dat", bytes);
    DataFile changed(m_directory.path() / "nevpos.dat");
    EXPECT_EQ(textPosition(changed, 0), std::nullopt);
    EXPECT_EQ(textPosition(changed, 1), 37u);
}

TEST_F(ProductIndexTest, ProductsOfAKeyFollowTheDirectoryRecord)
{
    EXPECT_EQ(productsOfKey(m_directory.path(), IndexPair::Atc, 0), (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(productsOfKey(m_directory.path(), IndexPair::Atc, 1), (std::vector<std::int32_t>{1, 2}));
    EXPECT_TRUE(productsOfKey(m_directory.path(), IndexPair::Atc, 3).empty()) << "the sentinel reads empty";
    EXPECT_TRUE(productsOfKey(m_directory.path(), IndexPair::Atc, 4).empty()) << "past the directory";
    EXPECT_TRUE(productsOfKey(m_directory.path(), IndexPair::Atc, -1).empty());
    EXPECT_EQ(productsOfKey(m_directory.path(), IndexPair::SideEffect, 0), (std::vector<std::int32_t>{0, 2}));
    EXPECT_EQ(productsOfKey(m_directory.path(), IndexPair::SideEffect, 1), (std::vector<std::int32_t>{2}));
}

TEST_F(ProductIndexTest, BadDirectoryAndListRecordsGiveWhatTheDataHolds)
{
    struct Case {
        const char* what;
        std::string directory;
        std::string list;
        std::vector<std::int32_t> expected;
        IndexPair pair = IndexPair::Atc;
    };
    const Case cases[] = {
        {"count larger than the file", encodeDirectoryRecord({0, 1000000}), "1\r\n2\r\n", {1, 2}},
        {"offset past the end", encodeDirectoryRecord({999999, 2}), "1\r\n2\r\n", {}},
        {"negative count", encodeDirectoryRecord({0, -3}), "1\r\n", {}},
        {"huge offset", encodeDirectoryRecord({2147483647, 2}), "1\r\n", {}},
        {"text instead of numbers", "abc,2         \r\n", "1\r\n", {}},
        {"no comma", "0 2           \r\n", "1\r\n", {}},
        {"list stops at garbage", encodeDirectoryRecord({0, 3}), "1\r\nx\r\n3\r\n", {1}},
        {"directory cut short", "0,", "1\r\n", {}},
        {"a count of zero never reads the list", encodeDirectoryRecord({0, 0}), "", {}},
        {"side-effect lists need their commas",
         encodeDirectoryRecord({0, 3}),
         "4,\r\n5\r\n6,\r\n",
         {4, 5},
         IndexPair::SideEffect},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const bool atc = c.pair == IndexPair::Atc;
        m_directory.write(atc ? "atcindin.dat" : "mhindin.dat", c.directory);
        if (c.list.empty())
            m_directory.remove(atc ? "atcind.dat" : "mhind.dat");
        else
            m_directory.write(atc ? "atcind.dat" : "mhind.dat", c.list);
        EXPECT_EQ(productsOfKey(m_directory.path(), c.pair, 0), c.expected);
    }
    m_directory.remove("atcind.dat");
    EXPECT_TRUE(productsOfKey(m_directory.path(), IndexPair::Atc, 0).empty()) << "missing list file";
}

TEST_F(ProductIndexTest, ContraindicationNamesLoseLeadingBlanks)
{
    EXPECT_EQ(contraindicationName(m_directory.path(), 0), utf8ToCp1250("Terhesség"));
    EXPECT_EQ(contraindicationName(m_directory.path(), 1), utf8ToCp1250("Szoptatás"));
    EXPECT_EQ(contraindicationName(m_directory.path(), 2), std::nullopt);
}

TEST_F(ProductIndexTest, AProductBlockEndsAtItsEndMarker)
{
    DataFile gyful(dataFilePath(m_directory.path(), "GY.FUL"));
    DataFile nevpos(m_directory.path() / "nevpos.dat");
    const auto block = productBlock(gyful, nevpos, 1);
    ASSERT_TRUE(block);
    EXPECT_EQ(*block, (std::vector<std::string>{"C08CA-0101", "C08CA-01", "#ar", "1000", "800", "#vege"}));
    EXPECT_EQ(identifyProduct(m_tables, block->front() + "   "), 1);
    EXPECT_EQ(productBlock(gyful, nevpos, 9), std::nullopt);
}

TEST_F(ProductIndexTest, AProductBlockCutsLongLinesAndStopsAtTheEndOfTheFile)
{
    m_directory.write("gy.ful", "C08CA-0101\r\n" + std::string(400, 'k') + "\r\n#ar");
    m_directory.write("nevpos.dat", encodePositionRecord(0) + encodePositionRecord(5000));
    DataFile gyful(m_directory.path() / "gy.ful");
    DataFile nevpos(m_directory.path() / "nevpos.dat");
    const auto block = productBlock(gyful, nevpos, 0, 255);
    ASSERT_TRUE(block);
    EXPECT_EQ(*block, (std::vector<std::string>{"C08CA-0101", std::string(254, 'k'), "#ar"}));
    EXPECT_EQ(productBlock(gyful, nevpos, 1), std::nullopt) << "offset past the end of gy.ful";
}

TEST_F(ProductIndexTest, LocatingAProductGivesItsCodeNameAndOffset)
{
    const auto location = locateProduct(m_tables, 2);
    ASSERT_TRUE(location);
    EXPECT_EQ(location->code, "C08CA-0102");
    EXPECT_EQ(location->name, utf8ToCp1250("GAMMA 10 MG TABLETTA 30X"));
    EXPECT_EQ(location->offset, 2u * 45u);  // two blocks of 45 bytes before it
    EXPECT_EQ(locateProduct(m_tables, 5), std::nullopt);
}

}  // namespace
}  // namespace rovanel

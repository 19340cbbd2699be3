// The start-up tables and the index files read through them.
#include "db/StartupTables.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/ProductIndex.h"
#include "tests/fixtures/Databases.h"

namespace rovanel
{
namespace
{

using testing::ScratchDirectory;
using testing::writeTinyDatabase;

StartupTables load(const ScratchDirectory& directory)
{
    return loadStartupTables(directory.path(), directory.path() / "user" / "RV.INI");
}

// The tiny database in a directory of its own, and its tables as loaded at start.
class TinyStartup : public ::testing::Test
{
protected:
    void SetUp() override
    {
        writeTinyDatabase(directory);
        tables = load(directory);
    }
    ScratchDirectory directory;
    StartupTables tables;
};

// How a line is trimmed is Trim's (Text_test).
TEST(MessageTable, NumbersLinesFromZeroAndReadsNullAsEmpty)
{
    const MessageTable table = MessageTable::parse("first\r\nNULL  \t\r\n NULL\r\n");
    EXPECT_EQ(table.at(0), "first");
    EXPECT_TRUE(table.isNull(1)) << "trailing blanks are trimmed before the NULL test";
    EXPECT_EQ(table.at(2), " NULL") << "a leading blank keeps the word as text";
    EXPECT_EQ(table.slotCount(), 5u) << "lines plus two null slots";
    EXPECT_TRUE(table.isNull(3));
    EXPECT_EQ(table.at(1000), "");
    // An over-long line is cut and later numbers do not shift.
    const MessageTable cut = MessageTable::parse(std::string(600, 'x') + "\r\nnext\r\n");
    EXPECT_EQ(cut.at(0).size(), 254u);
    EXPECT_EQ(cut.at(1), "next");
}

TEST_F(TinyStartup, ReadsEveryTableOfACompleteDatabase)
{
    ASSERT_EQ(tables.reached, LoadStep::Complete);
    EXPECT_EQ(tables.counts.products(), 5);
    EXPECT_EQ(tables.counts.medicines(), 3);
    EXPECT_EQ(tables.messages.at(1), utf8ToCp1250("Készítmény:"));
    EXPECT_EQ(tables.messages.at(7), utf8ToCp1250("Üzenet 7"));
    EXPECT_EQ(tables.productCodes, (std::vector<std::string>{"A02BC-0101", "C08CA-0101", "C08CA-0102",
                                                             "T01AA-0101", "X01AA-0101"}));
    EXPECT_EQ(tables.atcGroupCodes, (std::vector<std::string>{"C", "C08", "C08C"}));
    // Count 4 sizes the third block and count 3 the fourth.
    EXPECT_EQ(tables.contraindicationCodes, (std::vector<std::string>{"E01", "E0101"}));
    EXPECT_EQ(tables.sideEffectCodes, (std::vector<std::string>{"M01", "M0101"}));
    EXPECT_EQ(tables.pairs, (std::vector<std::pair<std::int32_t, std::int32_t>>{{0, 3}, {1, 2}}));
    EXPECT_EQ(tables.shortTexts, (std::vector<std::string>{"tabl.", "kaps."}));
    ASSERT_EQ(tables.productNames.size(), 5u);
    EXPECT_EQ(tables.productName(1), utf8ToCp1250("BÉTA 5 MG TABLETTA 30X"));
    for (const ProductRecord outside : {5, -1}) EXPECT_EQ(tables.productName(outside), "") << outside;
    EXPECT_EQ(tables.recordOfCode("C08CA-0102"), 2);
    EXPECT_EQ(tables.recordOfCode("C08CA-01"), -1);
    EXPECT_EQ(tables.contraindicationOfCode("E0101"), 1);
}

TEST(StartupLoader, StopsAtTheFailingStepAndKeepsWhatItRead)
{
    struct Case {
        const char* what;
        const char* file;
        const char* replacement;  // nullptr removes the file
        LoadStep reached;
    };
    const Case cases[] = {
        {"inf.dat missing", "inf.dat", nullptr, LoadStep::Started},
        {"twelve numbers", "inf.dat", "5,3,2,2,0,0,0,2,2,0,1,1\r\n", LoadStep::Started},
        {"blank before a comma", "inf.dat", "5 ,3,2,2,0,0,0,2,2,0,1,1,1\r\n", LoadStep::Started},
        {"not a number", "inf.dat", "five,3,2,2,0,0,0,2,2,0,1,1,1\r\n", LoadStep::Started},
        {"negative count", "inf.dat", "-5,3,2,2,0,0,0,2,2,0,1,1,1\r\n", LoadStep::Started},
        {"negative short-text count", "inf.dat", "5,3,2,2,0,0,0,2,-12,0,1,1,1\r\n", LoadStep::Started},
        // N - K1 - K2 of kept counts like these once overflowed 32 bits.
        {"nutrition count at the 32-bit limit", "inf.dat", "-43,3,2,2,0,0,0,2,2,0,2147483647,1,1\r\n",
         LoadStep::Started},
        {"absurd count", "inf.dat", "2000000000,3,2,2,0,0,0,2,2,0,1,1,1\r\n", LoadStep::Started},
        // Counts of fifty million in a 100-byte inf.dat once made the loader allocate 8 GB of empty tables.
        {"a million and one pairs", "inf.dat", "5,3,2,2,0,0,0,1000001,2,0,1,1,1\r\n", LoadStep::Started},
        {"a million and one names", "inf.dat", "1000001,3,2,2,0,0,0,2,2,0,1,1,1\r\n", LoadStep::Started},
        {"xd.dat missing", "xd.dat", nullptr, LoadStep::CodeTables},
        {"x.dat missing", "x.dat", nullptr, LoadStep::Pairs},
        {"nevrend.dat missing", "nevrend.dat", nullptr, LoadStep::ShortTexts},
        {"KOD.DAT missing is not checked", "KOD.DAT", nullptr, LoadStep::Complete},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ScratchDirectory directory;
        writeTinyDatabase(directory);
        if (c.replacement)
            directory.write(c.file, c.replacement);
        else
            directory.remove(c.file);
        const StartupTables tables = load(directory);
        EXPECT_EQ(tables.reached, c.reached);
        EXPECT_EQ(tables.messages.at(1), utf8ToCp1250("Készítmény:")) << "the message table is read first";
        if (c.reached < LoadStep::Complete) {
            EXPECT_TRUE(tables.productNames.empty());
        }
        if (c.reached < LoadStep::CodeTables) {
            EXPECT_TRUE(tables.productCodes.empty());
            // A same-ATC listing once took N from counts the loader had rejected and listed records of
            // a database that was never loaded.
            EXPECT_EQ(tables.counts.products(), 0) << "counts of a stopped loader are not kept";
        }
    }
}

TEST_F(TinyStartup, ReadsKodDatOfAnySizeSafelyAndKeepsTheOtherTablesWithinTheirCounts)
{
    const std::string full = directory.read("KOD.DAT");

    directory.write("KOD.DAT", full.substr(0, 23));  // two codes and three bytes of the third
    StartupTables shortTables = load(directory);
    EXPECT_EQ(shortTables.productCodes,
              (std::vector<std::string>{"A02BC-0101", "C08CA-0101", "C08", "", ""}));
    EXPECT_EQ(shortTables.sideEffectCodes[1], "");
    EXPECT_EQ(shortTables.reached, LoadStep::Complete);

    directory.write("KOD.DAT", full + std::string(300000, 'Z'));
    EXPECT_EQ(load(directory).sideEffectCodes[1], "M0101") << "bytes after the four blocks are ignored";

    directory.remove("KOD.DAT");
    EXPECT_EQ(load(directory).productCodes, std::vector<std::string>(5));

    // The other tables keep within their counts.
    directory.write("xd.dat", "1,2\r\n3,4\r\n5,6\r\n");
    directory.write("x.dat", "tabletta-long\r\n");
    directory.write("nevrend.dat", directory.read("nevrend.dat") + testing::nameLine("EXTRA"));
    tables = load(directory);
    EXPECT_EQ(tables.pairs.size(), 2u);
    EXPECT_EQ(tables.shortTexts, (std::vector<std::string>{"tabletta-lo", ""}))
        << "a 12-byte slot holds 11 characters; a missing line leaves its slot empty";
    EXPECT_EQ(tables.productNames.size(), 5u);
}

TEST_F(TinyStartup, ReadsTheFullPriceFlagFromTheUsersOwnIniOnly)
{
    directory.write("RV.INI", "[Rovanel Beallitasok]\r\nNapiKezTeljesArbol=IGEN\r\n");
    EXPECT_FALSE(load(directory).fullPriceDailyCost) << "the data directory's RV.INI is another file";

    std::filesystem::create_directories(directory.path() / "user");
    directory.write("user/RV.INI", "[rovanel beallitasok]\r\nnapikezteljesarbol = IGEN, kérem\r\n");
    EXPECT_TRUE(load(directory).fullPriceDailyCost) << "the value need only contain IGEN";

    directory.write("user/RV.INI", "[Rovanel Beallitasok]\r\nNapiKezTeljesArbol=igen\r\n");
    EXPECT_FALSE(load(directory).fullPriceDailyCost);
}

TEST(LineListLoader, CutsAtTheColumnLimitAndTrims)
{
    ScratchDirectory directory;
    directory.write("list.txt", "abc   \r\n" + std::string(70, 'n') + "\r\nx~comment\r\n");
    TextList lines;
    ASSERT_TRUE(loadLineList(directory.path() / "list.txt", 50, lines));
    EXPECT_EQ(lines.toVector(), (std::vector<std::string>{"abc", std::string(50, 'n'), "x"}));
    EXPECT_FALSE(loadLineList(directory.path() / "missing.txt", 50, lines));
}

using ProductIndexTest = TinyStartup;

TEST_F(ProductIndexTest, NameListsHoldEachGroupFromItsByteOffsetAndStopAtTheEndOfTheFile)
{
    const auto medicines = nameListFill(tables, NameGroup::Medicines);
    ASSERT_EQ(medicines.size(), 3u);
    for (std::size_t i = 0; i < medicines.size(); ++i) EXPECT_EQ(medicines[i], tables.productName(i));
    const auto nutrition = nameListFill(tables, NameGroup::Nutrition);
    EXPECT_EQ(nutrition, (std::vector<std::string>{utf8ToCp1250("TÁPLÁLÓ ITAL 200 ML")}));
    EXPECT_EQ(recordOfListPosition(tables, NameGroup::Medicines, 2), 2);
    EXPECT_EQ(recordOfListPosition(tables, NameGroup::Nutrition, 0), 3);
    EXPECT_EQ(recordOfListPosition(tables, NameGroup::Nutrition, -1), -1);

    // Medicine lines of the wrong length would move a line-counting reader; the fill seeks instead.
    const std::string nevrend = directory.read("nevrend.dat");
    directory.write("nevrend.dat", std::string(48, 'Q') + "\r\n" + nevrend.substr(50));
    EXPECT_EQ(nameListFill(tables, NameGroup::Nutrition).front(), utf8ToCp1250("TÁPLÁLÓ ITAL 200 ML"));
    // A truncated file: the lists stop at its end.
    directory.write("nevrend.dat", nevrend.substr(0, 120));
    EXPECT_EQ(nameListFill(tables, NameGroup::Medicines).size(), 3u) << "the third line is cut short";
    EXPECT_TRUE(nameListFill(tables, NameGroup::Nutrition).empty());
    directory.remove("nevrend.dat");
    EXPECT_TRUE(nameListFill(tables, NameGroup::Medicines).empty());
}

TEST_F(ProductIndexTest, TextPositionsReadExactlyTheirOwnRecord)
{
    DataFile nevpos(directory.path() / "nevpos.dat");
    EXPECT_EQ(textPosition(nevpos, 0), 0u);
    EXPECT_EQ(textPosition(nevpos, 1), 45u) << "the first block is 45 bytes long";
    EXPECT_EQ(textPosition(nevpos, 5), std::nullopt) << "past the last record";
    EXPECT_EQ(textPosition(nevpos, -1), std::nullopt);

    std::string bytes = directory.read("nevpos.dat");
    bytes.replace(0, 8, "        ");   // an all-blank record must not borrow the next one's number
    bytes.replace(10, 8, "00000037");  // leading zeros instead of blanks read the same
    directory.write("nevpos.dat", bytes);
    DataFile changed(directory.path() / "nevpos.dat");
    EXPECT_EQ(textPosition(changed, 0), std::nullopt);
    EXPECT_EQ(textPosition(changed, 1), 37u);
}

TEST_F(ProductIndexTest, ProductsOfAKeyFollowTheDirectoryRecord)
{
    EXPECT_EQ(productsOfKey(directory.path(), IndexPair::Atc, 0), (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(productsOfKey(directory.path(), IndexPair::Atc, 1), (std::vector<std::int32_t>{1, 2}));
    for (const std::int64_t key : {3, 4, -1})  // the sentinel, past the directory, before it
        EXPECT_TRUE(productsOfKey(directory.path(), IndexPair::Atc, key).empty()) << key;
    EXPECT_EQ(productsOfKey(directory.path(), IndexPair::SideEffect, 0), (std::vector<std::int32_t>{0, 2}));
    EXPECT_EQ(productsOfKey(directory.path(), IndexPair::SideEffect, 1), (std::vector<std::int32_t>{2}));
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
        directory.write(directoryFileName(c.pair), c.directory);
        if (c.list.empty())
            directory.remove(listFileName(c.pair));
        else
            directory.write(listFileName(c.pair), c.list);
        EXPECT_EQ(productsOfKey(directory.path(), c.pair, 0), c.expected);
    }
    directory.remove("atcind.dat");
    EXPECT_TRUE(productsOfKey(directory.path(), IndexPair::Atc, 0).empty()) << "missing list file";
}

TEST_F(ProductIndexTest, ContraindicationNamesLoseLeadingBlanks)
{
    EXPECT_EQ(contraindicationName(directory.path(), 0), utf8ToCp1250("Terhesség"));
    EXPECT_EQ(contraindicationName(directory.path(), 1), utf8ToCp1250("Szoptatás"));
    EXPECT_EQ(contraindicationName(directory.path(), 2), std::nullopt);
}

TEST_F(ProductIndexTest, AProductBlockEndsAtItsEndMarkerAndALocatedProductHasItsCodeNameAndOffset)
{
    DataFile gyful(dataFilePath(directory.path(), "GY.FUL"));
    DataFile nevpos(directory.path() / "nevpos.dat");
    const auto block = productBlock(gyful, nevpos, 1);
    ASSERT_TRUE(block);
    EXPECT_EQ(*block, (std::vector<std::string>{"C08CA-0101", "C08CA-01", "#ar", "1000", "800", "#vege"}));
    EXPECT_EQ(identifyProduct(tables, block->front() + "   "), 1);
    EXPECT_EQ(productBlock(gyful, nevpos, 9), std::nullopt);
    const auto location = locateProduct(tables, 2);
    ASSERT_TRUE(location);
    EXPECT_EQ(location->code, "C08CA-0102");
    EXPECT_EQ(location->name, utf8ToCp1250("GAMMA 10 MG TABLETTA 30X"));
    EXPECT_EQ(location->offset, 2u * 45u);  // two blocks of 45 bytes before it
    EXPECT_EQ(locateProduct(tables, 5), std::nullopt);
}

TEST_F(ProductIndexTest, AProductBlockCutsLongLinesAndStopsAtTheEndOfTheFile)
{
    directory.write("gy.ful", "C08CA-0101\r\n" + std::string(400, 'k') + "\r\n#ar");
    directory.write("nevpos.dat", encodePositionRecord(0) + encodePositionRecord(5000));
    DataFile gyful(directory.path() / "gy.ful");
    DataFile nevpos(directory.path() / "nevpos.dat");
    EXPECT_EQ(productBlock(gyful, nevpos, 0, 255),
              (std::vector<std::string>{"C08CA-0101", std::string(254, 'k'), "#ar"}));
    EXPECT_EQ(productBlock(gyful, nevpos, 1), std::nullopt) << "offset past the end of gy.ful";
}

}  // namespace
}  // namespace rovanel

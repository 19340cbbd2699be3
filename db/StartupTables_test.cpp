#include "db/StartupTables.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
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

// The tiny database in a directory of its own.
class TinyStartup : public ::testing::Test
{
protected:
    void SetUp() override { writeTinyDatabase(directory); }
    ScratchDirectory directory;
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
    const StartupTables tables = load(directory);
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
    EXPECT_EQ(tables.productName(5), "");
    EXPECT_EQ(tables.productName(-1), "");
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

TEST_F(TinyStartup, ReadsKodDatOfAnySizeSafely)
{
    const std::string full = directory.read("KOD.DAT");

    directory.write("KOD.DAT", full.substr(0, 23));  // two codes and three bytes of the third
    StartupTables shortTables = load(directory);
    EXPECT_EQ(shortTables.productCodes[1], "C08CA-0101");
    EXPECT_EQ(shortTables.productCodes[2], "C08");
    EXPECT_EQ(shortTables.productCodes[3], "");
    EXPECT_EQ(shortTables.sideEffectCodes[1], "");
    EXPECT_EQ(shortTables.reached, LoadStep::Complete);

    directory.write("KOD.DAT", full + std::string(300000, 'Z'));
    EXPECT_EQ(load(directory).sideEffectCodes[1], "M0101") << "bytes after the four blocks are ignored";

    directory.remove("KOD.DAT");
    EXPECT_EQ(load(directory).productCodes, std::vector<std::string>(5));
}

TEST_F(TinyStartup, KeepsTablesWithinTheirCounts)
{
    directory.write("xd.dat", "1,2\r\n3,4\r\n5,6\r\n");
    directory.write("x.dat", "tabletta-long\r\n");
    directory.write("nevrend.dat", directory.read("nevrend.dat") + testing::nameLine("EXTRA"));
    const StartupTables tables = load(directory);
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

}  // namespace
}  // namespace rovanel

#include "gen/DatabaseGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>

#include "db/DataFile.h"
#include "db/HungarianCollation.h"
#include "db/ProductIndex.h"
#include "db/Text.h"
#include "gen/DatabaseCheck.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

using testing::ScratchDirectory;

std::string fileText(const std::filesystem::path& path) { return readWholeFile(path).value_or(""); }

// The lines of product `record`'s sections `markers`, each after its marker ("#til CODE").
std::vector<std::string> sections(const std::filesystem::path& directory, std::int32_t record,
                                  const std::set<std::string>& markers)
{
    DataFile gyful(directory / "gy.ful");
    DataFile nevpos(directory / "nevpos.dat");
    std::vector<std::string> lines;
    std::string marker;
    for (const std::string& line : productBlock(gyful, nevpos, record).value_or(lines)) {
        if (line.starts_with('#'))
            marker = line;
        else if (markers.count(marker))
            lines.push_back(marker + " " + line);
    }
    return lines;
}

// KOD.DAT's entry at byte `at`: its product codes (10 bytes each), then its ATC group codes (10 bytes each),
// then the contraindication codes (6 bytes each).
std::string kodEntry(const std::filesystem::path& directory, std::int64_t at, std::size_t width)
{
    return std::string(
        trim(std::string_view(fileText(directory / "KOD.DAT")).substr(static_cast<std::size_t>(at), width)));
}

std::string productCode(const std::filesystem::path& directory, std::int32_t record)
{
    return kodEntry(directory, record * 10, 10);
}

bool collatesBefore(std::string_view a, std::string_view b)
{
    return hungarianSortKey(a) < hungarianSortKey(b);
}

std::string replaced(std::string s, std::string_view from, std::string_view to)
{
    return s.replace(s.find(from), from.size(), to);
}

// At every size the database is consistent (the database check), its names are upper case and sorted
// within each group, nutrition under T and the others under X, and it holds the planted interaction and
// contraindication cases as documented; the size-based cases only in large databases.
TEST(DatabaseGenerator, EverySizeIsConsistentSortedAndHoldsThePlantedCases)
{
    const std::pair<int, std::uint64_t> sizes[] = {{kMinimumProducts, 1}, {300, 21}, {2000, 21}, {6000, 1}};
    for (const auto& [products, seed] : sizes) {
        SCOPED_TRACE("products " + std::to_string(products) + ", seed " + std::to_string(seed));
        ScratchDirectory directory;
        const auto& dir = directory.path();
        std::string error;
        const auto p = generateDatabase(dir, {products, seed}, &error);
        ASSERT_TRUE(p) << error;
        EXPECT_EQ(p->products, products);
        EXPECT_EQ(p->medicines + p->nutrition + p->others, products);
        for (const std::string& problem : checkDatabase(dir)) ADD_FAILURE() << problem;

        const std::string names = fileText(dir / "nevrend.dat");
        ASSERT_EQ(names.size(), static_cast<std::size_t>(products) * 50);
        EXPECT_TRUE(upperCaseCp1250(names) == names) << "names are upper case";
        std::vector<std::string> list;
        for (std::size_t at = 0; at < names.size(); at += 50)
            list.emplace_back(trim(std::string_view(names).substr(at, 48)));
        const auto nutrition = list.begin() + p->medicines, others = nutrition + p->nutrition;
        EXPECT_TRUE(std::is_sorted(list.begin(), nutrition, collatesBefore));
        EXPECT_TRUE(std::is_sorted(nutrition, others, collatesBefore));
        EXPECT_TRUE(std::is_sorted(others, list.end(), collatesBefore));
        EXPECT_EQ(productCode(dir, p->medicines)[0], 'T');
        EXPECT_EQ(productCode(dir, products - 1)[0], 'X');
        // Accented capitals of Windows-1250 (É, Ő, Ű, ...) and lower-case accented text in the sections.
        EXPECT_NE(names.find_first_of("\xC1\xC9\xCD\xD3\xD6\xD5\xDA\xDC\xDB"), std::string::npos);
        EXPECT_NE(fileText(dir / "gy.ful").find("\xE1"), std::string::npos);  // á

        // Avoid pair: each #til a prefix of the other's code; careful pair: one #ov line; nothing else.
        using Lines = std::vector<std::string>;
        EXPECT_EQ(sections(dir, p->avoidFirst, {"#til", "#ov"}), Lines{"#til " + p->avoidFirstCode});
        EXPECT_EQ(sections(dir, p->avoidSecond, {"#til", "#ov"}), Lines{"#til " + p->avoidSecondCode});
        EXPECT_EQ(sections(dir, p->carefulFirst, {"#til", "#ov"}), Lines{"#ov " + p->carefulCode});
        EXPECT_EQ(sections(dir, p->carefulSecond, {"#til", "#ov"}), Lines{});
        EXPECT_TRUE(productCode(dir, p->avoidSecond).starts_with(p->avoidFirstCode));
        EXPECT_TRUE(productCode(dir, p->avoidFirst).starts_with(p->avoidSecondCode));
        EXPECT_FALSE(productCode(dir, p->avoidFirst).starts_with(p->avoidFirstCode));
        EXPECT_TRUE(productCode(dir, p->carefulSecond).starts_with(p->carefulCode));
        EXPECT_FALSE(productCode(dir, p->carefulFirst).starts_with(p->carefulCode));
        // Contraindication: the code is KOD.DAT table 3 entry k, in the block; the lists of k and its group.
        const auto has = [](const auto& items, const auto& value) {
            return std::find(items.begin(), items.end(), value) != items.end();
        };
        const std::int64_t table2 = products * 10, table3 = table2 + p->atcGroups * 10;
        EXPECT_EQ(kodEntry(dir, table3 + p->contraindicationIndex * 6, 6), "E0101");
        EXPECT_TRUE(has(sections(dir, p->contraindicated, {"#ell"}), "#ell E0101"));
        EXPECT_TRUE(has(productsOfKey(dir, IndexPair::Contraindication, p->contraindicationIndex),
                        p->contraindicated));
        EXPECT_TRUE(has(productsOfKey(dir, IndexPair::Atc, p->contraindicatedGroupNode), p->contraindicated));
        EXPECT_EQ(kodEntry(dir, table2 + p->contraindicatedGroupNode * 10, 10),
                  productCode(dir, p->contraindicated).substr(0, 6));
        // The over-long careful line.
        ASSERT_EQ(p->longCodeLine.size(), 11u);
        EXPECT_TRUE(has(sections(dir, p->longCodeLineDrug, {"#ov"}), "#ov " + p->longCodeLine));
        // All planted drugs are medicines, and distinct.
        const std::set<std::int32_t> drugs = {p->avoidFirst,    p->avoidSecond,     p->carefulFirst,
                                              p->carefulSecond, p->contraindicated, p->longCodeLineDrug};
        EXPECT_EQ(drugs.size(), 6u);
        EXPECT_LT(*drugs.rbegin(), p->medicines);
        if (products < 1000) {  // the size-based cases exist only in large databases
            for (std::int32_t absent : {p->largeLevel1Node, p->largeLevel2Node, p->commonSideEffect,
                                        p->ingredient600, p->ingredient601})
                EXPECT_EQ(absent, -1);
        }
        if (products < 6000) continue;
        EXPECT_EQ(p->largeLevel1Code.size(), 1u);
        EXPECT_EQ(p->largeLevel2Code.size(), 3u);
        EXPECT_EQ(productsOfKey(dir, IndexPair::Atc, p->largeLevel1Node).size(),
                  static_cast<std::size_t>(p->largeLevel1Products));
        EXPECT_GT(productsOfKey(dir, IndexPair::Atc, p->largeLevel2Node).size(), 600u);
        EXPECT_GT(productsOfKey(dir, IndexPair::SideEffect, p->commonSideEffect).size(), 600u);
        EXPECT_EQ(productsOfKey(dir, IndexPair::Ingredient, p->ingredient600).size(), 600u);
        EXPECT_EQ(productsOfKey(dir, IndexPair::Ingredient, p->ingredient601).size(), 601u);
    }
}

// Every data file the program names in its sources is in a generated database, the windows' pictures
// included: a start on a fresh database must not stop at a missing picture's message box. The same seed
// gives the same bytes, another seed another database.
TEST(DatabaseGenerator, WritesEveryFileTheProgramReadsTheSameForTheSameSeed)
{
    ScratchDirectory first, second, third;
    ASSERT_TRUE(generateDatabase(first.path(), {400, 11}));
    ASSERT_TRUE(generateDatabase(second.path(), {400, 11}));
    ASSERT_TRUE(generateDatabase(third.path(), {400, 12}));
    const std::regex dataFileName(R"re("([A-Za-z0-9_]+\.(dat|DAT|ful|FUL|inf|INF|INI|jpg))")re");
    std::set<std::string> named;
    for (const char* folder : {"app", "db", "views", "rx", "pricelist", "certs", "catalogues"}) {
        const std::filesystem::path root = std::filesystem::path(ROVANEL_SOURCE_DIR) / folder;
        if (!std::filesystem::is_directory(root)) continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            const std::string file = entry.path().filename().string();
            if (!entry.is_regular_file() || file.find("_test.") != std::string::npos) continue;
            const std::string source = fileText(entry.path());
            for (std::sregex_iterator it(source.begin(), source.end(), dataFileName), end; it != end; ++it)
                named.insert((*it)[1]);
        }
    }
    EXPECT_GE(named.size(), 30u) << "the search finds the readers' file names";
    for (const std::string& name : named)
        EXPECT_TRUE(std::filesystem::exists(dataFilePath(first.path(), name))) << name;
    for (const char* picture : {"Rg0.jpg", "Rg1.jpg", "r1.jpg", "r2.jpg"}) {
        const std::string bytes = fileText(first.path() / picture);
        EXPECT_TRUE(bytes.starts_with("\xFF\xD8") && bytes.ends_with("\xFF\xD9")) << picture << " is a JPEG";
    }
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(first.path())) {
        const auto name = entry.path().filename();
        EXPECT_EQ(fileText(entry.path()), fileText(second.path() / name)) << name;
        ++files;
    }
    EXPECT_EQ(files, 48);  // 28 data files, 4 pictures, 5 prescription, 7 medical aids and 4 formulary files
    EXPECT_NE(fileText(first.path() / "gy.ful"), fileText(third.path() / "gy.ful"));
    EXPECT_NE(fileText(first.path() / "nevrend.dat"), fileText(third.path() / "nevrend.dat"));
}

TEST(DatabaseGenerator, RefusesOptionsOutOfRangeAndUnwritableDirectories)
{
    ScratchDirectory directory;
    std::string error;
    EXPECT_FALSE(generateDatabase(directory.path(), {kMinimumProducts - 1, 1}, &error));
    EXPECT_NE(error.find("between"), std::string::npos);
    EXPECT_FALSE(generateDatabase(directory.path(), {kMaximumProducts + 1, 1}, &error));
    directory.write("plain-file", "x");
    error.clear();
    EXPECT_FALSE(generateDatabase(directory.path() / "plain-file", {100, 1}, &error));
    EXPECT_FALSE(error.empty());
}

TEST(DatabaseCheck, ReportsEachKindOfDamage)
{
    struct Case {
        const char* what;
        const char* file;
        std::string (*damage)(std::string);  // none: the file is removed
        const char* expected;
        CheckMode mode = CheckMode::Generated;
        bool reported = true;
    };
    const Case cases[] = {
        {"missing file", "zaras.inf", nullptr, "zaras.inf"},
        {"list entry changed", "atcind.dat",
         [](std::string s) { return (s[0] == '1' ? "2" : "1") + s.substr(1); }, "atcind.dat"},
        {"count too large", "inf.dat", [](std::string s) { return "9" + s; }, "nevrend.dat"},
        {"marker renamed", "gy.ful", [](std::string s) { return replaced(s, "#til", "#tol"); }, "marker"},
        {"bare LF", "nevrend.dat", [](std::string s) { return s.replace(48, 1, " "); }, "nevrend.dat"},
        {"short MSG.DAT", "MSG.DAT", [](std::string s) { return s.substr(0, s.find("\r\n") + 2); },
         "fewer than 150"},
        {"duplicate product code", "KOD.DAT",
         [](std::string s) { return s.replace(10, 10, s.substr(0, 10)); }, "duplicate"},
        {"tree depth jump", "mhnren2.dat", [](std::string s) { return "\t\t" + s; }, "mhnren2.dat"},
        {"missing BNO tree", "bno.tre", nullptr, "bno.tre: missing"},
        {"missing dosage template, any database", "DsListT.txt", nullptr, "DsListT.txt",
         CheckMode::AnyDatabase, false},
        {"BNO node without a name", "bno.tre", [](std::string s) { return s + "\tA00\r\n"; },
         "bno.tre line 23658"},
        {"rule of a code not in the tree", "bnohr.dat", [](std::string s) { return s + "EU10 Q9999\r\n"; },
         "bnohr.dat line 12000", CheckMode::AnyDatabase},
        {"planted rule gone", "bnohr.dat",
         [](std::string s) { return replaced(s, "EU903 XXXXX", "EU903 A0000"); },
         "no planted rule \"EU903 XXXXX\""},
        {"flag that is not 0 or 1", "tamttt.dat",
         [](std::string s) { return replaced(s, ";1010000000;", ";10100000x0;"); }, "tamttt.dat line",
         CheckMode::AnyDatabase},
        {"drug key twice", "tamttt.dat", [](std::string s) { return s + s.substr(0, s.find('\n') + 1); },
         "twice"},
        {"qualification of 4 digits", "szvhr.dat",
         [](std::string s) { return replaced(s, ",00401;", ",0401;"); }, "szvhr.dat line",
         CheckMode::AnyDatabase},
        {"empty dosage line", "DsListT.txt", [](std::string s) { return "\r\n" + s; }, "DsListT.txt line 0"},
    };
    ScratchDirectory pristine;
    ASSERT_TRUE(generateDatabase(pristine.path(), {120, 5}));
    ASSERT_TRUE(checkDatabase(pristine.path()).empty());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ScratchDirectory directory;
        // File by file: copying the folder into an existing one fails under Windows' runtime.
        for (const auto& file : std::filesystem::directory_iterator(pristine.path()))
            std::filesystem::copy_file(file.path(), directory.path() / file.path().filename());
        if (c.damage)
            directory.write(c.file, c.damage(directory.read(c.file)));
        else
            directory.remove(c.file);
        const auto problems = checkDatabase(directory.path(), c.mode);
        bool named = false;
        for (const std::string& problem : problems) named = named || contains(problem, c.expected);
        EXPECT_EQ(named, c.reported) << (problems.empty() ? "no problem" : problems.front());
    }
}

}  // namespace
}  // namespace rovanel

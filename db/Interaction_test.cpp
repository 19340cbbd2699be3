#include "db/Interaction.h"

#include <gtest/gtest.h>

#include <numeric>

#include "db/Cp1250.h"
#include "db/SharedState.h"
#include "db/StartupTables.h"
#include "tests/support/EngineDatabase.h"

namespace rovanel
{
namespace
{

using testing::EngineDatabase;
using testing::EngineProduct;
using testing::ScratchDirectory;

std::string cp(const char* utf8) { return utf8ToCp1250(utf8); }
std::string header() { return cp("Kölcsönhatások és ellenjavallatok vizsgálatának eredménye:\n\n"); }

struct Fixture {
    ScratchDirectory directory;
    SharedState state;

    explicit Fixture(const EngineDatabase& database) { state.tables = database.load(directory); }
    // KhRun on the interaction window's selection of the drugs `taken`.
    KhRunResult run(const std::vector<int>& taken, KhMode mode = KhMode::Check, std::int64_t node = -1)
    {
        take(taken);
        return KhRun(state, mode, node);
    }
    void take(const std::vector<int>& records)
    {
        state.selection.resetForInteractionWindow();
        for (int record : records) (void)state.selection.addDrug(record);
    }
    void contraindicate(std::initializer_list<int> nodes)
    {
        state.selection.clearContraindications();
        for (int node : nodes) (void)state.selection.addContraindication(node);
    }
};

EngineDatabase basicDatabase()
{
    EngineDatabase database;
    database.atcGroups = {{"C", "Szív és érrendszer"},
                          {"C08", "Kalciumcsatorna-blokkolók"},
                          {"C08C", "Szelektív kalciumcsatorna-blokkolók"},
                          {"N", "Idegrendszer"}};
    database.contraindications = {{"E01", "Terhesség"}, {"E0101", "Első trimeszter"}, {"E02", "Szoptatás"}};
    database.products = {
        {"C08CA-0101", "ALFA 5 MG TABLETTA 30X", {"C08CA-01"}, {"N05"}, {}, {"E0101"}},
        {"N05BA-0101", "BÉTA 10 MG TABLETTA 20X", {"N05BA-01"}, {}, {"C08CA-01"}, {}},
        {"N06AB-0101", "GAMMA 20 MG KAPSZULA 28X", {"N06AB-01"}, {}, {}, {"E02"}},
    };
    return database;
}

TEST(KhRunCheck, ReportsCarefulAndAvoidFindingsInSelectionOrderWithTheirTexts)
{
    Fixture fixture(basicDatabase());
    const KhRunResult result = fixture.run({0, 1, 2});
    ASSERT_TRUE(result.completed);
    // ALFA's careful "N05" (3 characters: a class looked up by four characters, "N05" is not a group, so
    // no name) meets BÉTA's own code; BÉTA's avoid code "C08CA-01" (8 characters: no class name) meets ALFA.
    const std::string expected = header() + cp("ALFA 5 MG TABLETTA 30X és BÉTA 10 MG TABLETTA 20X : \n\n ") +
                                 cp("Óvatosan adhatók együtt!") + "\n\n" +
                                 cp("BÉTA 10 MG TABLETTA 20X és ALFA 5 MG TABLETTA 30X : \n\n ") +
                                 cp("Együttadásuk kerülendő!") + "\n\n";
    EXPECT_EQ(result.report, expected);
    EXPECT_EQ(fixture.state.selection.KhResult, expected);
    EXPECT_EQ(fixture.state.selection.KhResultValid, 1);
    EXPECT_TRUE(result.messages.empty());
    // The drugs concerned, in selection order; GAMMA is in no finding.
    const std::vector<FoundDrug> concerned = {{0, 0}, {1, 0}};
    EXPECT_EQ(result.found, concerned);
    EXPECT_EQ(fixture.state.found.entries(), concerned);
    EXPECT_EQ(result.listLines,
              (std::vector<std::string>{cp("ALFA 5 MG TABLETTA 30X"), cp("BÉTA 10 MG TABLETTA 20X")}));
}

TEST(KhRunCheck, ShortCodeNamesItsClassByTheFirstFourCharacters)
{
    EngineDatabase database = basicDatabase();
    // "C08CA" (5 characters) agrees with group "C08C" in four characters: the broader class is named.
    database.products[1].avoid = {"C08CA"};
    database.products[1].name = "BÉTA HOSSZÚ NEVŰ KÉSZÍTMÉNY 10 MG FILMTABLETTA 100X";
    Fixture fixture(database);
    const KhRunResult result = fixture.run({1, 0});
    // Names together longer than 60 characters: the finding goes on the next line.
    const std::string finding =
        cp("BÉTA HOSSZÚ NEVŰ KÉSZÍTMÉNY 10 MG FILMTABLETTA 1") +
        cp(" és ALFA 5 MG TABLETTA 30X\n( Szelektív kalciumcsatorna-blokkolók )\n\n ") +
        cp("Együttadásuk kerülendő!") + "\n\n";
    EXPECT_NE(result.report.find(finding), std::string::npos) << cp1250ToUtf8(result.report);
}

TEST(KhRunCheck, PairIsReportedOnceForEveryMatchingCodeAndPrefixesMatchOneWayOnly)
{
    EngineDatabase database = basicDatabase();
    database.products[0].careful = {"N05", "N05BA-01", "N05BA-01X", "N"};  // the third is longer: no match
    database.products[1].avoid = {};
    database.products[1].own = {"N05BA-01", "N05BB-02"};  // "N05" and "N" match both
    Fixture fixture(database);
    const KhRunResult result = fixture.run({0, 1});
    std::size_t findings = 0;
    for (std::size_t at = 0;
         (at = result.report.find(cp("Óvatosan adhatók együtt!"), at)) != std::string::npos; ++at)
        ++findings;
    EXPECT_EQ(findings, 5u);  // N05 x2, N05BA-01 x1, N x2
}

// A database marked without interaction data says so instead of "nothing found".
TEST(KhRunCheck, NothingFoundShowsAndAppendsEntry93)
{
    const struct {
        const char* rvIni;
        std::string text;
    } cases[] = {
        {"", cp("A vizsgálat nem talált kölcsönhatást és ellenjavallatot.")},
        {"[Rovanel Beallitasok]\r\nKolcsonhatasiAdat=NINCS\r\n",
         cp("Ebben az adatbázisban nincsenek kölcsönhatási és ellenjavallati adatok: a vizsgálat nem "
            "talált semmit, de ez nem jelenti, hogy a gyógyszerek együtt adhatók.")},
    };
    EngineDatabase database = basicDatabase();
    database.products[0].careful.clear();
    database.products[1].avoid.clear();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rvIni);
        Fixture fixture(database);
        if (*c.rvIni) fixture.directory.write("RV.INI", c.rvIni);
        const KhRunResult result = fixture.run({0, 1});
        EXPECT_TRUE(result.completed);
        EXPECT_EQ(result.report, header() + c.text);
        ASSERT_EQ(result.messages.size(), 1u);
        EXPECT_EQ(result.messages[0],
                  (Message{c.text, cp("Kölcsönhatás vizsgálat"), MessageIcon::Information, true}));
        EXPECT_TRUE(result.found.empty());
    }
}

TEST(KhRunCheck, ContraindicationsMatchOverTheShorterLength)
{
    EngineDatabase database = basicDatabase();
    database.products[0].careful.clear();
    database.products[1].avoid.clear();
    Fixture fixture(database);
    fixture.contraindicate({0, 2});  // E01 (group of ALFA's E0101) and E02 (GAMMA's)
    const KhRunResult result = fixture.run({0, 1, 2});
    const std::string expected = header() +
                                 cp("ALFA 5 MG TABLETTA 30X ellenjavallata:\n\n ( E01 - Terhesség )\n\n") +
                                 cp("GAMMA 20 MG KAPSZULA 28X ellenjavallata:\n\n ( E02 - Szoptatás )\n\n");
    EXPECT_EQ(result.report, expected);
    EXPECT_TRUE(result.messages.empty());
    EXPECT_EQ(result.found, (std::vector<FoundDrug>{{0, 0}, {2, 0}}));
}

TEST(KhRunCheck, NegativeSlotsAreSkippedAndAMissingFileEndsTheRunSilentlyAndLeavesTheTable)
{
    Fixture fixture(basicDatabase());
    fixture.take({0, 1});
    fixture.state.selection.resetSlotsForSideEffectWindow();  // count stays 2, slots -1
    KhRunResult result = KhRun(fixture.state, KhMode::Check, -1);
    EXPECT_TRUE(result.completed);
    EXPECT_TRUE(result.report.empty()) << "no drug, no report";
    EXPECT_TRUE(result.messages.empty());

    fixture.directory.remove("atcnrend.dat");
    fixture.state.found.assign({{4, 0}});
    result = fixture.run({0, 1});
    EXPECT_FALSE(result.completed);
    EXPECT_FALSE(result.filesOpened);
    EXPECT_TRUE(result.messages.empty());
    EXPECT_EQ(fixture.state.found.entries(), (std::vector<FoundDrug>{{4, 0}}));
}

std::vector<std::string> codes(const std::string& stem, int count)
{
    std::vector<std::string> list;
    for (int i = 0; i < count; ++i) list.push_back(stem + std::to_string(100 + i));
    return list;
}

TEST(KhRunCheck, EveryLimitStopsTheRunWithItsMessage)
{
    struct Case {
        const char* what;
        std::vector<int> carefulPerDrug, avoidPerDrug;
        std::string longCareful, longAvoid;
        std::optional<Message> expected;
    };
    const std::string caption81 = cp("Kölcsönhatás vizsgálat");
    const auto stop = [&](const char* text, const std::string& caption, bool careful) {
        return std::optional<Message>(Message{cp(text), caption, MessageIcon::Stop, careful});
    };
    const auto tooLong = "Hibás kód a gyógyszer leírásában: a kódsor 10 karakternél hosszabb.";
    const auto careful101 =
        stop("Egy gyógyszernél 100-nál több óvatossági kód van, a vizsgálat leáll.", caption81, true);
    const auto careful401 = stop(
        "A szedett gyógyszerek óvatossági kódjai 400-nál többen vannak, a vizsgálat leáll.", caption81, true);
    const auto avoid101 =
        stop("Egy gyógyszernél 100-nál több kerülendő kód van, a vizsgálat leáll.", "Z0200", false);
    const auto avoid401 = stop(
        "A szedett gyógyszerek kerülendő kódjai 400-nál többen vannak, a vizsgálat leáll.", caption81, false);
    const Case cases[] = {
        {"100 careful codes in one drug", {100}, {}, "", "", std::nullopt},
        {"101 careful codes in one drug", {101}, {}, "", "", careful101},
        {"400 pooled careful codes", {100, 100, 100, 100}, {}, "", "", std::nullopt},
        {"401 pooled careful codes", {100, 100, 100, 100, 1}, {}, "", "", careful401},
        {"100 avoid codes in one drug", {}, {100}, "", "", std::nullopt},
        {"101 avoid codes in one drug", {}, {101}, "", "", avoid101},
        {"401 pooled avoid codes", {}, {100, 100, 100, 100, 1}, "", "", avoid401},
        {"careful code of 10 characters", {}, {}, "Z012345678", "", std::nullopt},
        {"careful code of 11 characters", {}, {}, "Z0123456789", "", stop(tooLong, "Z0123456789", true)},
        {"avoid code of 11 characters", {}, {}, "", "Y0123456789", stop(tooLong, "Y0123456789", false)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EngineDatabase database = basicDatabase();
        database.products.clear();
        const std::size_t drugs = std::max({c.carefulPerDrug.size(), c.avoidPerDrug.size(), std::size_t{1}});
        for (std::size_t i = 0; i < drugs; ++i) {
            EngineProduct product{
                "Q01AA-01" + std::to_string(10 + i), "DRUG " + std::to_string(i), {"Q01AA-01"}};
            if (i < c.carefulPerDrug.size()) product.careful = codes("Z0", c.carefulPerDrug[i]);
            if (i < c.avoidPerDrug.size()) product.avoid = codes("Z0", c.avoidPerDrug[i]);
            if (i == 0 && !c.longCareful.empty()) product.careful.push_back(c.longCareful);
            if (i == 0 && !c.longAvoid.empty()) product.avoid.push_back(c.longAvoid);
            database.products.push_back(product);
        }
        Fixture fixture(database);
        std::vector<int> taken(drugs);
        std::iota(taken.begin(), taken.end(), 0);
        const KhRunResult result = fixture.run(taken);
        if (c.expected) {
            EXPECT_FALSE(result.completed);
            ASSERT_EQ(result.messages.size(), 1u);
            EXPECT_EQ(result.messages[0], *c.expected);
            EXPECT_TRUE(result.report.empty());
            EXPECT_TRUE(fixture.state.found.entries().empty());
        } else {
            EXPECT_TRUE(result.completed);
            // Nothing matches: the only message is "nothing found".
            ASSERT_EQ(result.messages.size(), 1u);
            EXPECT_EQ(result.messages[0].text,
                      cp("A vizsgálat nem talált kölcsönhatást és ellenjavallatot."));
        }
    }
}

EngineDatabase groupDatabase(int groupSize)
{
    EngineDatabase database;
    database.atcGroups = {{"C", "Szív"}, {"C08", "Kalciumcsatorna-blokkolók"}, {"N", "Idegrendszer"}};
    database.contraindications = {{"E01", "Terhesség"}};
    for (int i = 0; i < groupSize; ++i) {
        char code[24];
        std::snprintf(code, sizeof code, "C08CA-%04d", i);
        char name[40];
        std::snprintf(name, sizeof name, "TERMÉK %04d", groupSize - i);  // reverse of record order
        database.products.push_back({code, name, {std::string(code).substr(0, 8)}});
    }
    database.products.push_back({"N05BA-0101", "SZEDETT", {"N05BA-01"}});
    return database;
}

TEST(KhRunGroup, WithoutDrugsOrContraindicationsListsTheWholeGroupSortedWithTheTableInStep)
{
    EngineDatabase database = groupDatabase(3);
    database.products[0].supportLine =
        "30;0;0;7;1--;-;2;1;0^1@210751477#-$-*-[3]123456{0}0(0)-\xB3"
        "0@C08CA01";
    Fixture fixture(database);
    fixture.state.selection.clearContraindications();
    const KhRunResult result = fixture.run({}, KhMode::AtcGroup, 1);
    ASSERT_TRUE(result.completed);
    EXPECT_TRUE(result.messages.empty());
    EXPECT_TRUE(result.report.empty());
    EXPECT_EQ(result.listLines,
              (std::vector<std::string>{cp("TERMÉK 0001\t999999"), cp("TERMÉK 0002\t999999"),
                                        cp("TERMÉK 0003\t123456 -K 7")}));
    EXPECT_EQ(result.found, (std::vector<FoundDrug>{{2, 0}, {1, 0}, {0, 0}}));
    EXPECT_EQ(fixture.state.found.entries(), result.found);
}

TEST(KhRunGroup, DrugsTakenExcludeAndFlagAndContraindicationsExclude)
{
    EngineDatabase database = groupDatabase(5);
    EngineProduct& taken = database.products.back();  // record 5
    taken.careful = {"C08CA-0"};  // prefix of every group product's own code: all flagged ...
    taken.avoid = {"C08CA-02"};   // ... except what it excludes
    database.products[1].own = {"C08CA-01", "C07"};
    database.products[2].own = {"C08CA-02"};             // excluded by the avoid code
    database.products[3].contraindications = {"E0104"};  // excluded by the chosen group E01
    Fixture fixture(database);
    fixture.contraindicate({0});
    KhRunResult result = fixture.run({5}, KhMode::AtcGroup, 1);
    ASSERT_TRUE(result.completed);
    // One drug taken: the pairwise check runs and finds nothing.
    ASSERT_EQ(result.messages.size(), 1u);
    EXPECT_EQ(result.messages[0].text, cp("A vizsgálat nem talált kölcsönhatást és ellenjavallatot."));
    EXPECT_EQ(result.found, (std::vector<FoundDrug>{{4, 1}, {1, 1}, {0, 1}}));
    EXPECT_EQ(result.listLines[0], cp("TERMÉK 0001\t999999 !"));

    // A group product whose careful line is a prefix of an own code of the drug taken needs care too.
    database.products.back().careful.clear();
    database.products.back().avoid.clear();
    database.products[0].careful = {"N05B"};       // prefix of N05BA-01: care
    database.products[1].careful = {"N05BA-012"};  // longer than the own code: no care
    Fixture second(database);
    result = second.run({5}, KhMode::AtcGroup, 1);
    EXPECT_EQ(result.found, (std::vector<FoundDrug>{{4, 0}, {3, 0}, {2, 0}, {1, 0}, {0, 1}}));
}

// The listing ends at 600 products and at a careful line longer than 12 characters (11 are allowed
// here); a node outside the directory lists nothing.
TEST(KhRunGroup, StopsAt600AndAtALongCarefulLineAndListsNothingForANodeOutsideTheDirectory)
{
    const Message tooMany{cp("A csoportba 600-nál több gyógyszer tartozik, csak az első 600 látszik!"),
                          cp("Kölcsönhatás - ATC"), MessageIcon::Information, false};
    const Message badCode{cp("Hibás kód a gyógyszer leírásában: a kódsor 10 karakternél hosszabb."),
                          cp("Hibás adatbázis"), MessageIcon::Information, false};
    struct Case {
        const char* what;
        int groupSize;
        std::int64_t node;
        std::vector<std::string> careful;  // of records 1 and 2
        std::size_t listed;
        std::optional<Message> message;
    };
    const Case cases[] = {
        {"599 products", 599, 0, {}, 599, std::nullopt},
        {"600 products", 600, 0, {}, 600, tooMany},
        {"601 products", 601, 0, {}, 600, tooMany},
        {"careful lines of 11 characters", 3, 1, {"N05BA-01XYZ", "N05BA-01XYZ"}, 3, std::nullopt},
        {"a careful line of 13 characters", 3, 1, {"N05BA-01XYZ", "N05BA-01XYZW1"}, 0, badCode},
        {"node -1", 3, -1, {}, 0, std::nullopt},
        {"node past the directory", 3, 3, {}, 0, std::nullopt},
        {"node far past the directory", 3, 1'000'000, {}, 0, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EngineDatabase database = groupDatabase(c.groupSize);
        for (std::size_t i = 0; i < c.careful.size(); ++i) database.products[i + 1].careful = {c.careful[i]};
        Fixture fixture(database);
        const KhRunResult result = fixture.run({}, KhMode::AtcGroup, c.node);
        EXPECT_EQ(result.completed, !c.message);
        EXPECT_EQ(result.listLines.size(), c.listed);
        if (c.message != badCode) {
            EXPECT_EQ(result.found.size(), c.listed) << "the table in step with the lines";
        }
        EXPECT_EQ(result.messages, c.message ? std::vector<Message>{*c.message} : std::vector<Message>{});
    }
}

}  // namespace
}  // namespace rovanel

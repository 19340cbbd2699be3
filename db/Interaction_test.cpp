// The interaction engine (KhRun), the drug selection it reads and the side-effect and ingredient searches.
#include "db/Interaction.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/DrugSelection.h"
#include "db/FoundDrugs.h"
#include "db/Searches.h"
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
const std::string kCaption = cp("Kölcsönhatás vizsgálat");
const Message kNothingFound{cp("A vizsgálat nem talált kölcsönhatást és ellenjavallatot."), kCaption,
                            MessageIcon::Information, true};

std::vector<int> range(int from, int count)
{
    std::vector<int> records;
    for (int i = 0; i < count; ++i) records.push_back(from + i);
    return records;
}

// The interaction window's selection of the drugs `records`.
DrugSelection taking(const std::vector<int>& records)
{
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (int record : records) (void)selection.addDrug(record);
    return selection;
}

struct Fixture {
    ScratchDirectory directory;
    SharedState state;

    explicit Fixture(const EngineDatabase& database) { state.tables = database.load(directory); }
    // KhRun on the interaction window's selection of the drugs `taken` and the `contraindications`.
    KhRunResult run(const std::vector<int>& taken, KhMode mode = KhMode::Check, std::int64_t node = -1,
                    std::initializer_list<int> contraindications = {})
    {
        take(taken);
        state.selection.clearContraindications();
        for (int chosen : contraindications) (void)state.selection.addContraindication(chosen);
        return KhRun(state, mode, node);
    }
    void take(const std::vector<int>& records) { state.selection = taking(records); }
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
    const std::string expected =
        header() + cp("ALFA 5 MG TABLETTA 30X és BÉTA 10 MG TABLETTA 20X : \n\n Óvatosan adhatók együtt!\n\n"
                      "BÉTA 10 MG TABLETTA 20X és ALFA 5 MG TABLETTA 30X : \n\n Együttadásuk kerülendő!\n\n");
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

TEST(KhRunCheck, ShortCodeNamesItsClassByFourCharactersAndEveryMatchingCodeReportsThePairOnce)
{
    EngineDatabase database = basicDatabase();
    // "C08CA" (5 characters) agrees with group "C08C" in four characters: the broader class is named.
    database.products[1].avoid = {"C08CA"};
    database.products[1].name = "BÉTA HOSSZÚ NEVŰ KÉSZÍTMÉNY 10 MG FILMTABLETTA 100X";
    Fixture fixture(database);
    const KhRunResult result = fixture.run({1, 0});
    // Names together longer than 60 characters: the finding goes on the next line.
    const std::string finding =
        cp("BÉTA HOSSZÚ NEVŰ KÉSZÍTMÉNY 10 MG FILMTABLETTA 1 és ALFA 5 MG TABLETTA 30X\n"
           "( Szelektív kalciumcsatorna-blokkolók )\n\n Együttadásuk kerülendő!\n\n");
    EXPECT_NE(result.report.find(finding), std::string::npos) << cp1250ToUtf8(result.report);

    // A pair is reported once for every matching code, and prefixes match one way only.
    database = basicDatabase();
    database.products[0].careful = {"N05", "N05BA-01", "N05BA-01X", "N"};  // the third is longer: no match
    database.products[1].avoid = {};
    database.products[1].own = {"N05BA-01", "N05BB-02"};  // "N05" and "N" match both
    Fixture second(database);
    const KhRunResult pairs = second.run({0, 1});
    std::size_t findings = 0;
    for (std::size_t at = 0;
         (at = pairs.report.find(cp("Óvatosan adhatók együtt!"), at)) != std::string::npos; ++at)
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
        {"", kNothingFound.text},
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
        EXPECT_EQ(result.messages,
                  (std::vector<Message>{{c.text, kCaption, MessageIcon::Information, true}}));
        EXPECT_TRUE(result.found.empty());
    }
}

TEST(KhRunCheck, ContraindicationsMatchOverTheShorterLength)
{
    EngineDatabase database = basicDatabase();
    database.products[0].careful.clear();
    database.products[1].avoid.clear();
    Fixture fixture(database);
    // E01 (group of ALFA's E0101) and E02 (GAMMA's).
    const KhRunResult result = fixture.run({0, 1, 2}, KhMode::Check, -1, {0, 2});
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
        std::vector<int> carefulPerDrug, avoidPerDrug;  // the number of codes of each drug
        std::string longCareful, longAvoid;             // one more code of the first drug
        std::optional<Message> stop;                    // none: the run completes and finds nothing
    };
    const auto stop = [&](const char* text, const std::string& caption, bool careful) {
        return std::optional<Message>(Message{cp(text), caption, MessageIcon::Stop, careful});
    };
    const auto tooLong = "Hibás kód a gyógyszer leírásában: a kódsor 10 karakternél hosszabb.";
    const auto careful101 =
        stop("Egy gyógyszernél 100-nál több óvatossági kód van, a vizsgálat leáll.", kCaption, true);
    const auto careful401 = stop(
        "A szedett gyógyszerek óvatossági kódjai 400-nál többen vannak, a vizsgálat leáll.", kCaption, true);
    const auto avoid101 =
        stop("Egy gyógyszernél 100-nál több kerülendő kód van, a vizsgálat leáll.", "Z0200", false);
    const auto avoid401 = stop(
        "A szedett gyógyszerek kerülendő kódjai 400-nál többen vannak, a vizsgálat leáll.", kCaption, false);
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
        const KhRunResult result = fixture.run(range(0, static_cast<int>(drugs)));
        EXPECT_EQ(result.completed, !c.stop);
        EXPECT_EQ(result.messages, std::vector<Message>{c.stop.value_or(kNothingFound)});
        if (c.stop) {
            EXPECT_TRUE(result.report.empty());
            EXPECT_TRUE(fixture.state.found.entries().empty());
        }
    }
}

EngineDatabase groupDatabase(int groupSize)
{
    EngineDatabase database;
    database.atcGroups = {{"C", "Szív"}, {"C08", "Kalciumcsatorna-blokkolók"}, {"N", "Idegrendszer"}};
    database.contraindications = {{"E01", "Terhesség"}};
    const auto fourDigits = [](int number) { return std::to_string(10000 + number).substr(1); };
    for (int i = 0; i < groupSize; ++i) {
        const std::string code = "C08CA-" + fourDigits(i);
        // Names in the reverse of record order.
        database.products.push_back({code, "TERMÉK " + fourDigits(groupSize - i), {code.substr(0, 8)}});
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
    KhRunResult result = fixture.run({5}, KhMode::AtcGroup, 1, {0});
    ASSERT_TRUE(result.completed);
    // One drug taken: the pairwise check runs and finds nothing.
    EXPECT_EQ(result.messages, std::vector<Message>{kNothingFound});
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

const Message kTwentyDrugs{cp("Legföljebb 20 gyógyszer adható"), kCaption, MessageIcon::None, false};
const Message kTwentyContraindications{cp("Legföljebb 20 ellenjavallat adható meg"), kCaption,
                                       MessageIcon::None, false};
const Message kSelectLine{cp("Jelölje ki a listáról törlendő gyógyszert!"), kCaption, MessageIcon::None,
                          true};

TEST(DrugSelection, TwentyDrugsAreTakenTheSameOneTwiceChangesNothingAndThe21stIsRefused)
{
    DrugSelection selection = taking({100});
    selection.KhResultValid = 1;
    for (const int unchanged : {100, -1}) {  // the same drug again, and nothing chosen
        const SelectionChange change = selection.addDrug(unchanged);
        EXPECT_EQ(change.outcome, SelectionOutcome::Unchanged);
        EXPECT_FALSE(change.message);
    }
    EXPECT_EQ(selection.KhResultValid, 1) << "an unchanged list keeps the report";
    for (int record = 1; record < 20; ++record)
        EXPECT_EQ(selection.addDrug(100 + record).outcome, SelectionOutcome::Changed);
    EXPECT_EQ(selection.KhResultValid, 0);
    const SelectionChange refused = selection.addDrug(500);
    EXPECT_EQ(refused.outcome, SelectionOutcome::Refused);
    EXPECT_EQ(refused.message, kTwentyDrugs);
    EXPECT_EQ(selection.SzedettGyCount, 20);
    EXPECT_EQ(selection.SzedettGy[19], 119);
    EXPECT_EQ(selection.SzedettGy[20], -1);
}

TEST(DrugSelection, NodeZeroOnlyAfterTheFirstClearAndThe20thContraindicationIsRefusedSaying20)
{
    DrugSelection selection;
    EXPECT_EQ(selection.addContraindication(0).outcome, SelectionOutcome::Unchanged);
    EXPECT_EQ(selection.addContraindication(3).outcome, SelectionOutcome::Changed);
    // Slot 1, past the end, still holds 0.
    EXPECT_EQ(selection.addContraindication(0).outcome, SelectionOutcome::Unchanged);
    selection.clearContraindications();
    for (int node = 0; node < 19; ++node)
        EXPECT_EQ(selection.addContraindication(node).outcome, SelectionOutcome::Changed);
    EXPECT_EQ(selection.EllSel[19], -1);
    const SelectionChange refused = selection.addContraindication(40);
    EXPECT_EQ(refused.outcome, SelectionOutcome::Refused);
    EXPECT_EQ(refused.message, kTwentyContraindications);
    EXPECT_EQ(selection.EllSelCount, 19);
}

TEST(DrugSelection, DeletingMovesTheFollowingSlotsDownWithTheEndMarker)
{
    DrugSelection selection = taking({5, 6, 7});
    EXPECT_EQ(selection.deleteDrug(3, 0).outcome, SelectionOutcome::Changed);
    EXPECT_EQ(selection.SzedettGyCount, 2);
    EXPECT_EQ((std::vector<int>{selection.SzedettGy[0], selection.SzedettGy[1], selection.SzedettGy[2]}),
              (std::vector<int>{6, 7, -1}));
    (void)selection.deleteDrug(2, 1);
    (void)selection.deleteDrug(1, 0);
    EXPECT_EQ(selection.SzedettGyCount, 0);
    EXPECT_EQ(selection.SzedettGy[0], -1);
    // An empty list: nothing; no line selected: the message (it speaks of a drug for contraindications too).
    EXPECT_EQ(selection.deleteDrug(0, -1).outcome, SelectionOutcome::Unchanged);
    const SelectionChange noLine = selection.deleteContraindication(2, -1);
    EXPECT_EQ(noLine.outcome, SelectionOutcome::Refused);
    EXPECT_EQ(noLine.message, kSelectLine);
    EXPECT_EQ(selection.deleteDrug(1, -1).message, kSelectLine);
}

TEST(DrugSelection, SideEffectWindowResetsAll22SlotsButNotTheCount)
{
    DrugSelection selection = taking({5, 6});
    selection.SzedettGy[21] = 99;
    selection.resetSlotsForSideEffectWindow();
    EXPECT_EQ(selection.SzedettGyCount, 2);
    for (std::int32_t slot : selection.SzedettGy) EXPECT_EQ(slot, -1);
    // Adding goes on after the stale count; deleting and clearing still work.
    (void)selection.addDrug(5);
    EXPECT_EQ(selection.SzedettGy[2], 5);
    EXPECT_EQ(selection.SzedettGyCount, 3);
    (void)selection.deleteDrug(1, 0);
    EXPECT_EQ(selection.SzedettGyCount, 2);
    EXPECT_EQ(selection.SzedettGy[1], 5);
    // A row beyond the count (the two windows' lists disagree) never drives the count below 0.
    for (int times = 0; times < 3; ++times) (void)selection.deleteDrug(5, 4);
    EXPECT_EQ(selection.SzedettGyCount, 0);
    selection.clearDrugs();
    EXPECT_EQ(selection.SzedettGyCount, 0);
}

struct SearchFixture {
    ScratchDirectory directory;
    StartupTables tables;
    FoundDrugTable found;

    SearchFixture()
    {
        EngineDatabase database;
        for (int i = 0; i < 700; ++i)
            database.products.push_back({"A01AA-0" + std::to_string(100 + i), "P" + std::to_string(i)});
        database.sideEffects = {{"Fejfájás", range(0, 600)},
                                {"Hányás", range(0, 601)},
                                {"Semmi", {}},
                                {"Szédülés", {3, 5, 9, 5}}};
        database.ingredients = {
            {"amlodipin", range(0, 600)}, {"bizoprolol", range(50, 601)}, {"coffein", {}}};
        tables = database.load(directory);
        found.assign({{42, 0}});
    }
};

TEST(FillMhIdxList, ListsUpTo600AndKeepsThePreviousResultOver600OrForNone)
{
    SearchFixture fixture;
    SearchOutcome outcome = FillMhIdxList(fixture.tables, fixture.found, 0);
    EXPECT_FALSE(outcome.message);
    EXPECT_EQ(fixture.found.entries().size(), 600u);
    EXPECT_EQ(fixture.found.recordAt(599), 599);

    fixture.found.assign({{42, 0}});
    outcome = FillMhIdxList(fixture.tables, fixture.found, 1);
    EXPECT_FALSE(outcome.tableWritten);
    EXPECT_EQ(outcome.message, (Message{cp("Ehhez a mellékhatáshoz 600-nál több gyógyszer tartozik. Szűkítse "
                                           "a keresést a szedett gyógyszerekre!"),
                                        cp("Mellékhatás keresés"), MessageIcon::Information, false}));
    EXPECT_EQ(fixture.found.entries(), (std::vector<FoundDrug>{{42, 0}}));

    outcome = FillMhIdxList(fixture.tables, fixture.found, 2);
    EXPECT_EQ(outcome.message, (Message{cp("Ehhez a mellékhatáshoz nem tartozik gyógyszer."),
                                        cp("Mellékhatás keresés"), MessageIcon::Information, false}));
    EXPECT_EQ(fixture.found.entries(), (std::vector<FoundDrug>{{42, 0}}));
    EXPECT_EQ(foundDrugNames(fixture.tables, fixture.found), (std::vector<std::string>{"P42"}));
}

TEST(FillMhSpecIdxList2, KeepsOnlyTheDrugsTakenInFileOrderWithoutALimit)
{
    SearchFixture fixture;
    DrugSelection selection = taking({9, 5, 100});
    SearchOutcome outcome = FillMhSpecIdxList2(fixture.tables, selection, fixture.found, 3);
    EXPECT_FALSE(outcome.message);
    EXPECT_EQ(fixture.found.entries(), (std::vector<FoundDrug>{{5, 0}, {9, 0}, {5, 0}}));

    // 601 drugs cause it; no limit applies to the drugs taken.
    outcome = FillMhSpecIdxList2(fixture.tables, selection, fixture.found, 1);
    EXPECT_FALSE(outcome.message);
    EXPECT_EQ(fixture.found.entries().size(), 3u);

    selection.clearDrugs();
    (void)selection.addDrug(650);
    outcome = FillMhSpecIdxList2(fixture.tables, selection, fixture.found, 3);
    EXPECT_TRUE(fixture.found.entries().empty());
    EXPECT_EQ(outcome.message,
              (Message{cp("A szedett gyógyszerek közül egyik sem okozhatja ezt a mellékhatást."),
                       cp("Mellékhatás keresés"), MessageIcon::Information, false}));
}

TEST(HaKeres, Lists600WithoutAMessageAndStopsAtThe601st)
{
    SearchFixture fixture;
    SearchOutcome outcome = HaKeres(fixture.tables, fixture.found, 0);
    EXPECT_FALSE(outcome.message);
    EXPECT_EQ(fixture.found.entries().size(), 600u);

    // The message's text and empty caption are tst_Views's.
    outcome = HaKeres(fixture.tables, fixture.found, 1);
    EXPECT_TRUE(outcome.message);
    ASSERT_EQ(fixture.found.entries().size(), 600u);
    EXPECT_EQ(fixture.found.recordAt(0), 50);
    EXPECT_EQ(fixture.found.recordAt(599), 649);

    for (const std::int64_t ingredient : {2, -1, 99}) {
        EXPECT_FALSE(HaKeres(fixture.tables, fixture.found, ingredient).message) << ingredient;
        EXPECT_TRUE(fixture.found.entries().empty()) << ingredient;
    }
}

TEST(Searches, RecordNumbersOutsideTheNameListAreLeftOut)
{
    ScratchDirectory directory;
    EngineDatabase database;
    database.products = {{"A01AA-0101", "EGY"}, {"A01AA-0102", "KETTŐ"}};
    database.ingredients = {{"x", {1, 7, -3, 0}}};
    // The list file holds what the writer gave it, including the numbers past the products.
    const StartupTables tables = database.load(directory);
    FoundDrugTable found;
    (void)HaKeres(tables, found, 0);
    EXPECT_EQ(found.entries(), (std::vector<FoundDrug>{{1, 0}, {0, 0}}));
}

}  // namespace
}  // namespace rovanel

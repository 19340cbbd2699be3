#include "db/Searches.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/DrugSelection.h"
#include "db/FoundDrugs.h"
#include "db/StartupTables.h"
#include "tests/support/EngineDatabase.h"

namespace rovanel
{
namespace
{

using testing::EngineDatabase;
using testing::ScratchDirectory;

std::string cp(const char* utf8) { return utf8ToCp1250(utf8); }

std::vector<int> range(int from, int count)
{
    std::vector<int> records;
    for (int i = 0; i < count; ++i) records.push_back(from + i);
    return records;
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
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (int record : {9, 5, 100}) (void)selection.addDrug(record);
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

    outcome = HaKeres(fixture.tables, fixture.found, 1);
    ASSERT_TRUE(outcome.message);
    EXPECT_EQ(cp1250ToUtf8(outcome.message->text),
              "Túl sok gyógyszer tartozik ide, csak a lista eleje látszik!");
    EXPECT_EQ(outcome.message->caption, "");
    ASSERT_EQ(fixture.found.entries().size(), 600u);
    EXPECT_EQ(fixture.found.recordAt(0), 50);
    EXPECT_EQ(fixture.found.recordAt(599), 649);

    for (const std::int64_t ingredient : {std::int64_t{2}, std::int64_t{-1}, std::int64_t{99}}) {
        SCOPED_TRACE(ingredient);
        outcome = HaKeres(fixture.tables, fixture.found, ingredient);
        EXPECT_FALSE(outcome.message);
        EXPECT_TRUE(fixture.found.entries().empty());
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

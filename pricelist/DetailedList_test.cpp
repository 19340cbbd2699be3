#include "pricelist/DetailedList.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "db/Cp1250.h"
#include "db/MessageCatalog.h"
#include "db/StartupTables.h"
#include "tests/fixtures/Databases.h"

namespace rovanel
{
namespace
{

using testing::EngineDatabase;

using testing::detailedListProduct;

class DetailedListTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const EngineDatabase database = testing::detailedListDatabase();
        database.write(m_directory);
        m_tables = loadStartupTables(m_directory.path(), m_directory.path() / "no-user.ini");
    }

    static std::vector<std::string> names(const DetailedList& list)
    {
        std::vector<std::string> result;
        for (const DetailedRow& row : list.rows()) result.push_back(row.cells[0]);
        return result;
    }

    static int rowOf(const DetailedList& list, const std::string& name)
    {
        for (std::size_t i = 0; i < list.rows().size(); ++i)
            if (list.rows()[i].cells[0] == name) return static_cast<int>(i);
        return -1;
    }

    static std::vector<std::string> texts(const FillOutcome& outcome)
    {
        std::vector<std::string> result;
        for (const Message& message : outcome.messages) result.push_back(cp1250ToUtf8(message.text));
        return result;
    }

    testing::ScratchDirectory m_directory;
    StartupTables m_tables;
};

TEST_F(DetailedListTest, PlainFillSortsByTheDailyCostOfTheGroupSeen)
{
    DetailedList list(m_tables);
    const FillOutcome outcome = list.bFillSameAtc("C08CA-01", ListingMode::Plain);
    EXPECT_TRUE(outcome.changed);
    EXPECT_TRUE(outcome.messages.empty());
    EXPECT_EQ(names(list), (std::vector<std::string>{"GAMMA 5 MG", "DELTA 5 MG", "ALFA 5 MG", "BETA 5 MG"}));
    EXPECT_EQ(list.sortColumn(), 4);
    EXPECT_EQ(list.columnCaption(4), "*NK alap*");
    EXPECT_TRUE(list.fixedGroupButtonEnabled(SupportKind::Normative));
    EXPECT_FALSE(list.fixedGroupButtonEnabled(SupportKind::Increased));
    EXPECT_EQ(cp1250ToUtf8(list.fixedGroupButtonCaption(SupportKind::Normative)),
              "Normatív TFX azonosak listázása");
    EXPECT_EQ(list.fixedGroupButtonCaption(SupportKind::Highlighted), "TfxTerment");
    EXPECT_EQ(list.lastReadCode(), "C08CA-0103");
    // The stars move with the sort column; the same header twice sorts the same way.
    EXPECT_FALSE(list.RefLstColumnClick(1));
    const auto once = names(list);
    EXPECT_FALSE(list.RefLstColumnClick(1));
    EXPECT_EQ(names(list), once);
    EXPECT_EQ(list.columnCaption(1), "*Teljes \xE1r*");
    EXPECT_EQ(list.columnCaption(4), "NK alap");
    EXPECT_EQ(cp1250ToUtf8(list.RefLstColumnClick(22).value_or(Message{}).text),
              "'-' nem érvényes egész szám");
    // Empty columns and the internal identifiers are hidden.
    EXPECT_EQ(outcome.hiddenColumns, (std::vector<int>{7,  8,  9,  10, 11, 12, 13, 14, 15, 16,
                                                       18, 19, 21, 24, 26, 28, 29, 30, 31, 32}));
}

TEST_F(DetailedListTest, NormativeListingShowsTheSelectedRowsGroupAcrossTheBroaderGroupOrNeedsARow)
{
    DetailedList list(m_tables);
    (void)list.bFillSameAtc("C08CA-01", ListingMode::Plain);
    const FillOutcome outcome = list.fixedGroupClick(SupportKind::Normative, rowOf(list, "ALFA 5 MG"));
    EXPECT_TRUE(outcome.messages.empty());
    EXPECT_EQ(names(list), (std::vector<std::string>{"ALFA 5 MG", "EPSZILON 5 MG", "BETA 5 MG"}));
    EXPECT_EQ(list.currentCode(), "C08CA-01");
    // After a fixed-group listing the buttons are disabled although the rows form a group.
    for (SupportKind kind : {SupportKind::Normative, SupportKind::Increased, SupportKind::Highlighted})
        EXPECT_FALSE(list.fixedGroupButtonEnabled(kind));
    EXPECT_EQ(list.fixedGroups().storedIds, (std::array<std::string, 3>{}));

    // A row whose id begins with zero lists the products without a group.
    (void)list.bFillSameAtc("C08CA-01", ListingMode::Plain);
    (void)list.fixedGroupClick(SupportKind::Normative, rowOf(list, "DELTA 5 MG"));
    EXPECT_EQ(names(list), (std::vector<std::string>{"GAMMA 5 MG", "ZETA 5 MG", "ETA 5 MG"}));

    // The button needs a selected row and a full code.
    (void)list.bFillSameAtc("C08CA-01", ListingMode::Plain);
    const auto before = names(list);
    EXPECT_EQ(texts(list.fixedGroupClick(SupportKind::Normative, -1)),
              (std::vector<std::string>{"Jelöljön ki egy készítményt az alsó listából"}));
    EXPECT_EQ(names(list), before);
    EXPECT_TRUE(list.fixedGroupButtonEnabled(SupportKind::Normative));

    (void)list.bFillSameAtc("C08CA-", ListingMode::Plain);
    const auto broader = names(list);
    const FillOutcome unchanged = list.fixedGroupClick(SupportKind::Normative, 0);
    EXPECT_TRUE(unchanged.messages.empty());
    EXPECT_FALSE(unchanged.changed);
    EXPECT_EQ(names(list), broader);
}

TEST_F(DetailedListTest, EmptyGroupsSayNincsIlyen)
{
    // What the code is, the code, whether TT packages are hidden, and the rows left.
    using Case = std::tuple<const char*, const char*, bool, std::size_t>;
    const Case cases[] = {
        {"group without products keeps the old rows", "N", false, 4},
        {"code that is no group keeps the old rows", "Q99", false, 4},
        {"every package TT and hidden empties the list", "C08CB-01", true, 0},
    };
    for (const auto& [what, code, hide, rows] : cases) {
        SCOPED_TRACE(what);
        DetailedList list(m_tables);
        (void)list.bFillSameAtc("C08CA-01", ListingMode::Plain);
        list.setHideDeleted(hide);
        EXPECT_EQ(texts(list.bFillSameAtc(code, ListingMode::Plain)),
                  (std::vector<std::string>{"Nincs ilyen,vagy minden kiszer. TT"}));
        EXPECT_EQ(list.rows().size(), rows);
    }
    DetailedList shown(m_tables);
    EXPECT_TRUE(shown.bFillSameAtc("C08CB-01", ListingMode::Plain).messages.empty());
    EXPECT_EQ(names(shown), (std::vector<std::string>{"THETA 5 MG"}));
}

TEST(DetailedListLimit, The601stEntryIsTheLastAndSaysSo)
{
    // The group, its products, the rows listed, and whether the list says it is cut.
    const std::tuple<const char*, int, std::size_t, bool> cases[] = {
        {"A", 600, 600, false}, {"B", 601, 601, true}, {"D", 602, 601, true}};
    const Message tooMany{
        utf8ToCp1250("A csoportba 600-nál több kiszerelés tartozik, csak az első 601 látszik!"),
        utf8ToCp1250("Részletes lista"), MessageIcon::Information, true};
    EngineDatabase database;
    for (const auto& [group, products, rows, cut] : cases) {
        database.atcGroups.emplace_back(group, group);
        for (int i = 0; i < products; ++i) {
            char code[16];
            std::snprintf(code, sizeof code, "%s%09d", group, i);
            database.products.push_back(detailedListProduct(code, code, "155", "0", "100\r\n0"));
        }
    }
    testing::ScratchDirectory directory;
    database.write(directory);
    const StartupTables tables = loadStartupTables(directory.path(), directory.path() / "no-user.ini");
    for (const auto& [group, products, rows, cut] : cases) {
        SCOPED_TRACE(group);
        DetailedList list(tables);
        const FillOutcome outcome = list.bFillSameAtc(group, ListingMode::Plain);
        EXPECT_EQ(list.rows().size(), rows);
        EXPECT_EQ(outcome.messages, cut ? std::vector<Message>{tooMany} : std::vector<Message>{});
    }
}

}  // namespace
}  // namespace rovanel

#include "certs/SpecialistRecommendation.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/TextList.h"
#include "tests/support/EngineDatabase.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

using testing::nameFileLine;

struct Fixture {
    testing::ScratchDirectory directory;
    TextList groups;
    Fixture()
    {
        for (const char* code : {"C", "C08", "C08CA-", "C08CA-01"}) groups.push_back(code);
        directory.write("atcnrend.dat", nameFileLine("Szív") + nameFileLine("Kalciumcsatorna-blokkolók") +
                                            nameFileLine("Dihidropiridinek") + nameFileLine("amlodipin"));
    }
    std::optional<Message> fill(RecommendationGrids& grids, const std::string& titleText,
                                const std::string& atc = "C08CA01")
    {
        RecommendationHandover handover;
        handover.bno = "I1000";
        handover.titleText = titleText;
        handover.atcCode = atc;
        handover.patientName = utf8ToCp1250("Kiss Éva");
        handover.taj = "123456789";
        return fillRecommendation(grids, handover, directory.path(), groups, directory.path() / "beteg.ini");
    }
};

std::vector<std::string> row(const RecommendationGrids& grids, std::size_t index)
{
    std::vector<std::string> cells;
    for (const std::string& cell : grids.gg[index]) cells.push_back(cp1250ToUtf8(cell));
    return cells;
}

TEST(SpecialistRecommendation, FillTakesTheSupportFieldsFromTheTitleText)
{
    // What the title text holds, the title text, the ATC code, and the drug line's cells joined by '|'.
    using Case = std::tuple<const char*, std::string, std::string, std::string>;
    const std::string todo = "KITÖLTENDŐ|KITÖLTENDŐ|KITÖLTENDŐ|";  // strength, route, dosage
    const Case cases[] = {
        {"increased support: rate and indication number", "90%  EÜ12345678", "C08CA01",
         "I1000|amlodipin|" + todo + "90%|EÜ12345678||KITÖLTENDŐ"},
        {"highlighted support: 100%", "100% K123456789012", "C08CA01",
         "I1000|amlodipin|" + todo + "||K123456789|KITÖLTENDŐ"},
        {"a short title text", "50%", "C08", "I1000|Kalciumcsatorna-blokkolók|" + todo + "50%|||KITÖLTENDŐ"},
        {"an unknown ATC code", "", "X99", "I1000|a hatoanyag|" + todo + "|||KITÖLTENDŐ"},
    };
    for (const auto& [what, titleText, atc, expected] : cases) {
        SCOPED_TRACE(what);
        Fixture fixture;
        RecommendationGrids grids;
        EXPECT_FALSE(fixture.fill(grids, utf8ToCp1250(titleText), atc));
        std::string line;
        for (const std::string& cell : row(grids, 1)) line += (line.empty() ? "" : "|") + cell;
        EXPECT_EQ(line, expected);
        EXPECT_EQ(row(grids, 2), std::vector<std::string>(9));
    }
}

TEST(SpecialistRecommendation, HeadingsPhysicianValuesOrKitoltendoAndNineDrugLinesAtMost)
{
    Fixture fixture;
    RecommendationGrids grids;
    ASSERT_FALSE(fixture.fill(grids, "90%  EU1"));
    EXPECT_EQ(row(grids, 0), (std::vector<std::string>{"I1000", "Hatóanyag", "Hatáserősség", "Bevitel módja",
                                                       "Adagolás", "Emelt tám. mértéke", "Emelt ind. sorszám",
                                                       "Kiemelt ind. sorszám", "Javaslat időtartama"}));
    const char* const patient[] = {"Beteg", "Irsz. hely", "utca", "Szül. ideje", "TAJ", ""};
    const char* const physician[] = {"Orvos", "Mh. irsz. hely", "Mh.utca", "Mh tel.", "működési eng.", ""};
    for (std::size_t r = 0; r < 6; ++r) {
        EXPECT_EQ(cp1250ToUtf8(grids.bg[r][0]), patient[r]);
        EXPECT_EQ(cp1250ToUtf8(grids.og[r][0]), physician[r]);
    }
    EXPECT_EQ(cp1250ToUtf8(grids.bg[0][1]), "Kiss Éva");
    EXPECT_EQ(cp1250ToUtf8(grids.bg[1][1]), "KITÖLTENDŐ");
    for (std::size_t r = 0; r < 5; ++r) EXPECT_EQ(cp1250ToUtf8(grids.og[r][1]), "KITÖLTENDŐ");

    fixture.directory.write("beteg.ini", "[BetegAdatok]\nOrvosNeve=Dr. Szabo\nOrvosMukEng=54321\n");
    ASSERT_FALSE(fixture.fill(grids, "90%  EU1"));
    EXPECT_EQ(cp1250ToUtf8(grids.og[0][1]), "Dr. Szabo");
    EXPECT_EQ(cp1250ToUtf8(grids.og[3][1]), "KITÖLTENDŐ");
    EXPECT_EQ(cp1250ToUtf8(grids.og[4][1]), "54321");
    EXPECT_EQ(row(grids, 2)[0], "I1000");  // a second fill adds a second line

    writeRecommendationHeadings(grids, "");
    EXPECT_EQ(cp1250ToUtf8(grids.gg[0][0]), "Üres BNO");

    // A full grid takes no tenth line; a missing name file adds none.
    for (int i = 2; i < 12; ++i) ASSERT_FALSE(fixture.fill(grids, "90%  EU" + std::to_string(i)));
    EXPECT_EQ(row(grids, 9)[6], "EU8");

    fixture.directory.remove("atcnrend.dat");
    RecommendationGrids empty;
    const auto refused = fixture.fill(empty, "90%  EU1");
    ASSERT_TRUE(refused);
    EXPECT_EQ(cp1250ToUtf8(refused->text), "ATC file nyitás hiba.");
    EXPECT_EQ(cp1250ToUtf8(refused->caption), "Szakorvosi javaslat készítése");
    EXPECT_EQ(row(empty, 1), std::vector<std::string>(9));
}

TEST(SpecialistRecommendation, RowOperations)
{
    // The heading line and the drug lines given by their first cells (the second is the first + "-ha"),
    // and after the operation all lines' two cells up to the last line that is not empty.
    const auto grid = [](std::initializer_list<const char*> firstCells) {
        RecommendationGrids grids;
        grids.gg[0][0] = "BNO";
        std::size_t r = 1;
        for (const char* cell : firstCells)
            grids.gg[r][0] = cell, grids.gg[r++][1] = std::string(cell) + "-ha";
        return grids;
    };
    const auto lines = [](const RecommendationGrids& grids) {
        std::string text;
        for (const auto& line : grids.gg) text += (text.empty() ? "" : " ") + line[0] + "|" + line[1];
        while (text.ends_with(" |")) text.resize(text.size() - 2);
        return text;
    };
    struct Case {
        const char* what;
        RecommendationGrids grids;
        void (*operation)(RecommendationGrids&);
        const char* expected;
    };
    const Case cases[] = {
        {"first line deleted, the rest move up", grid({"A", "B", "C"}), deleteFirstDrugLine,
         "BNO| B|B-ha C|C-ha"},
        {"first line deleted from a full grid", grid({"A", "B", "C", "D", "E", "F", "G", "H", "I"}),
         deleteFirstDrugLine, "BNO| B|B-ha C|C-ha D|D-ha E|E-ha F|F-ha G|G-ha H|H-ha I|I-ha"},
        {"last line deleted", grid({"A", "B", "C"}), deleteLastDrugLine, "BNO| A|A-ha B|B-ha"},
        {"last line of a full grid deleted", grid({"A", "B", "C", "D", "E", "F", "G", "H", "I"}),
         deleteLastDrugLine, "BNO| A|A-ha B|B-ha C|C-ha D|D-ha E|E-ha F|F-ha G|G-ha H|H-ha"},
        {"no line: the heading stays", grid({}), deleteLastDrugLine, "BNO|"},
        {"a line with an empty first cell ends the lines", grid({"A", "", "C"}), deleteLastDrugLine,
         "BNO| | |-ha C|C-ha"},
    };
    for (Case c : cases) {
        SCOPED_TRACE(c.what);
        c.operation(c.grids);
        EXPECT_EQ(lines(c.grids), c.expected);
    }
}

TEST(RecommendationLayout, ThreeDrugLinesAPageAndTheBlocksOnEveryPage)
{
    Fixture fixture;
    RecommendationGrids grids;
    for (int i = 0; i < 4; ++i) ASSERT_FALSE(fixture.fill(grids, "90%  EU" + std::to_string(i)));
    const PrintLayout layout = recommendationLayout(grids, "2026.11.23.");
    EXPECT_EQ(layout.name, "TQRf");
    ASSERT_EQ(layout.pages.size(), 2u);
    const auto itemOn = [&layout](std::size_t page, std::string_view name) -> const PrintItem& {
        for (const PrintItem& item : layout.pages[page].items)
            if (item.name == name) return item;
        throw std::runtime_error(std::string(name));
    };
    EXPECT_EQ(itemOn(0, "tkp1").text, "EU0");
    EXPECT_EQ(itemOn(0, "tkp3").text, "EU2");
    EXPECT_EQ(itemOn(1, "tkp1").text, "EU3");
    EXPECT_EQ(itemOn(1, "tkp2").text, "");
    EXPECT_EQ(cp1250ToUtf8(itemOn(1, "Betnev").text), "Kiss Éva");
    EXPECT_EQ(itemOn(1, "BetTaj").text, "123456789");
    EXPECT_EQ(itemOn(0, "Datum").text, "2026.11.23.");
    EXPECT_EQ(cp1250ToUtf8(itemOn(0, "Cim").text),
              "Szakorvosi javaslat támogatással történő gyógyszerrendeléshez");
    EXPECT_EQ(itemOn(0, "bno2").top - itemOn(0, "bno1").top, 25);
    EXPECT_EQ(recommendationLayout(RecommendationGrids{}, "").pages.size(), 1u);
}

}  // namespace
}  // namespace rovanel

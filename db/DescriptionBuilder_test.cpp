// A product's description, its same-ATC levels and list, and the price figures both read.
#include "db/DescriptionBuilder.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/ProductPrice.h"
#include "db/SameAtc.h"
#include "db/StartupTables.h"
#include "db/StyledDocument.h"
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

// The six-product database, written and loaded; a test may change it and load it again.
class DescriptionBuilder : public ::testing::Test
{
protected:
    std::vector<std::int32_t> listed(std::string_view code, std::size_t length, SameAtcOrder order, bool hide)
    {
        return records(sameAtcProducts(tables, code, length, order, hide));
    }
    // The plain text of product `record`'s description; `built` tells whether it was built.
    std::string describe(ProductRecord record)
    {
        const Description description = buildDescription(tables, record);
        built = description.built;
        return cp1250ToUtf8(description.document.plainText());
    }
    testing::SixProductDatabase database;
    StartupTables tables = database.load();
    bool built = false;
};

TEST_F(DescriptionBuilder, ProductWithEverySectionReadsInSectionOrder)
{
    EXPECT_EQ(describe(0),
              "Készítmény: ALFA 5 MG TABLETTA 30X\n"
              "\nATC besorolás:\nC08CA01  amlodipin\n"
              "\nHatóanyag:\namlodipin (C08CA01)\n"
              "\nÁr és támogatás:\n"
              "Fogyasztói ár:2000.0 Ft  Normatív támogatás: 80 %  Térítési díj: 400.0 Ft\n"
              "Napi költség: 13 Ft (térítési díj alapján)\n"
              "Emelt támogatással rendelheti[_EU12/a]: [KÜLÖNKERETES!]\n"
              "Támogatás: 1800.0 Ft  Térítési díj: 200.0 Ft  Fogyasztói ár: 2000.0 Ft\n"
              "Napi költség: 7 Ft (térítési díj alapján)\n"
              "Kardiológus szakorvos javaslatára.\n"
              "Kiemelt támogatással rendelheti[EU5]:\n"
              "Támogatás: 1900.0 Ft  Térítési díj: 100.0 Ft  Fogyasztói ár: 2000.0 Ft\n"
              "Napi költség: 3 Ft (térítési díj alapján)\n"
              "Hypertonia.\n"
              "\nTermékadatok:\nForma: tabletta\n"
              "\nJavallatok:\nMagas vérnyomás kezelésére.\n"
              "\nAdagolás:\nNaponta egyszer 5 mg.\n"
              "\nBeteg tudomására hozandó:\nGrapefruitlé fogyasztása nem ajánlott.\n"
              "\nEllenjavallatok:\nElső trimeszter\nSzoptatás\n* Súlyos májbetegség.\n"
              "\nMellékhatások:\nSzédülés\n"
              "\nÓvatosan együttadható:\nKalciumcsatorna-blokkolók (C08)\n"
              "\nEgyüttadása kerülendő:\nnátrium-fluorid (A01AA01)\n"
              "\nMérgezés esetén teendő:\nGyomormosás, tüneti kezelés.\n"
              "\nFigyelmeztetések:\nGépjárművezetést befolyásolhatja.\n"
              "\nEgyéb nevek:\nAmlodipin Pharma\n");
    EXPECT_TRUE(built);
}

TEST_F(DescriptionBuilder, EmptySectionsLeaveTheirHeadingsOutAndUnknownCodesAreShownAsCodes)
{
    const std::string beta = describe(1);
    for (const char* absent : {"Óvatosan", "Együttadása", "Mérgezés", "Ellenjavallatok:", "Mellékhatások:",
                               "Figyelmeztetések:", "Egyéb nevek:", "rendelheti"})
        EXPECT_EQ(beta.find(absent), std::string::npos) << absent;
    EXPECT_NE(beta.find("\nAdagolás:\nNaponta 10 mg.\n"), std::string::npos);
    // An "#ar" marker directly followed by "#ha": no price section at all.
    const std::string gamma = describe(2);
    EXPECT_EQ(gamma.find("Ár és támogatás:"), std::string::npos);
    EXPECT_NE(gamma.find("\nJavallatok:\nMagas vérnyomás.\n"), std::string::npos);
    // Nothing but markers (no own codes either, so neither "ATC" nor "Hatóanyag:"): the title alone.
    EXPECT_EQ(describe(5), "Készítmény: EGYEB KOTSZER\n");
    // Unknown codes are shown as codes; a missing rend.dat only loses the texts.
    auto& block = database.products[0].block;
    block.replace(block.find("E02\r\n"), 5, "E77\r\n");
    tables = database.load();
    database.directory.remove("rend.dat");
    const std::string text = describe(0);
    EXPECT_TRUE(built);
    EXPECT_NE(text.find("\nEllenjavallatok:\nElső trimeszter\nE77\n"), std::string::npos);
    EXPECT_NE(text.find("Emelt támogatással rendelheti[_EU12/a]:\nTámogatás:"), std::string::npos);
}

TEST_F(DescriptionBuilder, PriceLinesFollowTheDoseCountAndTheFullPriceSetting)
{
    // Dose count "1,5" is 1.5: 10 Ft payable a package is 6.67 a day.
    EXPECT_NE(describe(1).find("Fogyasztói ár:10.0 Ft  Normatív támogatás: 0 %  Térítési díj: 10.0 Ft\n"
                               "Napi költség: 7 Ft (térítési díj alapján)\n"),
              std::string::npos);
    tables.fullPriceDailyCost = true;
    const std::string alfa = describe(0);
    EXPECT_NE(alfa.find("Térítési díj: 400.0 Ft\nNapi költség: 67 Ft (teljes ár alapján)\n"),
              std::string::npos);
    EXPECT_EQ(alfa.find("térítési díj alapján"), std::string::npos);
}

TEST_F(DescriptionBuilder, FailuresGiveOneAndBuildNothingBeyondWhatWasWritten)
{
    // Record -1 builds nothing and succeeds; the others outside the table fail.
    for (const auto& [record, succeeds] : {std::pair{-1, true}, std::pair{6, false}, std::pair{-2, false}}) {
        EXPECT_EQ(describe(record), "") << record;
        EXPECT_EQ(built, succeeds) << record;
    }
    for (const char* missing :
         {"gy.ful", "nevpos.dat", "atcnrend.dat", "ellnrend.dat", "mhnrend.dat", "nevrend.dat"}) {
        const std::string intact = database.directory.read(missing);
        database.directory.remove(missing);
        EXPECT_EQ(describe(0), "") << missing;
        EXPECT_FALSE(built) << missing;
        database.directory.write(missing, intact);
    }
    // A block code not in KOD.DAT table 1 stops at the title.
    database.products[0].block.replace(0, 10, "Z99ZZ-9999");
    tables = database.load();
    EXPECT_EQ(describe(0), "");
    EXPECT_FALSE(built);
    EXPECT_EQ(describe(1).rfind("Készítmény: BETA 10 MG TABLETTA 30X\n", 0), 0u);
    EXPECT_TRUE(built);
}

// The title is entry 1 and then the name in bold blue of height 20; every jump text first occurs at the
// start of its bold maroon heading.
TEST_F(DescriptionBuilder, TitleAndJumpHeadingsCarryTheirStyles)
{
    const StyledDocument document = buildDescription(tables, 0).document;
    const std::vector<TextRun>& runs = document.runs();
    ASSERT_GE(runs.size(), 2u);
    EXPECT_EQ(cp1250ToUtf8(runs[0].text), "Készítmény: ");
    EXPECT_FALSE(runs[0].style.bold);
    EXPECT_EQ(runs[1].text, "ALFA 5 MG TABLETTA 30X");
    EXPECT_EQ(runs[1].style, (TextStyle{"Arial", 20, true, kBlue}));
    for (const TextRun& run : runs) EXPECT_EQ(run.style.font, "Arial");
    for (std::string_view jump : kJumpSearchTexts) {
        SCOPED_TRACE(cp1250ToUtf8(jump));
        const auto run = std::find_if(runs.begin(), runs.end(), [&](const TextRun& r) {
            return r.text.find(jump) != std::string::npos;
        });
        ASSERT_TRUE(run != runs.end());
        EXPECT_EQ(run->text.find(jump), 0u);
        EXPECT_TRUE(run->style.bold);
        EXPECT_EQ(run->style.colour, kMaroon);
    }
}

TEST(RegulationPoint, FindsTheExactCodeAndItsSeparateBudgetFlag)
{
    const std::string_view file =
        "EU5\t-\tHypertonia.\r\n_EU12/a\tK\tKardiol\xF3gus.\r\nEU\tK\t\r\nbad line\r\n";
    struct Case {
        const char* what;
        std::string_view code;
        bool separate;
        std::string text;
    };
    const Case cases[] = {
        {"plain", "EU5", false, "Hypertonia."},
        {"separate budget", "_EU12/a", true, "Kardiol\xF3gus."},
        {"prefix of another code is no match", "EU1", false, ""},
        {"empty text", "EU", true, ""},
        {"unknown", "EU9", false, ""},
        {"empty code", "", false, ""},
    };
    for (const Case& c : cases) {
        const RegulationPoint point = regulationPoint(file, c.code);
        EXPECT_EQ(std::tie(point.separateBudget, point.text), std::tie(c.separate, c.text)) << c.what;
    }
    EXPECT_EQ(cp1250ToUtf8(supportPermissionText("Emelt", "EU5", true)),
              "Emelt támogatással rendelheti[EU5]: [KÜLÖNKERETES!]");
}

using SameAtc = DescriptionBuilder;

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

TEST(SplitSupportLine, CutsTwentyTwoFieldsWithTheirOwnDelimitersAndMergesEmptyOnesAsStrtokDoes)
{
    const auto fields = splitSupportLine(
        "22,5;1;2;3;13-;_EU12/a 2100,EU5 1900;2;1;0^1@210751477#a$b*c[3]123456{7}8(9)x\xB3-1@C08CA01");
    const std::array<std::string, 22> expected = {
        "22,5", "1", "2",  "3",      "13-",       "_EU12/a 2100,EU5 1900",
        "2",    "1", "0",  "1",      "210751477", "a",
        "b",    "c", "3",  "123456", "7",         "8",
        "9",    "x", "-1", "C08CA01"};
    EXPECT_EQ(fields, expected);
    // Empty fields merge and missing fields are empty, as with strtok.
    struct Case {
        const char* what;
        std::string_view line;
        std::size_t field;  // 1-based
        std::string expected;
    };
    const Case cases[] = {
        {"doubled ';' skips to the next field's text", "30;;5", 2, "5"},
        {"doubled ';' leaves the last field empty", "30;;5", 3, ""},
        {"line ends early", "30;0", 9, ""},
        {"empty line", "", 1, ""},
        {"a field delimiter of a later field is text in an earlier one", "30^;1", 1, "30^"},
    };
    for (const Case& c : cases) EXPECT_EQ(splitSupportLine(c.line)[c.field - 1], c.expected) << c.what;
}

TEST(LeadingNumber, ReadsAsAtofDoesWithoutTheLocaleAndADailyCostNeedsAPriceAndAPositiveDoseCount)
{
    struct Case {
        std::string_view text;
        float expected;
    };
    const Case cases[] = {{"2345", 2345}, {"  12.5 Ft", 12.5f}, {"-3", -3}, {"1,5", 1}, {"abc", 0},
                          {"", 0},        {".5", 0.5f},         {"+7", 7}};
    for (const Case& c : cases) EXPECT_FLOAT_EQ(leadingNumber(c.text), c.expected) << c.text;
    EXPECT_FLOAT_EQ(dailyDoses("-"), 0.0f);  // "1,5" a day is PriceLinesFollowTheDoseCount's
    // A daily cost needs a price and a positive dose count; the costs shown, by the payable and by the full
    // price, are the description's and the same-ATC list's.
    EXPECT_FALSE(dailyCost(0, 0, 30, false));
    EXPECT_FALSE(dailyCost(2000, 400, 0, false));
    EXPECT_FALSE(dailyCost(2000, 400, -1, false));
    EXPECT_EQ(fixedDecimals(-2.25, 1), "-2.2");
}

TEST(IndicationSupports, CodesWithoutAmpersandUnderscoreOrStarAreHighlighted)
{
    std::vector<std::tuple<std::string, long, bool>> supports;  // code, amount, highlighted
    for (const IndicationSupport& support : indicationSupports("_EU12/a 2100,EU5 1900, &X 5,*Y 7,-,Z"))
        supports.emplace_back(support.code, support.amount, support.highlighted);
    EXPECT_EQ(supports,
              (std::vector<std::tuple<std::string, long, bool>>{
                  {"_EU12/a", 2100, false}, {"EU5", 1900, true}, {"&X", 5, false}, {"*Y", 7, false}}));
    EXPECT_TRUE(indicationSupports("-").empty());
}

TEST(PriceData, ReadsThePriceLinesAndTheSupportLineBetweenTheirMarkers)
{
    const std::vector<std::string_view> block = {
        "C08CA-0100", "C08CA-01", "#ar", "2000", "1600", "#ha", "30;0;0;0;1--;-;2;1;1^1", "#ter", "x"};
    const PriceData data = priceData(block);
    EXPECT_TRUE(data.hasPriceLines);
    EXPECT_FLOAT_EQ(data.fullPrice, 2000);
    EXPECT_FLOAT_EQ(data.normativeSupport, 1600);
    EXPECT_EQ(data.support[kFieldDeleted - 1], "1");
    const std::vector<std::string_view> empty = {"C08CA-0100", "#ar", "#ha", "#ter"};
    EXPECT_FALSE(priceData(empty).hasPriceLines);
    EXPECT_EQ(priceData(empty).support[0], "");
    EXPECT_FALSE(priceData({"C08CA-0100", "C08CA-01"}).hasPriceLines);
}

}  // namespace
}  // namespace rovanel

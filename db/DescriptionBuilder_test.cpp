#include "db/DescriptionBuilder.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/StartupTables.h"
#include "db/StyledDocument.h"
#include "tests/fixtures/Databases.h"

namespace rovanel
{
namespace
{

// The six-product database, written and loaded; a test may change it and load it again.
class DescriptionBuilder : public ::testing::Test
{
protected:
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
              "\nEgyéb nevek:\nAmlodipin original\n");
    EXPECT_TRUE(built);
}

TEST_F(DescriptionBuilder, EmptySectionsLeaveTheirHeadingsOut)
{
    const std::string beta = describe(1);
    for (const char* absent : {"Óvatosan", "Együttadása", "Mérgezés", "Ellenjavallatok:", "Mellékhatások:",
                               "Figyelmeztetések:", "Egyéb nevek:", "rendelheti"}) {
        SCOPED_TRACE(absent);
        EXPECT_EQ(beta.find(absent), std::string::npos);
    }
    EXPECT_NE(beta.find("\nAdagolás:\nNaponta 10 mg.\n"), std::string::npos);
    // An "#ar" marker directly followed by "#ha": no price section at all.
    const std::string gamma = describe(2);
    EXPECT_EQ(gamma.find("Ár és támogatás:"), std::string::npos);
    EXPECT_NE(gamma.find("\nJavallatok:\nMagas vérnyomás.\n"), std::string::npos);
    // Nothing but markers (no own codes either, so neither "ATC" nor "Hatóanyag:"): the title alone.
    EXPECT_EQ(describe(5), "Készítmény: EGYEB KOTSZER\n");
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
    EXPECT_EQ(describe(-1), "");
    EXPECT_TRUE(built) << "record -1 builds nothing and succeeds";
    EXPECT_EQ(describe(6), "");
    EXPECT_FALSE(built);
    EXPECT_EQ(describe(-2), "");
    EXPECT_FALSE(built);
    for (const char* missing :
         {"gy.ful", "nevpos.dat", "atcnrend.dat", "ellnrend.dat", "mhnrend.dat", "nevrend.dat"}) {
        SCOPED_TRACE(missing);
        const std::string intact = database.directory.read(missing);
        database.directory.remove(missing);
        EXPECT_EQ(describe(0), "");
        EXPECT_FALSE(built);
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

TEST_F(DescriptionBuilder, UnknownCodesAreShownAsCodesAndMissingRendDatOnlyLosesTheTexts)
{
    auto& block = database.products[0].block;
    block.replace(block.find("E02\r\n"), 5, "E77\r\n");
    tables = database.load();
    database.directory.remove("rend.dat");
    const std::string text = describe(0);
    EXPECT_TRUE(built);
    EXPECT_NE(text.find("\nEllenjavallatok:\nElső trimeszter\nE77\n"), std::string::npos);
    EXPECT_NE(text.find("Emelt támogatással rendelheti[_EU12/a]:\nTámogatás:"), std::string::npos);
}

TEST_F(DescriptionBuilder, EveryJumpTextFirstOccursAtTheStartOfItsBoldHeading)
{
    const StyledDocument document = buildDescription(tables, 0).document;
    for (std::string_view jump : kJumpSearchTexts) {
        SCOPED_TRACE(cp1250ToUtf8(jump));
        bool found = false;
        for (const TextRun& run : document.runs()) {
            const auto position = run.text.find(jump);
            if (position == std::string::npos) continue;
            EXPECT_EQ(position, 0u);
            EXPECT_TRUE(run.style.bold);
            EXPECT_EQ(run.style.colour, kMaroon);
            found = true;
            break;
        }
        EXPECT_TRUE(found);
    }
}

TEST_F(DescriptionBuilder, TitleIsEntryOneThenTheNameInBoldBlueOfHeightTwenty)
{
    const StyledDocument document = buildDescription(tables, 3).document;
    ASSERT_GE(document.runs().size(), 2u);
    EXPECT_EQ(cp1250ToUtf8(document.runs()[0].text), "Készítmény: ");
    EXPECT_FALSE(document.runs()[0].style.bold);
    const TextRun& name = document.runs()[1];
    EXPECT_EQ(name.text, "DELTA OLDAT 100 ML");
    EXPECT_EQ(name.style, (TextStyle{"Arial", 20, true, kBlue}));
    for (const TextRun& run : document.runs()) EXPECT_EQ(run.style.font, "Arial");
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
        SCOPED_TRACE(c.what);
        const RegulationPoint point = regulationPoint(file, c.code);
        EXPECT_EQ(point.separateBudget, c.separate);
        EXPECT_EQ(point.text, c.text);
    }
    EXPECT_EQ(cp1250ToUtf8(supportPermissionText("Emelt", "EU5", true)),
              "Emelt támogatással rendelheti[EU5]: [KÜLÖNKERETES!]");
}

}  // namespace
}  // namespace rovanel

#include "gen/NeakImport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"
#include "gen/NeakTable.h"
#include "rx/BnoRules.h"
#include "rx/Qualification.h"
#include "tests/support/NeakSource.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

using testing::NeakSource;
using testing::ScratchDirectory;

const TableLayout kThreeColumns{"t.csv", ';', SourceEncoding::Utf8, {"ID", "KOD", "LEIRAS"}};

TEST(NeakTable, ReadsQuotedFieldsLineEndsAndEncodingsAndRefusesWhatDoesNotFit)
{
    struct Case {
        const char* what;
        std::string_view content;
        const char* result;  // the rows, fields joined by '|' and rows by '/', or the error
        SourceEncoding encoding = SourceEncoding::Utf8;
    };
    const Case cases[] = {
        {"plain, LF", "ID;KOD;LEIRAS\n1;A;b\n", "1|A|b"},
        {"CR LF and no final line end", "ID;KOD;LEIRAS\r\n1;A;b\r\n2;;c", "1|A|b/2||c"},
        {"quoted delimiter and doubled quote", "ID;KOD;LEIRAS\n1;\"A;B\";\"say \"\"hi\"\"\"\n",
         "1|A;B|say \"hi\""},
        {"quoted text spanning lines", "ID;KOD;LEIRAS\n1;A;\"first\nsecond\"\n2;B;c\n",
         "1|A|first\nsecond/2|B|c"},
        {"byte-order mark and blank lines", "\xEF\xBB\xBFID;KOD;LEIRAS\n\n1;A;b\n\n", "1|A|b"},
        {"UTF-8 becomes Windows-1250", "ID;KOD;LEIRAS\n1;\xC3\x89;\xC5\x91\n", "1|\xC9|\xF5"},
        {"Windows-1250 stays as it is", "ID;KOD;LEIRAS\n1;\xC9;\xF5\n", "1|\xC9|\xF5",
         SourceEncoding::Cp1250},
        // Refused, naming the file and the column or line.
        {"renamed column", "ID;KODX;LEIRAS\n", "t.csv: column 2 is \"KODX\", expected \"KOD\""},
        {"missing column", "ID;KOD\n", "t.csv: column 3 is missing, expected \"LEIRAS\""},
        {"extra column", "ID;KOD;LEIRAS;X\n", "t.csv: column 4 \"X\" is not in the layout"},
        {"other delimiter", "ID,KOD,LEIRAS\n", "t.csv: column 1 is \"ID,KOD,LEIRAS\", expected \"ID\""},
        {"empty file", "", "t.csv: empty, expected the header \"ID\"..."},
        {"short record", "ID;KOD;LEIRAS\n1;A;b\n2;B\n", "t.csv line 3: 2 fields, expected 3"},
        {"quote never closed", "ID;KOD;LEIRAS\n1;A;b\n2;B;\"open\n\n",
         "t.csv line 3: a quoted field is not closed"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TableLayout layout = kThreeColumns;
        layout.encoding = c.encoding;
        std::string result;
        if (const auto table = parseSourceTable(c.content, layout, &result))
            for (const auto& row : table->rows) {
                result += result.empty() ? "" : "/";
                for (std::size_t i = 0; i < row.size(); ++i) result += (i ? "|" : "") + row[i];
            }
        EXPECT_EQ(result, c.result);
    }
}

TEST(NeakImportNames, DisplayNameKeepsThePackAndFitsFortyEightBytes)
{
    struct Case {
        const char *name, *pack, *expected;
        bool cut;
    };
    const Case cases[] = {
        {"AMLODIPIN SANDOZ 5 MG TABLETTA", "30x buborékcsomagolásban (al//pvc)",
         "AMLODIPIN SANDOZ 5 MG TABLETTA 30X", false},
        {"ABASAGLAR 100 EGYSÉG/ML OLDATOS INJEKCIÓ PATRONBAN", "10x3ml patronban",
         "ABASAGLAR 100 EGYSÉG/ML OLD.INJ. PATRONB 10X3 ML", true},
        {"X SZIRUP", "1x100 ml üvegben", "X SZIRUP 1X100 ML", false},
        {"Y OLDAT", "200 ml", "Y OLDAT 200 ML", false},
        {"Z KRÉM", "tubusban", "Z KRÉM", false},
        {"ATROPINUM SULFURICUM-EGIS 1 MG/ML OLDATOS INJEKCIÓ", "10x1 ml",
         "ATROPINUM SULFURICUM-EGIS 1 MG/ML OLD.IN 10X1 ML", true},
        {"NAGYON HOSSZU NEV AMI SEMMI ROVIDITHETOT NEM TARTALMAZ", "28x",
         "NAGYON HOSSZU NEV AMI SEMMI ROVIDITHETOT NEM 28X", true},
    };
    for (const Case& c : cases) {
        bool cut = false;
        const std::string name = displayName(utf8ToCp1250(c.name), utf8ToCp1250(c.pack), &cut);
        EXPECT_EQ(cp1250ToUtf8(name), c.expected) << c.name;
        EXPECT_EQ(cut, c.cut) << c.name;
    }
}

// One product of an imported directory, found by its TTT: its name and the lines of its block.
struct Imported {
    std::size_t record = 0;
    std::string name, own, price, normative;
    std::vector<std::string> support;  // the 22 fields
};

std::map<std::string, Imported> importedProducts(const std::filesystem::path& directory)
{
    std::map<std::string, Imported> products;
    const std::string gyful = readWholeFile(directory / "gy.ful").value_or("");
    const std::string names = readWholeFile(directory / "nevrend.dat").value_or("");
    std::vector<std::string> lines;
    for (std::size_t from = 0, end; (end = gyful.find("\r\n", from)) != std::string::npos; from = end + 2)
        lines.push_back(gyful.substr(from, end - from));
    std::size_t record = 0;
    for (std::size_t i = 0; i + 6 < lines.size(); ++i) {
        if (lines[i + 2] != "#ar") continue;
        const std::string name(trim(std::string_view(names).substr(record * 50, 48)));
        Imported product{record++, cp1250ToUtf8(name), lines[i + 1], lines[i + 3], lines[i + 4], {}};
        std::string_view support = lines[i + 6];
        for (char delimiter : std::string_view(";;;;;;;;^@#$*[]{}()\xB3@")) {
            const std::size_t at = support.find(delimiter);
            product.support.emplace_back(support.substr(0, at));
            support.remove_prefix(at == std::string_view::npos ? support.size() : at + 1);
        }
        product.support.emplace_back(support);
        products[product.support[10]] = product;
    }
    return products;
}

TEST(NeakImport, AppliesThePriceSupportCodeAndNameDecisionsAndWritesTheSameBytesEachTime)
{
    ScratchDirectory source, output;
    NeakSource{}.writeTo(source.path());
    std::string error;
    const auto report = importNeak(source.path(), output.path(), {}, &error);
    ASSERT_TRUE(report) << error;
    EXPECT_EQ(report->problems, std::vector<std::string>());
    // Of each product (not the magistral material 110000009): record, name, own code, price, normative
    // support and support fields 1 (doses), 5 (categories), 6 (supports) and 8 (public care), joined by
    // '|'. Medicines first, then nutrition, then the others; each group in name order.
    std::map<std::string, std::string> fields;
    for (const auto& [ttt, p] : importedProducts(output.path()))
        fields[ttt] = std::to_string(p.record) + "|" + p.name + "|" + p.own + "|" + p.price + "|" +
                      p.normative + "|" + p.support[0] + "|" + p.support[4] + "|" + p.support[5] + "|" +
                      p.support[7];
    const std::map<std::string, std::string> expected = {
        {"210000003", "0|AMLO 10 MG TABLETTA 30X|C08CA-01|1000|250|30|455|-|0"},
        {"210000004", "1|AMLO 20 MG TABLETTA 30X|C08CA-01|1000|800|30|155|-|1"},
        {"210000002", "2|AMLO 5 MG TABLETTA 30X|C08CA-01|1000|550|30|255|-|0"},
        {"210000001",
         "3|INSULA 100 EGYSÉG/ML OLD.INJ. PATRONBAN 10X3 ML|A10AE-04|24332|0|75|524|*E50 12166,K100 24032|1"},
        {"210000006", "4|MIGR 2 MG TABLETTA 6X|N02C0-00|500|0|6|---|-|0"},
        {"210000005", "5|NOPACK 1 MG TABLETTA 20X|C08CA-01|0|0|0|---|-|0"},
        {"210001111", "6|TWIN 80 MG FILMTABLETTA 28X (1111)|M04AA-03|1000|0|28|525|_E90 900|0"},
        {"210002222", "7|TWIN 80 MG FILMTABLETTA 28X (2222)|M04AA-03|1000|0|28|525|*E50 500|0"},
        {"230000008", "8|NUTRI VANÍLIA 4X200 ML|T02AA-01|1000|900|4|155|-|0"},
        {"270000007", "9|HOMEO GLOBULI 1X4 G|X01AA-01|900|0|0|---|-|0"},
    };
    EXPECT_EQ(fields, expected);

    EXPECT_EQ((std::vector<int>{report->medicines, report->nutrition, report->others, report->excluded,
                                report->nameClashes, report->withoutPrice, report->withoutDailyDoses,
                                report->groupsWithoutName}),
              (std::vector<int>{8, 1, 1, 1, 2, 1, 1, 0}));

    // The other files, and the same bytes from a second import.
    ScratchDirectory again;
    ASSERT_TRUE(importNeak(source.path(), again.path(), {}, &error)) << error;
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(output.path())) {
        const std::string name = entry.path().filename().string(), bytes = output.read(name);
        EXPECT_EQ(bytes, again.read(name)) << name;
        if (name == "KOD.DAT" || name.ends_with(".jpg")) continue;
        for (std::size_t i = bytes.find('\n'); i != std::string::npos; i = bytes.find('\n', i + 1))
            EXPECT_TRUE(i > 0 && bytes[i - 1] == '\r') << name << " byte " << i;  // Windows line ends
        ++files;
    }
    EXPECT_EQ(files, 38);
    EXPECT_EQ(
        cp1250ToUtf8(output.read("rend.dat")),
        "KEU8/a1\t-\telső sor második\r\n"
        "_EU5\t-\temelt\r\n"
        "&EU12\t-\t(az EÜ pont szövege nincs a forrásban)\r\n"
        "*EU12/b\t-\t(az EÜ pont szövege nincs a forrásban)\r\n"
        "K100\t-\tKiemelt támogatás: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. "
        "Kiemelt jogcímen a pont ismeretében, a rendelet szerint rendelhető.\r\n"
        "_E90\t-\tEmelt 90 %: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. Emelt "
        "jogcímen a pont ismeretében, a rendelet szerint rendelhető.\r\n"
        "&E70\t-\tEmelt 70 %: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. Emelt "
        "jogcímen a pont ismeretében, a rendelet szerint rendelhető.\r\n"
        "*E50\t-\tEmelt 50 %: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. Emelt "
        "jogcímen a pont ismeretében, a rendelet szerint rendelhető.\r\n");
    EXPECT_EQ(output.read("inf.dat"), "10,30,0,0,4,0,0,25,25,8,1,1,1\r\n");
    EXPECT_EQ(output.read("zaras.inf"), "20250131\r\n2025.01.31\r\n");
    // Filled levels take the name of the source code's level; a substance without a name takes the
    // turnover's.
    const std::string levels = cp1250ToUtf8(output.read("atcnren5.dat"));
    EXPECT_NE(levels.find("N02C000  Migrén elleni készítmények"), std::string::npos) << levels;
    EXPECT_NE(levels.find("M04AA03  febuxostat"), std::string::npos) << levels;

    // Chapters at depth 0, a code without its parent one level up, XXX and one-letter codes left out.
    const std::string tree = cp1250ToUtf8(output.read("bno.tre"));
    for (const char* part :
         {"IV. fejezet: Endokrin, táplálkozási és anyagcsere-betegségek (E00-E90)\r\n"
          "\tE1190 Nem inzulin-dependens cukorbetegség\r\nV. fejezet",
          "(G00-G99)\r\n\tG40 Epilepszia\r\n\t\tG409 Epilepszia k.m.n.\r\n"
          "\t\t\tG4090 Epilepszia k.m.n., roham nélkül\r\nVII. fejezet",
          "(I00-I99)\r\n\tI10 Magasvérnyomás-betegség\r\n\t\tI10H0 Magasvérnyomás-betegség "
          "(elsődleges)\r\nX. fejezet",
          "(U00-U99)\r\n\tU0710 COVID-19\r\n"})
        EXPECT_NE(tree.find(part), std::string::npos) << part;
    EXPECT_EQ(std::count(tree.begin(), tree.end(), '\n'), 22 + 7);
    // Kiemelt keys begin with K, so no key is the tail of another and "KEY,CODE" matches only itself.
    EXPECT_EQ(output.read("bnohr.dat"), "KEU8/a1 G4090\r\nKEU8/a1 I10H0\r\n_EU5 E1190\r\n");
    EXPECT_EQ(output.read("szvhr.dat"), "KEU8/a1,00301;\r\n&EU12,00012;\r\n");
    const std::string titles = output.read("tamttt.dat");
    EXPECT_EQ(std::count(titles.begin(), titles.end(), '\n'), 10);
    EXPECT_NE(titles.find("210000001;1011110000;*E50;K100\r\n"), std::string::npos) << titles;
    EXPECT_NE(titles.find("210000002;1010000000;;\r\n"), std::string::npos) << titles;

    // Aids sorted by code, amounts rounded, EU support of 98 % highlighted, no own quantities or notes.
    EXPECT_EQ(
        cp1250ToUtf8(output.read("se.dat")),
        "0624030303001\tL-111 protézis\tdarab\t175629\t172117\t3512\t0\t0\t0\t0\tI\t-\t-\t-\t-\t-\t-\t"
        "310000013\tEgyedi\tEgyedi\t98\tNOMIN\t0\t06 24 03 03 03 00 1\t\r\n"
        "093006030300101\tPelenka \"Extra\" ő\t30 db\t5000\t3999\t1001\t0\t0\t100\t4900\tI\t-\t-\t-\t-\t-\t-"
        "\t310000011\tGyártó\tForgalmazó\t80\tNOMIN\t98\t09 30 06 03 03 00 10 1\t\r\n");
    EXPECT_EQ(output.read("sekod2.dat"),
              "06\r\n0624\r\n062403\r\n06240303\r\n0624030303\r\n09\r\n0930\r\n093006\r\n09300603\r\n"
              "0930060303\r\n093006030300\r\n");
    EXPECT_EQ(output.read("semegj.dat"), "");
}

// The user's files and an older month: real points linked, WHO names and doses filled, the older month's
// products added and the others marked new.
TEST(NeakImport, OptionsLinkRealPointsFillWhoNamesAndDosesAndAddAnOlderMonth)
{
    ScratchDirectory source, output;
    NeakSource tables;
    tables.turnover.replace(tables.turnover.find(",1,6,0,500"), 10, ",1,,0,500");  // MIGR: no daily doses
    for (std::size_t at; (at = tables.turnover.find("\"febuxostat\"")) != std::string::npos;)
        tables.turnover.replace(at, 12, "\"\"");
    tables.writeTo(source.path());
    source.write("neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_202401.csv",
                 tables.turnover.substr(0, tables.turnover.find('\n') + 1) +
                     "\"202401\",\"AMLO\",2,\"210000002\",\"AMLO 5 MG TABLETTA\",\"30x\",\"T-1\",\"C08CA01\","
                     "\"amlodipin\",\"G\",\"Normatív\",1,30,100,999,899,0\n"
                     "\"202401\",\"OLD\",9,\"210000099\",\"OLD 1 MG TABLETTA\",\"30x\",\"T-9\",\"C08CA01\","
                     "\"amlodipin\",\"G\",\"Normatív\",2,60,1000,2000,1000,0\n");
    source.write("who.csv",
                 "atc_code,atc_name,ddd,uom,adm_r,note\nN02C,ANTIMIGRAINE,4,mg,O,NA\n"
                 "M04AA03,febuxostat,80,mg,O,NA\n");
    source.write("links.csv", "TTT;EUPONT_ID\n210000001;1\n210000001;4\n210000002;99\n");
    NeakImportOptions options;
    options.also = "202401";
    options.whoDdd = source.path() / "who.csv";
    options.euLinks = source.path() / "links.csv";
    std::string error;
    const auto report = importNeak(source.path(), output.path(), options, &error);
    ASSERT_TRUE(report) << error;
    EXPECT_EQ(report->problems, std::vector<std::string>());
    EXPECT_EQ((std::vector<int>{report->linkedProducts, report->whoNames, report->whoDoses, report->olderOnly,
                                report->newProducts}),
              (std::vector<int>{1, 1, 1, 1, 9}));
    EXPECT_EQ(std::count(report->warnings.begin(), report->warnings.end(),
                         "link to an unknown EU point: 210000002;99"),
              1);
    const auto products = importedProducts(output.path());
    EXPECT_EQ(products.size(), 11u);
    const Imported& insula = products.at("210000001");
    EXPECT_EQ(insula.support[5] + "|" + insula.support[11] + "|" + insula.support[12],
              "*EU12/b 12166,KEU8/a1 24032|*EU12/b|KEU8/a1");
    EXPECT_EQ(products.at("210000006").support[0], "3");  // 2 mg x 6 / 4 mg
    EXPECT_NE(output.read("atcnren5.dat").find("M04AA03  febuxostat"), std::string::npos);
    // Price and field 10 (0: new): 099 from the older month only, 002 at the newer month's price, 003 new.
    for (const auto& [ttt, fields] :
         {std::pair{"210000099", "1000|1"}, {"210000002", "1000|1"}, {"210000003", "1000|0"}})
        EXPECT_EQ(products.at(ttt).price + "|" + products.at(ttt).support[9], fields) << ttt;

    source.write("links.csv", "TTT,EUPONT_ID\n");
    EXPECT_FALSE(importNeak(source.path(), output.path(), options, &error));
    EXPECT_EQ(error,
              (source.path() / "links.csv").string() + ": column 1 is \"TTT,EUPONT_ID\", expected \"TTT\"");
}

TEST(NeakImport, RefusesMalformedSourcesNamingFileAndColumnOrLine)
{
    const std::string turnover = "neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_202501.csv",
                      texts(kEuTextsFile), aids(kAidsFile);
    struct Case {
        const char* what;
        void (*damage)(NeakSource&);
        std::string error;  // after the source directory
        const char* month = "202501";
    };
    const Case cases[] = {
        {"renamed turnover column",
         [](NeakSource& s) { s.turnover.replace(s.turnover.find("DOBOZ"), 5, "DARAB"); },
         turnover + ": column 12 is \"DARAB\", expected \"DOBOZ\""},
        {"money that is not a number",
         [](NeakSource& s) { s.turnover.replace(s.turnover.find("77.5"), 4, "77,5"); },
         turnover + " line 2: 18 fields, expected 17"},
        {"pack count with a letter",
         [](NeakSource& s) { s.turnover.replace(s.turnover.find("77.5"), 4, "77x5"); },
         turnover + " line 2: column DOBOZ is not a number: \"77x5\""},
        {"EU points without a column",
         [](NeakSource& s) { s.points.replace(s.points.find(";IND_TIP"), 8, ""); },
         "neak_pupha_2024-03/EUPONTOK.csv: column 5 is missing, expected \"IND_TIP\""},
        {"texts cut inside a quote", [](NeakSource& s) { s.texts = "ID;EUPONT_ID;NDX;LEIRAS\n10;1;1;\"cut"; },
         texts + " line 2: a quoted field is not closed"},
        {"no EU texts", [](NeakSource& s) { s.texts.clear(); },
         texts + ": empty, expected the header \"ID\"..."},
        // The strict JSON reader of the aids.
        {"aid price with a decimal comma",
         [](NeakSource& s) { s.aids.replace(s.aids.find("5000.4"), 6, "\"5000,4\""); },
         aids + " line 3: grossPrice is not a number: \"5000,4\""},
        {"aid without a member",
         [](NeakSource& s) { s.aids.replace(s.aids.find("\"tttCode\": \"310000013\", "), 23, ""); },
         aids + " line 4: item 2 has no \"tttCode\""},
        {"aids cut short", [](NeakSource& s) { s.aids.resize(s.aids.size() / 2); },
         aids + " line 4: expected a string"},
        {"a month with no turnover file", [](NeakSource&) {},
         "neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_202412.csv: missing or unreadable", "202412"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ScratchDirectory source, output;
        NeakSource tables;
        c.damage(tables);
        tables.writeTo(source.path());
        NeakImportOptions options;
        options.month = c.month;
        std::string error;
        EXPECT_FALSE(importNeak(source.path(), output.path(), options, &error));
        EXPECT_EQ(error, (source.path() / "").string() + c.error);
    }
    ScratchDirectory directory;
    NeakImportOptions options;
    options.month = "2025-1";
    std::string error;
    EXPECT_FALSE(importNeak(directory.path(), directory.path(), options, &error));
    EXPECT_EQ(error, "a month is YYYYMM, and --also names another month");
}

#ifdef ROVANEL_REAL_DB
// The bundled real database, imported at build time from data/vendor/neak: consistent, the same bytes
// as a fresh import, the counts of every stage, named products, and every product's figures: price,
// normative, emelt and kiemelt support and daily doses equal the formulas over its turnover rows (the row
// of most packs of the title; never TBTAM+KVATER).
TEST(NeakImportRealData, BundledDatabaseIsConsistentReproducibleAndFollowsFromTheTurnover)
{
    const std::filesystem::path real = ROVANEL_REAL_DB, vendor = ROVANEL_SOURCE_DIR "/data/vendor/neak";
    ScratchDirectory again;
    std::string error;
    const auto report = importNeak(vendor, again.path(), {}, &error);
    ASSERT_TRUE(report) << error;
    EXPECT_EQ(report->problems, std::vector<std::string>());  // the database check of the same bytes
    for (const auto& entry : std::filesystem::directory_iterator(again.path())) {
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(again.read(name), readWholeFile(real / name).value_or("")) << name;
    }
    // 23,658 BNO nodes: U99 has no name.
    EXPECT_EQ((std::vector<int>{report->products, report->medicines, report->nutrition, report->others,
                                report->regulations, report->bnoNodes, report->bnoRules, report->titleLines,
                                report->aids}),
              (std::vector<int>{3677, 3460, 214, 3, 233, 23658, 11734, 3677, 3309}));

    // Unique names and the placeholder points of named products, joined by '|'.
    const auto products = importedProducts(real);
    const std::pair<const char*, const char*> named[] = {
        {"210712376", "ABASAGLAR 100 EGYSÉG/ML OLD.INJ. PATRONB 10X3 ML|*E50 12166,K100 24032"},
        {"210342333", "AMLODIPIN SANDOZ 5 MG TABLETTA 30X|-"},
        {"210514697", "ADENURIC 80 MG FILMTABLETTA 28X (4697)|*E50 2082"},
        {"210763759", "ADENURIC 80 MG FILMTABLETTA 28X (3759)|*E50 2082"},
    };
    for (const auto& [ttt, fields] : named)
        EXPECT_EQ(products.count(ttt) ? products.at(ttt).name + "|" + products.at(ttt).support[5] : "",
                  fields);
    // A product of placeholder points carries them as its keys (they have no BNO rules: the test above).
    EXPECT_EQ(lookupTamttt(readWholeFile(real / "tamttt.dat").value_or(""), "210712376").keys,
              (RegulationKeys{"K100", "*E50"}));

    const auto content =
        readWholeFile(vendor / "neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_202501.csv");
    ASSERT_TRUE(content);
    TableLayout layout{"t", ',', SourceEncoding::Utf8, {}};
    layout.columns = {"IDOSZAK", "BRAND", "BRANDID",   "TTT",       "NEV",    "KISZNEV",
                      "TK",      "ATC",   "HATOANYAG", "VENYTIPUS", "JOGCIM", "DOBOZ",
                      "DOTFORG", "TBTAM", "FOGYAR",    "TERDIJ",    "KVATER"};
    const auto table = parseSourceTable(*content, layout, &error);
    ASSERT_TRUE(table) << error;
    std::map<std::string, std::vector<const std::vector<std::string>*>> rowsOf;
    for (const auto& row : table->rows)
        if (std::string_view("21 22 23 24 27").find(row[3].substr(0, 2)) != std::string_view::npos)
            rowsOf[row[3]].push_back(&row);
    ASSERT_EQ(products.size(), rowsOf.size());
    const auto number = [](const std::string& text) { return text.empty() ? 0.0 : std::stod(text); };
    // Column `column` over the packs of the largest row of the first title that has one.
    const auto perPack = [&](const std::string& ttt, std::initializer_list<const char*> titles, int column) {
        for (const char* title : titles) {
            const std::vector<std::string>* best = nullptr;
            for (const auto* row : rowsOf[ttt])
                if ((!*title || (*row)[10] == utf8ToCp1250(title)) && number((*row)[11]) > 0 &&
                    (!best || number((*row)[11]) > number((*best)[11])))
                    best = row;
            if (best) return number((*best)[static_cast<std::size_t>(column)]) / number((*best)[11]);
        }
        return 0.0;
    };
    for (const auto& [ttt, p] : products) {
        ASSERT_TRUE(rowsOf.count(ttt)) << ttt;
        EXPECT_NEAR(number(p.price), perPack(ttt, {""}, 14), 0.5) << ttt;
        EXPECT_NEAR(number(p.normative), perPack(ttt, {"Normatív", "Közgyógy"}, 13), 0.5) << ttt;
        std::string doses = p.support[0];
        std::replace(doses.begin(), doses.end(), ',', '.');
        EXPECT_NEAR(number(doses), perPack(ttt, {""}, 12), 0.00005) << ttt;
        double increased = 0, highlighted = 0;
        std::istringstream supports(p.support[5] == "-" ? "" : p.support[5]);  // "*E50 2082,K100 24032"
        for (std::string entry; std::getline(supports, entry, ',');)
            (entry[0] == 'K' ? highlighted : increased) = number(entry.substr(entry.find(' ') + 1));
        EXPECT_NEAR(increased, perPack(ttt, {"Emelt", "Emelt-Kgy"}, 13), 0.5) << ttt;
        EXPECT_NEAR(highlighted, perPack(ttt, {"Kiemelt", "Kiemelt-Kgy"}, 13), 0.5) << ttt;
    }
}
#endif

}  // namespace
}  // namespace rovanel

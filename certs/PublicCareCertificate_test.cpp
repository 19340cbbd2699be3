#include "certs/PublicCareCertificate.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/TextList.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

std::vector<std::string> textLines(const PublicCareCertificate& certificate)
{
    std::vector<std::string> lines;
    for (const CertificateParagraph& paragraph : certificate.paragraphs)
        lines.push_back(cp1250ToUtf8(paragraph.text));
    return lines;
}

const std::vector<std::string> kHead = {
    "                                                       Háziorvosi igazolás",
    "I. A kérelmező személyi adatai",
};

const std::vector<std::string> kPurposes = {
    "A háziorvosi igazolás kiadására",
    "1. közgyógyellátásra való jogosultság megállapítása",
    "2. egyéni gyógyszerkeret felülvizsgálata",
    "céljából kerül sor.",
    "II. A társadalombiztosítás által támogatott, tartósan alkalmazott gyógyító ellátási szükségletre "
    "vonatkozó adatok",
    "1. Havi rendszerességgel rendelt gyógyszerek:",
};

std::vector<std::string> productLines(const char* atc, const char* ttt, const char* name, const char* form,
                                      const char* ingredient)
{
    return {"BNO: ?????",
            std::string("ATC: ") + atc,
            std::string("ttt: ") + ttt,
            std::string("Gyógyszer: ") + name,
            std::string("Gyógyszer forma: ") + form,
            std::string("Hatóanyag: ") + ingredient,
            "A hatóanyag napi mennyisége",
            "Napi adagolás",
            "Gyógyszer rendelésére vonatkozó jelzés",
            "Szak orvos pecsétszáma",
            "Megjegyzés"};
}

std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> parts)
{
    std::vector<std::string> all;
    for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<std::string> tail(const std::vector<std::string>& physician)
{
    return joined(
        {{"2. Gyógyászati segédeszközök és orvosi rehabilitáció céljából havonta rendszeresen rendelt "
          "gyógyító ellátások:",
          "III. Háziorvosra (intézményi orvosra) vonatkozó adatok, a háziorvos nyilatkozata"},
         physician,
         {"Kijelentem, hogy az igazolásban feltüntetett gyógyító ellátásra vonatkozó szükséglet kizárólag "
          "a közgyógyellátást igénylő személy orvosi dokumentációjában igazolt kezelése alapján került "
          "megállapításra.",
          "2026.11.23.", "P. H.", "...........................................",
          "              háziorvos aláírása"}});
}

TEST(PublicCareCertificate, TextLineByLineWithMissingIniValuesAndNoList)
{
    testing::ScratchDirectory directory;
    const PublicCareCertificate certificate =
        buildPublicCareCertificate(directory.path() / "kgy.txt", directory.path() / "none.ini", "20261123");
    ASSERT_TRUE(certificate.message);
    EXPECT_EQ(cp1250ToUtf8(certificate.message->text), "Üres közgyógy lista");
    const std::vector<std::string> patient = {"Neve: Beteg neve",
                                              "Születési neve: Beteg születési neve",
                                              "Anyja neve: Anyja neve",
                                              "Lakóhelye: Irsz, Helység Utca, hsz.",
                                              "Tartózkodási helye: tarkózkodási hely",
                                              "TAJ száma:TAJ",
                                              "BNO: BNO kód"};
    const std::vector<std::string> physician = {"A háziorvos neve: ",
                                                "Személyspecifikus orvosi bélyegzőjének száma: ",
                                                "Ágazati azonosító: ",
                                                "ÁNTSZ engedély száma: ",
                                                "Rendelő/munkahely neve, címe: ",
                                                "Telefonszáma: "};
    EXPECT_EQ(textLines(certificate), joined({kHead, patient, kPurposes, tail(physician)}));
    EXPECT_TRUE(certificate.paragraphs[0].heading);
    EXPECT_FALSE(certificate.paragraphs[2].heading);
}

TEST(PublicCareCertificate, ProductsInListOrderWithIniValues)
{
    testing::ScratchDirectory directory;
    directory.write("beteg.ini",
                    utf8ToCp1250("[BetegAdatok]\nBeteg neve=Kiss Éva\nBeteg szulneve=Nagy Éva\n"
                                 "Beteg anyja=Tóth Ilona\nBeteg cim1=1111 Budapest\n"
                                 "Beteg cim2=Fő utca 1.\nBeteg tarth=Szeged\nBeteg TAJ=123456789\n"
                                 "Beteg bno=I1000\n[OrvosAdatok]\norvnev=Dr. Kovács\npecset=12345\n"
                                 "agazon=A1\nantsz=99\nrendcim=Rendelő, Budapest\norvtel=1-234\n"));
    const std::vector<std::string> patient = {"Neve: Kiss Éva",
                                              "Születési neve: Nagy Éva",
                                              "Anyja neve: Tóth Ilona",
                                              "Lakóhelye: 1111 Budapest Fő utca 1.",
                                              "Tartózkodási helye: Szeged",
                                              "TAJ száma:123456789",
                                              "BNO: I1000"};
    const std::vector<std::string> physician = {"A háziorvos neve: Dr. Kovács",
                                                "Személyspecifikus orvosi bélyegzőjének száma: 12345",
                                                "Ágazati azonosító: A1",
                                                "ÁNTSZ engedély száma: 99",
                                                "Rendelő/munkahely neve, címe: Rendelő, Budapest",
                                                "Telefonszáma: 1-234"};
    directory.write("kgy.txt",
                    utf8ToCp1250("C08CA01;1234567;Norvasc 5 mg tabletta 30x;tabletta;amlodipin \r\n"
                                 "A02BC01;7654321;Omeprazol kapszula;kemény kapszula;omeprazol\r\n"));
    const PublicCareCertificate certificate =
        buildPublicCareCertificate(directory.path() / "kgy.txt", directory.path() / "beteg.ini", "20261123");
    EXPECT_FALSE(certificate.message);
    const auto norvasc =
        productLines("C08CA01", "1234567", "Norvasc 5 mg tabletta 30x", "tabletta", "amlodipin ");
    const auto omeprazol =
        productLines("A02BC01", "7654321", "Omeprazol kapszula", "kemény kapszula", "omeprazol");
    EXPECT_EQ(textLines(certificate),
              joined({kHead, patient, kPurposes, norvasc, omeprazol, tail(physician)}));
}

TEST(PublicCareList, LinesAreSplitAsStrtokSplitsThem)
{
    const std::string longName(600, 'n');
    // What the list holds, its bytes, and the entries read.
    const std::tuple<const char*, std::string, std::vector<PublicCareEntry>> cases[] = {
        {"five fields, LF", "A;B;C;D;E\n", {{"A", "B", "C", "D", "E"}}},
        {"CR LF on disk", "A;B;C;D;E\r\n", {{"A", "B", "C", "D", "E"}}},
        {"no line end", "A;B;C;D;E", {{"A", "B", "C", "D", "E"}}},
        {"an empty cell: the separators run together", "A;;C;D;E\n", {{"A", "C", "D", "E", ""}}},
        {"a ';' inside a cell shifts the fields", "A;B;C;x;D;E\n", {{"A", "B", "C", "x", "D;E"}}},
        {"fewer than five fields", "A;B\n", {{"A", "B", "", "", ""}}},
        {"empty lines are no entries", "\n\r\n;;;;\nA;B;C;D;E\n", {{"A", "B", "C", "D", "E"}}},
        {"same product twice",
         "A;B;C;D;E\nA;B;C;D;E\n",
         {{"A", "B", "C", "D", "E"}, {"A", "B", "C", "D", "E"}}},
        {"a line over 511 bytes goes on as the next line",
         "A;B;" + longName + ";D;E\n",
         {{"A", "B", longName.substr(0, 507), "", ""}, {std::string(93, 'n'), "D", "E", "", ""}}},
    };
    for (const auto& [what, content, expected] : cases)
        EXPECT_EQ(parsePublicCareList(content), expected) << what;
}

TEST(CertificateLayout, LongParagraphsWrapAndPagesFollowOneAnother)
{
    std::vector<CertificateParagraph> paragraphs;
    paragraphs.push_back({std::string(90, 'x'), true});
    paragraphs.push_back(
        {"egy ketto harom negy ot hat het nyolc kilenc tiz tizenegy tizenketto tizenharom "
         "tizennegy",
         false});
    for (int i = 0; i < 100; ++i) paragraphs.push_back({"sor " + std::to_string(i), false});
    const PrintLayout layout = certificateLayout(paragraphs);
    ASSERT_GE(layout.pages.size(), 2u);
    const auto& items = layout.pages[0].items;
    EXPECT_EQ(items[0].text, std::string(80, 'x'));
    EXPECT_EQ(items[1].text, std::string(10, 'x'));
    EXPECT_TRUE(items[1].bold);
    EXPECT_EQ(items[2].text,
              "egy ketto harom negy ot hat het nyolc kilenc tiz tizenegy tizenketto tizenharom");
    EXPECT_EQ(items[3].text, "tizennegy");
    EXPECT_EQ(items[3].top - items[2].top, 16);
    EXPECT_EQ(layout.pages[1].items[0].top, items[0].top);
    for (const PrintPage& page : layout.pages)
        for (const PrintItem& item : page.items)
            EXPECT_LE(item.top + 16, static_cast<int>(kA4HeightUnits) - 76);
}

// Emptying the list is silent, twice; a refused write says why and loses nothing.
TEST(PublicCareList, EmptyingIsSilentAndARefusedWriteLosesNothing)
{
    testing::ScratchDirectory directory;
    const auto list = directory.path() / "kgy.txt";
    directory.write("kgy.txt", "A;1;X;2;y\r\n");
    directory.write("blocker", "a file where a folder should be");
    const auto error =
        appendPublicCareEntry(directory.path() / "blocker" / "kgy.txt",
                              {"C08CA-01", "210751477", "AMLODIPIN 5 MG TABLETTA 30X", "3", "amlodipin "});
    ASSERT_TRUE(error);
    EXPECT_EQ(error->rfind("A k\xF6zgy\xF3gy lista nem \xEDrhat\xF3: ", 0), 0u);
    EXPECT_EQ(readWholeFile(list).value_or(""), "A;1;X;2;y\r\n");

    EXPECT_TRUE(readPublicCareList(list));
    deletePublicCareList(list);
    deletePublicCareList(list);
    EXPECT_FALSE(readPublicCareList(list));
    EXPECT_FALSE(readPublicCareList(""));
    EXPECT_TRUE(buildPublicCareCertificate(list, directory.path() / "b.ini", "20261123").message);
}

TEST(PublicCareList, IngredientIsTheTreeTextBeforeItsParenthesis)
{
    const std::vector<TreeNode> tree = {
        {0, "Kardiovaszkul\xE1ris rendszer (C)"}, {1, "amlodipin (C08CA01)"}, {1, "valami"}};
    TextList codes;
    for (const char* code : {"C", "C08CA-01", "C08CA-02", "C08CA-03"}) codes.push_back(code);
    EXPECT_EQ(publicCareIngredient(tree, codes, "C08CA-01"), "amlodipin ");
    EXPECT_EQ(publicCareIngredient(tree, codes, "C08CA-02"), "valami");
    EXPECT_EQ(publicCareIngredient(tree, codes, "C08CA-03"), "");  // beyond the tree's nodes
    EXPECT_EQ(publicCareIngredient(tree, codes, "N"), "");
}

}  // namespace
}  // namespace rovanel

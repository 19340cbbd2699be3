// rvcli print-rx, certificate and recommendation run as a program: PDFs read back by poppler with each
// value at its place, and the texts as the windows build them.
#include <gtest/gtest.h>

#include <string>

#include "db/Cp1250.h"
#include "rx/PrintLayout.h"
#include "tests/fixtures/SixProductDatabase.h"
#include "tests/support/PdfWords.h"
#include "tests/support/RunRvcli.h"
#include "tests/support/ScratchDirectory.h"

namespace
{

using rovanel::kMillimetresPerLayoutUnit;
using rovanel::testing::pdfWords;
using rovanel::testing::rvcli;
using rovanel::testing::textAt;

constexpr double mm(int units) { return units * kMillimetresPerLayoutUnit; }

TEST(RvcliPrintRx, EachFormatsPdfHasTheValuesInTheirBoxesShiftedByTheMargins)
{
    rovanel::testing::ScratchDirectory directory;
    directory.write("beteg.ini",
                    rovanel::utf8ToCp1250("[BetegAdatok]\nBeteg neve=Kiss Éva\nBeteg TAJ=123456789\n"
                                          "Beteg bno=J4500\nBeteg szul=19500304\n"));
    struct Case {
        const char* format;
        const char* margins;
        int nameLeft, nameTop, tajLeft, tajTop, titleLeft, titleTop;
    };
    const Case cases[] = {
        {"0", "--left -12 --top 20", 26, 176, 26, 280, 200 - 12, 287 + 20},
        {"1", "", 198, 164, 198, 268, 228 + 160, 294 + 8},
        {"2", "--left 600 --top -4", 638, 152, 638, 256, 228 + 600, 294 - 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.format);
        const std::string pdf = (directory.path() / "rx.pdf").string();
        ASSERT_EQ(rvcli("print-rx " + (directory.path() / "beteg.ini").string() + " --format " + c.format +
                        " " + c.margins + " --title 2 --drug Algopyrin --pdf " + pdf)
                      .exitCode,
                  0);
        ROVANEL_SKIP_READING_PDF();
        const auto words = pdfWords(pdf);
        ASSERT_FALSE(words.empty()) << "pdftotext (poppler-utils) is needed";
        EXPECT_EQ(textAt(words, mm(c.nameLeft), mm(c.nameTop)), "Kiss Éva");
        EXPECT_EQ(textAt(words, mm(c.tajLeft), mm(c.tajTop)), "1 2 3 4 5 6 7 8 9");
        EXPECT_EQ(textAt(words, mm(c.titleLeft), mm(c.titleTop)), "X");
    }
}

TEST(RvcliPrintRx, ASavedDrugRecordIsPrintedAsTheWindowPrintsIt)
{
    rovanel::testing::ScratchDirectory directory;
    directory.write("beteg.ini", "[BetegAdatok]\nBeteg bno=I10H0\n");
    directory.write("record.txt",
                    "210751477;C08CA-0103;Algopyrin 500 mg;1;II;duo;D.S.: naponta 3x1;;20261101;"
                    "J4500;4~\r\n");
    const std::string pdf = (directory.path() / "rx.pdf").string();
    ASSERT_EQ(rvcli("print-rx " + (directory.path() / "beteg.ini").string() +
                    " --format 1 --left 0 --top 0 --record " + (directory.path() / "record.txt").string() +
                    " --pdf " + pdf)
                  .exitCode,
              0);
    EXPECT_EQ(rvcli("print-rx x.ini --format 1 --record " + (directory.path() / "none").string()).exitCode,
              1);
    ROVANEL_SKIP_READING_PDF();
    const auto words = pdfWords(pdf);
    ASSERT_FALSE(words.empty()) << "pdftotext (poppler-utils) is needed";
    EXPECT_EQ(textAt(words, mm(38), mm(360)), "Algopyrin 500 mg");
    EXPECT_EQ(textAt(words, mm(176), mm(260)), "J 4 5 0 0");
    EXPECT_EQ(textAt(words, mm(256), mm(260)), "2 0 2 6 1 1 0 1");
    EXPECT_EQ(textAt(words, mm(332), mm(294)), "X");  // title 4: Eü. kiemelt
    EXPECT_EQ(textAt(words, mm(410), mm(260)), "X");  // not substitutable
}

TEST(RvcliPrintRx, WrongArgumentsAndUnwritablePdfsAreRefused)
{
    rovanel::testing::ScratchDirectory directory;
    directory.write("file", "");
    EXPECT_EQ(rvcli("print-rx x.ini").exitCode, 2);
    EXPECT_EQ(rvcli("print-rx x.ini --format 3").exitCode, 2);
    EXPECT_EQ(rvcli("print-rx x.ini --format 1 --left x").exitCode, 2);
    const auto refused =
        rvcli("print-rx x.ini --format 1 --pdf " + (directory.path() / "file" / "a.pdf").string(), true);
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.out.find("A PDF fájl nem írható: "), std::string::npos);
}

TEST(RvcliCertificate, TextAndPdfOfTheCertificate)
{
    rovanel::testing::ScratchDirectory directory;
    directory.write("kgy.txt", "C08CA01;1234567;Norvasc 5 mg;tabletta;amlodipin \r\n");
    const std::string ini = (directory.path() / "none.ini").string();
    const auto text =
        rvcli("certificate " + ini + " " + (directory.path() / "kgy.txt").string() + " --date 20261123");
    EXPECT_EQ(text.exitCode, 0);
    EXPECT_NE(text.out.find("\nNeve: Beteg neve\n"), std::string::npos);
    EXPECT_NE(text.out.find("\nATC: C08CA01\nttt: 1234567\nGyógyszer: Norvasc 5 mg\n"), std::string::npos);
    EXPECT_NE(text.out.find("\n2026.11.23.\nP. H.\n"), std::string::npos);

    const auto empty = rvcli("certificate " + ini + " " + (directory.path() / "none.txt").string(), true);
    EXPECT_EQ(empty.out.rfind("Üres közgyógy lista\n", 0), 0u);

    const std::string pdf = (directory.path() / "c.pdf").string();
    ASSERT_EQ(rvcli("certificate " + ini + " " + (directory.path() / "kgy.txt").string() + " --pdf " + pdf)
                  .exitCode,
              0);
    ROVANEL_SKIP_READING_PDF();
    const auto words = pdfWords(pdf);
    EXPECT_EQ(textAt(words, mm(76), mm(76 + 16 * 2)), "Neve: Beteg neve");
    EXPECT_EQ(textAt(words, mm(76 + 55 * 8), mm(76)), "Háziorvosi igazolás");
}

TEST(RvcliRecommendation, FillsFromTheDatabaseAndPrintsThePage)
{
    rovanel::testing::SixProductDatabase database;
    const std::string directory = database.write().string();
    rovanel::testing::ScratchDirectory scratch;
    scratch.write("beteg.ini", "[BetegAdatok]\nBeteg neve=Kiss Eva\nOrvosNeve=Dr. Szabo\n");
    const std::string ini = (scratch.path() / "beteg.ini").string();
    const auto items = rvcli("recommendation " + directory + " " + ini +
                             " --atc C08CA01 --bno I1000 --title \"90%  EU1234\" --date 2026.11.23.");
    EXPECT_EQ(items.exitCode, 0);
    for (const char* line :
         {"1\tBetnev\t280\t125\tKiss Eva\n", "1\tOrvNev\t280\t270\tDr. Szabo\n",
          "1\tOrvTel\t280\t330\tKITÖLTENDŐ\n", "1\tha1\t80\t455\tamlodipin\n", "1\ttksz1\t480\t455\t90%\n",
          "1\ttkp1\t545\t455\tEU1234\n", "1\tbno2\t30\t480\t\n", "1\tDatum\t60\t580\t2026.11.23.\n"})
        EXPECT_NE(items.out.find(line), std::string::npos) << line;

    const std::string pdf = (scratch.path() / "r.pdf").string();
    ASSERT_EQ(rvcli("recommendation " + directory + " " + ini + " --atc C08CA01 --pdf " + pdf).exitCode, 0);
    ROVANEL_SKIP_READING_PDF();
    const auto words = pdfWords(pdf);
    EXPECT_EQ(textAt(words, mm(280), mm(125)), "Kiss Eva");
    EXPECT_EQ(textAt(words, mm(80), mm(455)), "amlodipin");

    scratch.remove("beteg.ini");
    const auto missing =
        rvcli("recommendation " + scratch.path().string() + " " + ini + " --atc C08CA01", true);
    EXPECT_NE(missing.exitCode, 0);
}

}  // namespace

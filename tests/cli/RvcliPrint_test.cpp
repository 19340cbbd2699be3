// rvcli print-rx, certificate and recommendation writing PDFs: read back by poppler, each value at its
// place, print-rx's margins applied to the chosen format's own pair; an unwritable PDF is refused.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/Cp1250.h"
#include "rx/PrintLayout.h"
#include "tests/fixtures/Databases.h"
#include "tests/support/PdfWords.h"
#include "tests/support/RunRvcli.h"
#include "tests/support/ScratchDirectory.h"

namespace
{

using rovanel::testing::rvcli;

constexpr double mm(int units) { return units * rovanel::kMillimetresPerLayoutUnit; }

TEST(RvcliPdf, ValuesStandInTheirBoxesShiftedByTheMargins)
{
    rovanel::testing::SixProductDatabase database;
    const std::string six = database.write().string();
    rovanel::testing::ScratchDirectory directory;
    directory.write("beteg.ini", rovanel::utf8ToCp1250("[BetegAdatok]\nBeteg neve=Kiss Éva\n"
                                                       "Beteg TAJ=123456789\nBeteg bno=I10H0\n"));
    directory.write(
        "record.txt",
        "210751477;C08CA-0103;Algopyrin 500 mg;1;II;duo;D.S.: naponta 3x1;;20261101;J4500;4~\r\n");
    directory.write("kgy.txt", "C08CA01;1234567;Norvasc 5 mg;tabletta;amlodipin \r\n");
    directory.write("file", "");
    const auto refused =
        rvcli("print-rx x.ini --format 1 --pdf " + (directory.path() / "file/a.pdf").string(), true);
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.out.find("A PDF fájl nem írható: "), std::string::npos);

    struct Word {
        int left, top;
        const char* text;
    };
    struct Case {
        std::string arguments;  // $D: the scratch directory
        std::vector<Word> words;
    };
    const Case cases[] = {
        {"print-rx $D/beteg.ini --format 0 --left -12 --top 20 --title 2",
         {{26, 176, "Kiss Éva"}, {188, 307, "X"}}},
        {"print-rx $D/beteg.ini --format 2 --left 600 --top -4 --title 2",
         {{638, 152, "Kiss Éva"}, {828, 290, "X"}}},
        // A saved drug record: its drug, BNO code, date and title (4: Eü. kiemelt) stand in; not
        // substitutable.
        {"print-rx $D/beteg.ini --format 1 --left 0 --top 0 --record $D/record.txt",
         {{38, 360, "Algopyrin 500 mg"},
          {176, 260, "J 4 5 0 0"},
          {256, 260, "2 0 2 6 1 1 0 1"},
          {332, 294, "X"},
          {410, 260, "X"}}},
        {"certificate $D/none.ini $D/kgy.txt",
         {{76, 76 + 16 * 2, "Neve: Beteg neve"}, {76 + 55 * 8, 76, "Háziorvosi igazolás"}}},
        {"recommendation " + six + " $D/beteg.ini --atc C08CA01",
         {{280, 125, "Kiss Éva"}, {80, 455, "amlodipin"}}},
    };
    std::vector<std::string> pdfs;
    for (const Case& c : cases) {
        pdfs.push_back((directory.path() / ("out" + std::to_string(pdfs.size()) + ".pdf")).string());
        std::string arguments = c.arguments + " --pdf " + pdfs.back();
        for (std::size_t at; (at = arguments.find("$D")) != std::string::npos;)
            arguments.replace(at, 2, directory.path().string());
        EXPECT_EQ(rvcli(arguments).exitCode, 0) << arguments;
    }
    ROVANEL_SKIP_READING_PDF();
    for (std::size_t i = 0; i < pdfs.size(); ++i) {
        SCOPED_TRACE(cases[i].arguments);
        const auto words = rovanel::testing::pdfWords(pdfs[i]);
        ASSERT_FALSE(words.empty()) << "pdftotext (poppler-utils) is needed";
        for (const Word& word : cases[i].words)
            EXPECT_EQ(rovanel::testing::textAt(words, mm(word.left), mm(word.top)), word.text);
    }
}

}  // namespace

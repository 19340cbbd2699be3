// rvcli run as a program: its own behaviour only. Argument parsing, usage and help lines, exit codes
// 0/1/2, UTF-8 output and each command's output format, one representative case a command, and the PDFs
// it writes read back by poppler. What the commands compute is the core's and its tests'; check-update's
// HTTP: RvcliUpdate_test.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "db/Cp1250.h"
#include "rx/PrintLayout.h"
#include "tests/fixtures/Databases.h"
#include "tests/support/EngineDatabase.h"
#include "tests/support/PdfWords.h"
#include "tests/support/RunRvcli.h"

namespace
{

using rovanel::testing::CliRun;
using rovanel::testing::rvcli;

// The databases and files the cases name: $DEMO (the generated demo database), $SIX (six products of
// three ATC groups), $DETAILED (the detailed list's groups), $ENGINE (three drugs with a careful code, a
// contraindication, a side effect and an ingredient) and $FILES (a patient INI file, a saved drug record
// and a public-care list).
struct Inputs {
    rovanel::testing::SixProductDatabase six;
    rovanel::testing::ScratchDirectory detailed, engine, files;
    std::vector<std::pair<std::string, std::string>> names;

    Inputs()
    {
        rovanel::testing::detailedListDatabase().write(detailed);
        rovanel::testing::EngineDatabase database;
        database.atcGroups = {{"C", "Szív"}, {"N", "Idegrendszer"}};
        database.contraindications = {{"E01", "Terhesség"}};
        database.products = {{"C08CA-0101", "ALFA", {"C08CA-01"}, {"N05"}},
                             {"C08CA-0102", "BÉTA", {"C08CA-01"}, {}, {}, {"E01"}},
                             {"N05BA-0101", "GAMMA", {"N05BA-01"}}};
        database.sideEffects = {{"Fejfájás", {0, 2}}};
        database.ingredients = {{"amlodipin", {0, 1}}};
        database.write(engine);
        files.write("beteg.ini", rovanel::utf8ToCp1250("[BetegAdatok]\nBeteg neve=Kiss Éva\n"
                                                       "Beteg TAJ=123456789\nBeteg bno=I10H0\n"));
        files.write(
            "record.txt",
            "210751477;C08CA-0103;Algopyrin 500 mg;1;II;duo;D.S.: naponta 3x1;;20261101;J4500;4~\r\n");
        files.write("kgy.txt", "C08CA01;1234567;Norvasc 5 mg;tabletta;amlodipin \r\n");
        names = {{"$DEMO", ROVANEL_DEMO_DB},
                 {"$SIX", six.write().string()},
                 {"$DETAILED", detailed.path().string()},
                 {"$ENGINE", engine.path().string()},
                 {"$FILES", files.path().string()}};
    }
    [[nodiscard]] std::string expand(std::string arguments) const
    {
        for (const auto& [name, path] : names)
            for (std::size_t at; (at = arguments.find(name)) != std::string::npos;)
                arguments.replace(at, name.size(), path);
        return arguments;
    }
};

TEST(Rvcli, EachCommandParsesItsArgumentsExitsWithItsCodeAndPrintsItsFormat)
{
    struct Case {
        std::string arguments;
        int exitCode;
        std::string out;     // UTF-8: found in standard output and error together
        bool whole = false;  // `out` is the whole standard output
    };
    const Case cases[] = {
        // Usage errors and unreadable directories: 2, with the command's usage line.
        {"", 2, "usage:\n  rvcli gen DIR"},
        {"frobnicate", 2, "rvcli: unknown command 'frobnicate'\nusage:\n  rvcli gen DIR"},
        {"locate", 2, "rvcli: usage: rvcli locate DIR P\n"},
        {"verify", 2, "rvcli: usage: rvcli verify DIR\n"},
        {"describe $SIX x", 2, "rvcli: usage: rvcli describe DIR P\n"},
        {"info /no/such/directory", 2, "rvcli: /no/such/directory: not a readable directory\n"},
        {"names $DEMO --wrong", 2, ""},
        {"products-of $DEMO colour 1", 2, ""},
        // A record number outside the record type is bad usage: it must never wrap around to product 0.
        {"locate $DEMO 4294967296", 2, ""},
        {"locate $DEMO -2", 2, ""},
        {"describe $DEMO 4294967296", 2, ""},
        {"same-atc $SIX C --by-price", 2, ""},
        {"detailed $DETAILED C08 --row 1", 2, ""},  // --row needs a fixed-group --mode
        {"detailed $DETAILED C08 --sort 35", 2, ""},
        {"check $ENGINE zero", 2, ""},
        {"atc-group $ENGINE 0 --colour 3", 2, ""},
        {"ingredient a b c", 2, ""},
        {"bno-check x a b c --source 7", 2, ""},
        {"bno-list x y z --nope", 2, ""},
        {"latin", 2, ""},
        {"titles x y", 2, ""},
        {"print-rx x.ini", 2, ""},
        {"print-rx x.ini --format 3", 2, ""},
        {"print-rx x.ini --format 1 --left x", 2, ""},
        {"print-rx x.ini --format 1 --pdf $FILES/beteg.ini/a.pdf", 2, "A PDF fájl nem írható: "},
        {"recommendation $FILES $FILES/beteg.ini --atc C08CA01", 2, "inf.dat is missing or unreadable\n"},
        // Not found: 1.
        {"locate $DEMO 99999999", 1, ""},
        {"describe $SIX 99", 1, ""},
        {"row $DETAILED 8", 1, ""},
        {"print-rx x.ini --format 1 --record $FILES/none", 1, "none: cannot read\n"},
        // Done: 0, UTF-8 on standard output, messages on standard error.
        {"--help", 0, "\n  verify          what is inconsistent in a database directory\n"},
        {"--help", 0,
         "exit codes:\n  0  done\n  1  not found, refused or inconsistent\n"
         "  2  usage error, or an input that cannot be read\n"},
        {"gen --help", 0,
         "usage: rvcli gen DIR [--products N] [--seed S]\n"
         "write a complete, self-consistent synthetic database into DIR and list its planted cases\n\n"
         "  DIR           the database directory to write (made when missing)\n"
         "  --products N  number of products, 10000 when not given\n"
         "  --seed S      the generator's seed, 1 when not given\n",
         true},
        {"--version", 0, "rvcli (Rovanel) "},
        {"--man", 0, ".TH RVCLI 1 "},
        {"--man", 0, ".TP\n.B rvcli gen DIR [\\-\\-products N] [\\-\\-seed S]\n"},
        {"info $SIX", 0, "products: 6\nmedicines: 4\nnutrition: 1\nothers: 1\nclosing: \n", true},
        {"info $DEMO", 0, "\nclosing: 20"},  // zaras.inf's first line
        {"names $SIX --nutrition", 0, "TAPSZER POR 400 G\n", true},
        {"locate $SIX 1", 0, "code: C08CA-0200\nname: BETA 10 MG TABLETTA 30X\noffset: "},
        {"products-of $SIX atc 7", 0, "0\n2\n", true},
        {"products-of $DEMO atc 99999999", 0, "", true},
        {"describe $SIX 1", 0, "Készítmény: BETA 10 MG TABLETTA 30X\n\nATC besorolás:\nC08CA02  felodipin\n"},
        {"describe $SIX -1", 0, "", true},
        {"same-atc $SIX c08ca01 --by-name", 0,
         "ALFA 5 MG TABLETTA 30X  13.3 Ft/nap\nGAMMA KAPSZULA 20X  N.á.\n", true},
        {"detailed $DETAILED C08CB01", 0,
         "THETA 5 MG\t900\t600\t300\t30.0\t1\t\t\t\t\t\t\t\t\t\t\t\tV\t\tTT\t210751400\t7\t-\t-\t-\t\t\t3\t"
         "123456\t0\t0\t0\t-\tC08CA01\tNEM ÉRT.\n",
         true},
        {"detailed $DETAILED N", 0, "Nincs ilyen,vagy minden kiszer. TT\n"},  // on standard error
        {"detailed $DETAILED N", 0, "", true},
        {"detailed $DETAILED C08CA01 --mode 2 --row 2", 0, "\nEPSZILON 5 MG\t"},  // ALFA's fixed group
        {"row $DETAILED 0", 0, "0\tNév - kiszerelés\tALFA 5 MG\n1\tTeljes ár\t1000\n"},
        {"check $ENGINE 0 2", 0,
         "Kölcsönhatások és ellenjavallatok vizsgálatának eredménye:\n\nALFA és GAMMA : \n\n Óvatosan "
         "adhatók "
         "együtt!\n\n0\tALFA\n2\tGAMMA\n",
         true},
        // GAMMA taken: ALFA, whose careful code names GAMMA's class, needs care; E01 leaves BÉTA out.
        {"atc-group $ENGINE 0 --taking 2 --contra 0", 0, "ALFA\t999999 !\n", true},
        {"side-effect $ENGINE 0 --taking 2", 0, "GAMMA\n", true},
        {"ingredient $ENGINE 0", 0, "ALFA\nBÉTA\n", true},
        {"bno-check $DEMO EU901 _EU902/a J4500 --fee", 0, "accepted\n", true},
        {"bno-check $DEMO '' '' E1190 --source 2", 0, "accepted\n", true},
        {"bno-list $DEMO EU901 _EU902/a --fee", 0, "J4500 \t90%  EU902/a\t\nI10H0 \t90%  EU902/a\t\n", true},
        {"bno-find $DEMO I10H0", 0, "\tI10H0 Magasvérnyomás-betegség (elsődleges)\n"},
        {"bno-find $DEMO 'nincs ilyen szöveg' --list", 0, "", true},
        {"latin 120", 0, "centum et  viginti (CXX)\n", true},
        {"titles $DEMO 0", 0, "Normatív\n"},
        {"print-rx $FILES/beteg.ini --format 1 --title 2 --drug Algopyrin", 0,
         "1\tNev\t198\t164\tKiss Éva\n"},
        {"certificate $FILES/beteg.ini $FILES/kgy.txt --date 20261123", 0, "\n2026.11.23.\nP. H.\n"},
        {"certificate $FILES/beteg.ini $FILES/none.txt", 0, "Üres közgyógy lista\n"},
        {"recommendation $SIX $FILES/beteg.ini --atc C08CA01 --bno I1000 --title \"90%  EU1234\" --date "
         "2026.11.23.",
         0, "1\ttkp1\t545\t455\tEU1234\n"},
        {"recommendation $SIX $FILES/beteg.ini --atc C08CA01 --date 2026.11.23.", 0,
         "1\tDatum\t60\t580\t2026.11.23.\n"},
        // The catalogues and the check on the demo database, whose aids and formulary are the real ones.
        {"aid $DEMO 1221030306006", 0,
         "Solero Light 9.072 terápiás ápolási kerekesszék darab\n"
         "Bruttó ár: 338294Ft\tTámogatás: 270635Ft\tTérítési díj: 67659Ft\n"},
        {"aid $DEMO x", 1, "rvcli: no aid x in "},
        {"aid-find $DEMO kerekes --names", 0,
         "Solero Light 9.072 terápiás ápolási kerekesszék darab\t1221030306006\t"},
        {"fono $DEMO 1", 0, "title\tAuriguttae chloramphenicoli 1%\nrp\tRp.\n"},
        {"fono $DEMO 99999", 1, "rvcli: no FoNo item 99999 in "},
        {"verify $DEMO", 1, "11-character interaction code "},  // planted in every generated database
        {"refresh", 2, "rvcli: usage: rvcli refresh DATADIR UPDATEDIR [--dry-run]\n"},
    };
    const Inputs inputs;
    for (const Case& c : cases) {
        const std::string arguments = inputs.expand(c.arguments);
        SCOPED_TRACE(arguments);
        const CliRun run = rvcli(arguments, !c.whole);
        EXPECT_EQ(run.exitCode, c.exitCode);
        if (c.whole)
            EXPECT_EQ(run.out, c.out);
        else
            EXPECT_NE(run.out.find(inputs.expand(c.out)), std::string::npos) << run.out;
    }
}

TEST(Rvcli, EveryUsageLineHasAManualEntry)
{
    const std::string man = rvcli("--man").out, usage = rvcli("", true).out;
    std::size_t entries = 0;
    for (std::size_t at = man.find(".TP\n.B rvcli "); at != std::string::npos;
         at = man.find(".TP\n.B rvcli ", at + 1))
        ++entries;
    const auto usageLines = static_cast<std::size_t>(std::count(usage.begin(), usage.end(), '\n'));
    EXPECT_EQ(usageLines, 29u) << "usage: and one line per command";
    EXPECT_EQ(entries, usageLines - 1) << "one manual entry per usage line";
}

constexpr double mm(int units) { return units * rovanel::kMillimetresPerLayoutUnit; }

// Each value at its place in the PDF, print-rx's margins applied to the chosen format's own pair.
TEST(Rvcli, PdfValuesStandInTheirBoxesShiftedByTheMargins)
{
    struct Word {
        int left, top;
        const char* text;
    };
    const std::vector<std::pair<std::string, std::vector<Word>>> cases = {
        {"print-rx $FILES/beteg.ini --format 0 --left -12 --top 20 --title 2",
         {{26, 176, "Kiss Éva"}, {188, 307, "X"}}},
        {"print-rx $FILES/beteg.ini --format 2 --left 600 --top -4 --title 2",
         {{638, 152, "Kiss Éva"}, {828, 290, "X"}}},
        // A saved drug record: its drug, BNO code, date and title (4: Eü. kiemelt) stand in; not
        // substitutable.
        {"print-rx $FILES/beteg.ini --format 1 --left 0 --top 0 --record $FILES/record.txt",
         {{38, 360, "Algopyrin 500 mg"},
          {176, 260, "J 4 5 0 0"},
          {256, 260, "2 0 2 6 1 1 0 1"},
          {332, 294, "X"},
          {410, 260, "X"}}},
        {"certificate $FILES/none.ini $FILES/kgy.txt",
         {{76, 76 + 16 * 2, "Neve: Beteg neve"}, {76 + 55 * 8, 76, "Háziorvosi igazolás"}}},
        {"recommendation $SIX $FILES/beteg.ini --atc C08CA01",
         {{280, 125, "Kiss Éva"}, {80, 455, "amlodipin"}}},
    };
    const Inputs inputs;
    std::vector<std::string> pdfs;
    for (const auto& [arguments, words] : cases) {
        pdfs.push_back(inputs.expand("$FILES/out" + std::to_string(pdfs.size()) + ".pdf"));
        EXPECT_EQ(rvcli(inputs.expand(arguments) + " --pdf " + pdfs.back()).exitCode, 0) << arguments;
    }
    ROVANEL_SKIP_READING_PDF();
    for (std::size_t i = 0; i < pdfs.size(); ++i) {
        SCOPED_TRACE(cases[i].first);
        const auto words = rovanel::testing::pdfWords(pdfs[i]);
        ASSERT_FALSE(words.empty()) << "pdftotext (poppler-utils) is needed";
        for (const Word& word : cases[i].second)
            EXPECT_EQ(rovanel::testing::textAt(words, mm(word.left), mm(word.top)), word.text);
    }
}

}  // namespace

// rvcli run as a program: its own behaviour only. Argument parsing, usage and help lines, exit codes
// 0/1/2, UTF-8 output and each command's output format, one representative case a command. What the
// commands compute is the core's and its tests'; the PDFs rvcli writes: RvcliPrint_test; check-update's
// HTTP: RvcliUpdate_test.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/fixtures/Databases.h"
#include "tests/support/EngineDatabase.h"
#include "tests/support/RunRvcli.h"

namespace
{

using rovanel::testing::CliRun;
using rovanel::testing::rvcli;

const std::string kDemo = ROVANEL_DEMO_DB;

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) result.push_back(line);
    return result;
}

// The databases and files the cases name: $DEMO (the generated demo database), $SIX (six products of
// three ATC groups), $DETAILED (the detailed list's groups), $ENGINE (three drugs with a careful code, a
// contraindication, a side effect and an ingredient) and $FILES (a patient INI file and a public-care list).
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
        files.write("beteg.ini", "[BetegAdatok]\nBeteg neve=Kiss Eva\nOrvosNeve=Dr. Szabo\n");
        files.write("kgy.txt", "C08CA01;1234567;Norvasc 5 mg;tabletta;amlodipin \r\n");
        names = {{"$DEMO", kDemo},
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
        {"recommendation $FILES $FILES/beteg.ini --atc C08CA01", 2, "inf.dat is missing or unreadable\n"},
        // Not found: 1.
        {"locate $DEMO 99999999", 1, ""},
        {"describe $SIX 99", 1, ""},
        {"row $DETAILED 8", 1, ""},
        {"print-rx x.ini --format 1 --record $FILES/none", 1, "none: cannot read\n"},
        // Done: 0, UTF-8 on standard output, messages on standard error.
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
         "1\tNev\t198\t164\tKiss Eva\n"},
        {"certificate $FILES/beteg.ini $FILES/kgy.txt --date 20261123", 0, "\n2026.11.23.\nP. H.\n"},
        {"certificate $FILES/beteg.ini $FILES/none.txt", 0, "Üres közgyógy lista\n"},
        {"recommendation $SIX $FILES/beteg.ini --atc C08CA01 --bno I1000 --title \"90%  EU1234\" --date "
         "2026.11.23.",
         0, "1\ttkp1\t545\t455\tEU1234\n"},
        {"recommendation $SIX $FILES/beteg.ini --atc C08CA01 --date 2026.11.23.", 0,
         "1\tDatum\t60\t580\t2026.11.23.\n"},
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

TEST(Rvcli, HelpVersionAndManualPageComeFromTheCommandTable)
{
    const CliRun help = rvcli("--help");
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_NE(help.out.find("\n  verify          what is inconsistent in a database directory\n"),
              std::string::npos);
    EXPECT_NE(help.out.find("exit codes:\n  0  done\n  1  not found, refused or inconsistent\n"
                            "  2  usage error, or an input that cannot be read\n"),
              std::string::npos);
    const CliRun gen = rvcli("gen --help");
    EXPECT_EQ(gen.exitCode, 0);
    EXPECT_EQ(gen.out,
              "usage: rvcli gen DIR [--products N] [--seed S]\n"
              "write a complete, self-consistent synthetic database into DIR and list its planted cases\n\n"
              "  DIR           the database directory to write (made when missing)\n"
              "  --products N  number of products, 10000 when not given\n"
              "  --seed S      the generator's seed, 1 when not given\n");
    EXPECT_EQ(rvcli("--version").out.rfind("rvcli (Rovanel) ", 0), 0u);
    const std::string man = rvcli("--man").out;
    EXPECT_EQ(man.rfind(".TH RVCLI 1 ", 0), 0u);
    EXPECT_NE(man.find(".TP\n.B rvcli gen DIR [\\-\\-products N] [\\-\\-seed S]\n"), std::string::npos);
    std::size_t entries = 0;
    for (std::size_t at = man.find(".TP\n.B rvcli "); at != std::string::npos;
         at = man.find(".TP\n.B rvcli ", at + 1))
        ++entries;
    const std::size_t usageLines = lines(rvcli("", true).out).size();
    EXPECT_EQ(usageLines, 29u) << "usage: and one line per command";
    EXPECT_EQ(entries, usageLines - 1) << "one manual entry per usage line";
}

}  // namespace

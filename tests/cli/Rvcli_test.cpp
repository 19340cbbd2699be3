// rvcli run as a program on the demo database: the subcommands agree with each other.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/RunRvcli.h"

namespace
{

using rovanel::testing::CliRun;
using rovanel::testing::rvcli;

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) result.push_back(line);
    return result;
}

long field(const std::string& info, const std::string& name)
{
    for (const std::string& line : lines(info))
        if (line.rfind(name + ": ", 0) == 0) return std::stol(line.substr(name.size() + 2));
    return -1;
}

const std::string kDemo = ROVANEL_DEMO_DB;

TEST(Rvcli, SubcommandsAgreeOnTheDemoDatabase)
{
    const CliRun info = rvcli("info " + kDemo);
    ASSERT_EQ(info.exitCode, 0);
    const long products = field(info.out, "products");
    const long medicines = field(info.out, "medicines");
    const long nutrition = field(info.out, "nutrition");
    const long others = field(info.out, "others");
    EXPECT_GT(products, 0);  // 10,000 in the plain build, fewer in the sanitizer build
    EXPECT_EQ(medicines + nutrition + others, products);
    EXPECT_NE(info.out.find("closing: "), std::string::npos);

    const auto medicineNames = lines(rvcli("names " + kDemo).out);
    const auto nutritionNames = lines(rvcli("names " + kDemo + " --nutrition").out);
    ASSERT_EQ(static_cast<long>(medicineNames.size()), medicines);
    ASSERT_EQ(static_cast<long>(nutritionNames.size()), nutrition);

    // Record P's name is line P of the medicine list; the nutrition list starts at N - K1 - K2.
    for (long record : {0L, 1L, medicines / 2, medicines - 1}) {
        const auto located = lines(rvcli("locate " + kDemo + " " + std::to_string(record)).out);
        ASSERT_EQ(located.size(), 3u);
        EXPECT_EQ(located[1], "name: " + medicineNames[static_cast<std::size_t>(record)]);
    }
    const auto firstNutrition = lines(rvcli("locate " + kDemo + " " + std::to_string(medicines)).out);
    ASSERT_EQ(firstNutrition.size(), 3u);
    EXPECT_EQ(firstNutrition[1], "name: " + nutritionNames.front());
    EXPECT_EQ(firstNutrition[0].substr(0, 7), "code: T") << "nutrition products live under group T";

    // Every product of ATC group 0 (the first anatomical group) has a code beginning with its letter.
    const auto group = lines(rvcli("products-of " + kDemo + " atc 0").out);
    ASSERT_FALSE(group.empty());
    const auto first = lines(rvcli("locate " + kDemo + " " + group.front()).out);
    const auto last = lines(rvcli("locate " + kDemo + " " + group.back()).out);
    EXPECT_EQ(first[0].substr(0, 7), last[0].substr(0, 7));
}

TEST(Rvcli, RefusesBadUsageAndUnreadableDirectoriesWithExitCode2)
{
    struct Case {
        const char* what;
        std::string arguments;
        int exitCode;
    };
    const Case cases[] = {
        {"no command", "", 2},
        {"unknown command", "frobnicate", 2},
        {"no directory", "info", 2},
        {"missing directory", "info /no/such/directory", 2},
        {"unknown option", "names " + kDemo + " --wrong", 2},
        {"record that is no number", "locate " + kDemo + " x12", 2},
        {"unknown index pair", "products-of " + kDemo + " colour 1", 2},
        {"record past the database", "locate " + kDemo + " 99999999", 1},
        // A record number outside the record type is bad usage, for locate as for describe: it must
        // never wrap around to product 0.
        {"locate: record past 32 bits", "locate " + kDemo + " 4294967296", 2},
        {"locate: record below -1", "locate " + kDemo + " -2", 2},
        {"describe: record past 32 bits", "describe " + kDemo + " 4294967296", 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(rvcli(c.arguments).exitCode, c.exitCode);
    }
    EXPECT_EQ(rvcli("products-of " + kDemo + " atc 99999999").out, "");
}

TEST(Rvcli, UsageComesFromTheCommandTableAndEndsItsLine)
{
    EXPECT_EQ(rvcli("locate", true).out, "rvcli: usage: rvcli locate DIR P\n");
    EXPECT_EQ(rvcli("describe " + kDemo + " x", true).out, "rvcli: usage: rvcli describe DIR P\n");
    const std::string all = rvcli("frobnicate", true).out;
    EXPECT_EQ(all.rfind("rvcli: unknown command 'frobnicate'\nusage:\n  rvcli gen DIR", 0), 0u);
    EXPECT_EQ(all.back(), '\n');
    EXPECT_EQ(lines(rvcli("", true).out).size(), 29u) << "usage: and one line per command";
    EXPECT_EQ(rvcli("verify", true).out, "rvcli: usage: rvcli verify DIR\n");
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
    EXPECT_EQ(rvcli("names " + kDemo + " --help").out.rfind("usage: rvcli names DIR [--nutrition]\n", 0), 0u);
    EXPECT_EQ(rvcli("--version").out.rfind("rvcli (Rovanel) ", 0), 0u);
    const std::string man = rvcli("--man").out;
    EXPECT_EQ(man.rfind(".TH RVCLI 1 ", 0), 0u);
    EXPECT_NE(man.find(".TP\n.B rvcli gen DIR [\\-\\-products N] [\\-\\-seed S]\n"), std::string::npos);
    std::size_t entries = 0;
    for (std::size_t at = man.find(".TP\n.B rvcli "); at != std::string::npos;
         at = man.find(".TP\n.B rvcli ", at + 1))
        ++entries;
    EXPECT_EQ(entries, lines(rvcli("", true).out).size() - 1) << "one manual entry per usage line";
}

}  // namespace

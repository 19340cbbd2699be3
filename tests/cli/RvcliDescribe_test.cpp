// rvcli describe and same-atc run as a program on the hand-written six-product database.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/fixtures/SixProductDatabase.h"
#include "tests/support/RunRvcli.h"

namespace
{

using rovanel::testing::CliRun;
using rovanel::testing::rvcli;

TEST(RvcliDescribe, PrintsTheDescriptionInUtf8WithItsHeadings)
{
    rovanel::testing::SixProductDatabase database;
    const std::string directory = database.write().string();
    const CliRun run = rvcli("describe " + directory + " 1");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out.rfind("Készítmény: BETA 10 MG TABLETTA 30X\n\nATC besorolás:\nC08CA02  felodipin\n", 0),
              0u);
    EXPECT_NE(run.out.find("\nBeteg tudomására hozandó:\nSzédülést okozhat.\n"), std::string::npos);
    const CliRun none = rvcli("describe " + directory + " -1");
    EXPECT_EQ(none.exitCode, 0);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(rvcli("describe " + directory + " 99").exitCode, 1);
}

TEST(RvcliSameAtc, ListsTheDeepestLevelByPriceOrByName)
{
    rovanel::testing::SixProductDatabase database;
    const std::string directory = database.write().string();
    EXPECT_EQ(rvcli("same-atc " + directory + " C").out,
              "BETA 10 MG TABLETTA 30X  6.7 Ft/nap\nALFA 5 MG TABLETTA 30X  13.3 Ft/nap\nGAMMA KAPSZULA 20X  "
              "N.á.\n");
    EXPECT_EQ(rvcli("same-atc " + directory + " c08ca01 --by-name").out,
              "ALFA 5 MG TABLETTA 30X  13.3 Ft/nap\nGAMMA KAPSZULA 20X  N.á.\n");
    EXPECT_EQ(rvcli("same-atc " + directory + " Q99").out, "");
}

TEST(RvcliDescribe, RefusesBadUsageWithExitCode2)
{
    rovanel::testing::SixProductDatabase database;
    const std::string directory = database.write().string();
    for (const std::string& arguments :
         std::vector<std::string>{"describe", "describe " + directory, "describe " + directory + " x",
                                  "describe /nonexistent/x 1", "same-atc " + directory,
                                  "same-atc " + directory + " C --by-price", "same-atc /nonexistent/x C"}) {
        SCOPED_TRACE(arguments);
        EXPECT_EQ(rvcli(arguments).exitCode, 2);
    }
}

}  // namespace

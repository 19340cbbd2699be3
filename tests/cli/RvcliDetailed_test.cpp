// rvcli detailed and row run as a program on the detailed list's small database.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/DetailedListDatabase.h"
#include "tests/support/RunRvcli.h"

namespace
{

using rovanel::testing::CliRun;
using rovanel::testing::rvcli;

// The first cell of every line.
std::vector<std::string> firstCells(const std::string& out)
{
    std::vector<std::string> cells;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) cells.push_back(line.substr(0, line.find('\t')));
    return cells;
}

class RvcliDetailed : public ::testing::Test
{
protected:
    void SetUp() override
    {
        rovanel::testing::detailedListDatabase().write(m_directory);
        m_path = m_directory.path().string();
    }
    rovanel::testing::ScratchDirectory m_directory;
    std::string m_path;
};

TEST_F(RvcliDetailed, ListsTheGroupInTheWindowsOrder)
{
    struct Case {
        const char* what;
        std::string arguments;
        std::vector<std::string> names;
    };
    const Case cases[] = {
        {"sorted by NK alap", " C08CA01", {"GAMMA 5 MG", "DELTA 5 MG", "ALFA 5 MG", "BETA 5 MG"}},
        {"by full price", " c08ca01 --sort 1", {"GAMMA 5 MG", "DELTA 5 MG", "BETA 5 MG", "ALFA 5 MG"}},
        {"fixed group of ALFA", " C08CA01 --mode 2 --row 2", {"ALFA 5 MG", "EPSZILON 5 MG", "BETA 5 MG"}},
        {"empty group", " N", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const CliRun run = rvcli("detailed " + m_path + c.arguments);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(firstCells(run.out), c.names);
    }
    const CliRun empty = rvcli("detailed " + m_path + " N", true);
    EXPECT_EQ(empty.out, "Nincs ilyen,vagy minden kiszer. TT\n");
    const CliRun line = rvcli("detailed " + m_path + " C08CB01");
    EXPECT_EQ(
        line.out,
        "THETA 5 MG\t900\t600\t300\t30.0\t1\t\t\t\t\t\t\t\t\t\t\t\tV\t\tTT\t210751400\t7\t-\t-\t-\t\t\t3\t"
        "123456\t0\t0\t0\t-\tC08CA01\tNEM ÉRT.\n");
    EXPECT_EQ(rvcli("detailed " + m_path + " C08 --row 1").exitCode, 2);
    EXPECT_EQ(rvcli("detailed " + m_path + " C08 --sort 35").exitCode, 2);
}

TEST_F(RvcliDetailed, RowPrintsEveryCellWithItsCaption)
{
    const CliRun run = rvcli("row " + m_path + " 0");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out.rfind("0\tNév - kiszerelés\tALFA 5 MG\n1\tTeljes ár\t1000\n", 0), 0u);
    EXPECT_NE(run.out.find("\n4\tNK alap\t20.0\n"), std::string::npos);
    EXPECT_NE(run.out.find("\n34\tDOT\tNEM ÉRT.\n"), std::string::npos);
    EXPECT_EQ(rvcli("row " + m_path + " 8").exitCode, 1);
}

}  // namespace

// rvcli's interaction, side-effect and ingredient subcommands on a small database written by the test.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/EngineDatabase.h"
#include "tests/support/RunRvcli.h"

namespace
{

using rovanel::testing::EngineDatabase;
using rovanel::testing::ScratchDirectory;

using rovanel::testing::CliRun;

CliRun rvcli(const std::string& arguments) { return rovanel::testing::rvcli(arguments, true); }

struct CliDatabase {
    ScratchDirectory directory;
    std::string path;
    CliDatabase()
    {
        EngineDatabase database;
        database.atcGroups = {{"C", "Szív"}, {"N", "Idegrendszer"}};
        database.contraindications = {{"E01", "Terhesség"}};
        database.products = {{"C08CA-0101", "ALFA", {"C08CA-01"}, {"N05"}},
                             {"C08CA-0102", "BÉTA", {"C08CA-01"}, {}, {}, {"E01"}},
                             {"N05BA-0101", "GAMMA", {"N05BA-01"}}};
        database.sideEffects = {{"Fejfájás", {0, 2}}};
        database.ingredients = {{"amlodipin", {0, 1}}};
        database.write(directory);
        path = directory.path().string();
    }
};

TEST(RvcliInteraction, CheckPrintsTheReportThenTheDrugsConcerned)
{
    CliDatabase db;
    const CliRun run = rvcli("check " + db.path + " 0 2");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(
        run.out,
        "Kölcsönhatások és ellenjavallatok vizsgálatának eredménye:\n\nALFA és GAMMA : \n\n Óvatosan adhatók "
        "együtt!\n\n0\tALFA\n2\tGAMMA\n");
}

TEST(RvcliInteraction, AtcGroupPrintsTheListLines)
{
    CliDatabase db;
    EXPECT_EQ(rvcli("atc-group " + db.path + " 0").out, "ALFA\t999999\nBÉTA\t999999\n");
    // GAMMA taken: ALFA, whose careful code names GAMMA's class, needs care; E01 leaves BÉTA out.
    const CliRun run = rvcli("atc-group " + db.path + " 0 --taking 2 --contra 0");
    EXPECT_NE(run.out.find("ALFA\t999999 !\n"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("BÉTA"), std::string::npos);
}

TEST(RvcliInteraction, SearchesPrintTheNamesFound)
{
    CliDatabase db;
    EXPECT_EQ(rvcli("side-effect " + db.path + " 0").out, "ALFA\nGAMMA\n");
    EXPECT_EQ(rvcli("side-effect " + db.path + " 0 --taking 2").out, "GAMMA\n");
    EXPECT_EQ(rvcli("ingredient " + db.path + " 0").out, "ALFA\nBÉTA\n");
}

TEST(RvcliInteraction, BadUsageExitsWith2)
{
    CliDatabase db;
    for (const char* arguments : {"check", "atc-group x", "side-effect", "ingredient a b c"})
        EXPECT_EQ(rvcli(arguments).exitCode, 2) << arguments;
    EXPECT_EQ(rvcli("check " + db.path + " zero").exitCode, 2);
    EXPECT_EQ(rvcli("atc-group " + db.path + " 0 --colour 3").exitCode, 2);
    EXPECT_EQ(rvcli("check /no/such/directory 1").exitCode, 2);
}

}  // namespace

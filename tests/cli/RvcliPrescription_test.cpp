// The prescription commands of rvcli on the demo database: every planted BNO-check outcome is reachable
// through the generated bnohr.dat, and the commands refuse bad usage with exit code 2.
#include <gtest/gtest.h>

#include <string>

#include "gen/PrescriptionFiles.h"
#include "tests/support/RunRvcli.h"

namespace
{

using rovanel::testing::rvcli;

const std::string kDemo = ROVANEL_DEMO_DB;

std::string quoted(const char* key) { return std::string("'") + key + "'"; }

TEST(RvcliPrescription, PlantedKeysReachEveryOutcomeOfTheBnoCheck)
{
    using namespace rovanel;
    struct Case {
        std::string keys;  // FREEKEY FEEKEY
        std::string code, options, expected;
    };
    const std::string simple = quoted(kPlantedFreeKey) + " " + quoted(kPlantedFeeKey);
    const std::string list = "'EU905,EU901' 'EU901,_EU902/a'";
    const Case cases[] = {
        {simple, "E1190", "", "accepted\n"},
        {simple, "J4500", "--fee", "accepted\n"},
        {simple, kPlantedOtherCode, "", "Hiba: Rendeletben nem szereplő BNO kód\n"},
        {"'EU903' ''", kPlantedOtherCode, "", "accepted\n"},
        {"'' '&EU904/a'", kPlantedOtherCode, "--fee", "accepted\n"},
        {"'EU905' ''", "E1190", "", "Hiba: Nincs hozzárendelt BNO kód\n"},
        {"'_EU902/a' ''", kPlantedOtherCode, "", "Csak térítéskötelesre rendelhető\n"},
        {"'' 'EU901'", kPlantedOtherCode, "--fee", "Csak térítésmentesre rendelhető\n"},
        {"'' ''", "E1190", "", "Nem rendelhető rendelet szerinti támogatással.\n"},
        {"'' ''", "E1190", "--source 2", "accepted\n"},
        {list, "E1190", "", "accepted\n"},
        {list, "E1190", "--fee", "Hiba: Rendeletben nem szereplő BNO kód\n"},  // EU901 has no rate prefix
        {list, "J4500", "--fee", "accepted\n"},
    };
    for (const Case& c : cases) {
        const std::string arguments = "bno-check " + kDemo + " " + c.keys + " " + c.code + " " + c.options;
        SCOPED_TRACE(arguments);
        EXPECT_EQ(rvcli(arguments).out, c.expected);
    }
}

TEST(RvcliPrescription, ListFindAndLatin)
{
    EXPECT_EQ(rvcli("bno-list " + kDemo + " EU901 _EU902/a --fee").out,
              "J4500 \t90%  EU902/a\t\nI10H0 \t90%  EU902/a\t\n");
    EXPECT_EQ(rvcli("bno-list " + kDemo + " EU905 ''").out, "Hiba: Nincs hozzárendelt BNO kód\n");
    const std::string found = rvcli("bno-find " + kDemo + " I10H0").out;
    EXPECT_NE(found.find("\tI10H0 Magasvérnyomás-betegség (elsődleges)\n"), std::string::npos) << found;
    EXPECT_EQ(rvcli("bno-find " + kDemo + " 'nincs ilyen szöveg' --list").out, "");
    EXPECT_EQ(rvcli("latin 120").out, "centum et  viginti (CXX)\n");
    EXPECT_EQ(rvcli("titles " + kDemo + " 0").out.substr(0, 10), "Normatív\n");
    for (const char* bad : {"latin", "bno-check x", "bno-list x y z --nope", "bno-find", "titles x y",
                            "bno-check x a b c --source 7"})
        EXPECT_EQ(rvcli(bad).exitCode, 2) << bad;
}

}  // namespace

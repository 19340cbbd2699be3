#include "catalogues/MedicalAids.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "db/Cp1250.h"
#include "db/MessageCatalog.h"
#include "db/MessageTable.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

std::string cp(std::string_view utf8) { return utf8ToCp1250(utf8); }
std::string utf8(std::string_view text) { return cp1250ToUtf8(text); }

MessageTable messages()
{
    std::string content;
    for (const std::string& line : messageCatalogLines()) content += line + "\r\n";
    return MessageTable::parse(content);
}

// A se.dat line from its first fields joined by '|'; the rest stay absent.
std::string aidLine(std::string fields)
{
    std::replace(fields.begin(), fields.end(), '|', '\t');
    return fields;
}

const std::string kStandard =
    "\r\nRendelhető a gyógyászati segédeszközök rendelési szabályai szerint, a jogosultság igazolásával.";

TEST(DescribeAid, BuildsEveryLineWithItsOwnBlanksAndCommas)
{
    // What the line holds, the line, and the description in UTF-8.
    using Case = std::tuple<const char*, std::string, std::string>;
    const std::string tail =
        "\r\n---Felírható mennyiség: Normativ=1 ,emelt=2,kiemelt=3"
        "\r\n---Kihordási idő: Normativ=12, emelt= 24,kiemelt=36  hónap";
    const std::string unsupported = "\r\n - Nem támogatott termék, nincs árinformáció - ";
    const std::string noQuantities =
        "\r\n---Felírható mennyiség: Normativ= ,emelt=,kiemelt=\r\n---Kihordási idő: Normativ=, emelt= "
        ",kiemelt=  hónap";
    const Case cases[] = {
        {"supported, standard note", aidLine("0101|Járókeret|darab|12345|9000|3345|0|0|0|0|I|1|2|3|12|24|36"),
         "Járókeret darab\r\nBruttó ár: 12345Ft\tTámogatás: 9000Ft\tTérítési díj: 3345Ft" + kStandard + tail},
        {"support 0: no prices, quantities still shown",
         aidLine("0101|Járókeret|darab|12345|0|12345|0|0|0|0|N|1|2|3|12|24|36"),
         "Járókeret darab" + unsupported + tail},
        {"support empty", aidLine("0101|Bot|db|500||500|||||N|1|2|3|12|24|36"),
         "Bot db" + unsupported + tail},
        {"increased and highlighted supports as whole numbers",
         aidLine("0101|Bot|db|500.7|400|100|50x|450|20|480|N|1|2|3|12|24|36"),
         "Bot db\r\nBruttó ár: 500Ft\tTámogatás: 400Ft\tTérítési díj: 100Ft"
         "\r\nFizetendő emelt indikációra: 50 Támogatás emelt indikációra: 450"
         "\r\nFizetendő kiemelt indikációra: 20 Támogatás kiemelt indikációra: 480" +
             tail},
        {"mark field absent: the standard note applies", aidLine("0101|Bot|db|500|0"),
         "Bot db" + unsupported + kStandard + noQuantities},
        {"\\\\ in any field is a line break",
         aidLine("0101|Bot\\\\fa|db|500|0||||||N|1\\\\pár: 2|2|3|12|24|36"),
         "Bot\r\nfa db\r\n - Nem támogatott termék, nincs árinformáció - "
         "\r\n---Felírható mennyiség: Normativ=1\r\npár: 2 ,emelt=2,kiemelt=3"
         "\r\n---Kihordási idő: Normativ=12, emelt= 24,kiemelt=36  hónap"},
        {"only code", "0101", " " + unsupported + kStandard + noQuantities},
    };
    const MessageTable table = messages();
    for (const auto& [what, line, expected] : cases)
        EXPECT_EQ(utf8(describeAid(cp(line), {}, table)), expected) << what;
}

TEST(DescribeAid, NotesApplyByPrefixInFileOrderAndStopAtTheFirstCodeAfterTheAid)
{
    const std::vector<AidNote> notes =
        parseAidNotes(cp("01\t1\tosztály\r\n"
                         "0101\t2\tcsoport~~második sor\r\n"
                         "010101\t3\talcsoport\r\n"
                         "010102\t4\tmásik alcsoport\r\n"
                         "0101019\t5\ttúl hosszú kód\r\n"
                         "02\t1\tmásik osztály\r\n"
                         "01\t9\tnem rendezett: soha\r\n"));
    const std::string line = aidLine("010101001|Bot|db|5|0||||||N");
    const std::string text = utf8(describeAid(cp(line), notes, messages()));
    const std::string expectedNotes =
        "\r\n---Normatív---\r\n osztály"
        "\r\n---EÜ emelt---\r\n csoport\r\nmásodik sor"
        "\r\n---EÜ kiemelt---\r\n alcsoport";
    EXPECT_TRUE(text.ends_with(expectedNotes)) << text;
    EXPECT_EQ(text.find("túl hosszú"), std::string::npos);
    EXPECT_EQ(text.find("soha"), std::string::npos);
}

TEST(AidNotes, HeadingsByKindFromOneAndFieldsThatAreMissing)
{
    std::vector<std::string> headings;
    for (int kind = 0; kind <= 6; ++kind) headings.push_back(utf8(aidNoteHeading(kind)));
    EXPECT_EQ(headings, (std::vector<std::string>{"", "Normatív", "EÜ emelt", "EÜ kiemelt",
                                                  "Egyedi méltányosság", "Kölcsönözhető", ""}));
    EXPECT_EQ(
        parseAidNotes("0102030405060708\t2\tx~~y\r\nno tabs\r\n07\tabc\r\n\r\n"),
        (std::vector<AidNote>{{"0102030405", 2, "x\r\ny"}, {"no tabs", 0, ""}, {"07", 0, ""}, {"", 0, ""}}));
}

// A catalogue of two classes: 01 (groups 0101 and 0102) and 02, whose group 0201 has no aids.
class AidCatalogueFiles : public ::testing::Test
{
protected:
    void SetUp() override
    {
        se = "010101\tTérdortézis\tdarab\t100\t80\t20\r\n"
             "010102\tBokaortézis\tpár\t200\t0\t200\r\n"
             "010201\tJárókeret\tdarab\t300\t250\t50\r\n"
             "020001\tKötszer\tcsomag\t10\t8\t2\r\n";
        write("se.dat", se);
        write("senrend2.dat", "01 Ortézisek\r\n\t01 01\r\n\t01 02\r\n02 Kötszerek\r\n\t02 01\r\n");
        write("sekod2.dat", "01\r\n0101\r\n0102\r\n02\r\n0201\r\n");
        write("sepos.dat", "0\r\n0\r\n" + offsetOf("010201") + "\r\n" + offsetOf("020001") + "\r\n" +
                               offsetOf("020001") + "\r\n");
        write("seiso.dat", "01\r\n01 01\r\n01 02\r\n02\r\n02 01\r\n");
        write("senev.dat",
              "Térdortézis darab\t010101\r\nBokaortézis pár\t010102\r\nJárókeret darab\t010201\r\n"
              "Kötszer csomag\t020001\r\n");
        write("semegj.dat", "0101\t1\tortézis~~jegyzet\r\n");
    }
    void write(std::string_view name, std::string_view utf8Text) { directory.write(name, cp(utf8Text)); }
    std::string offsetOf(std::string_view code) { return std::to_string(cp(se).find(code)); }
    AidCatalogue load() { return loadAidCatalogue(directory.path()); }

    testing::ScratchDirectory directory;
    std::string se;
};

std::vector<std::string> codes(const std::vector<AidEntry>& entries)
{
    std::vector<std::string> result;
    for (const AidEntry& entry : entries) result.push_back(entry.code);
    return result;
}

TEST_F(AidCatalogueFiles, GroupsListTheirRunDescriptionsAndSearchesFindTheirAids)
{
    const AidCatalogue catalogue = load();
    ASSERT_EQ(catalogue.tree.size(), 5u);
    EXPECT_EQ(codes(listAidGroup(catalogue, 0)), (std::vector<std::string>{"010101", "010102", "010201"}));
    EXPECT_EQ(codes(listAidGroup(catalogue, 2)), (std::vector<std::string>{"010201"}));
    EXPECT_EQ(utf8(listAidGroup(catalogue, 1)[1].text), "Bokaortézis pár");
    EXPECT_TRUE(listAidGroup(catalogue, 4).empty()) << "a group without aids";
    EXPECT_TRUE(listAidGroup(catalogue, -1).empty());
    EXPECT_TRUE(listAidGroup(catalogue, 5).empty());

    // A description is found from the group's offset, with its notes.
    const auto description = aidDescription(catalogue, messages(), 1, "010102");
    ASSERT_TRUE(description);
    EXPECT_TRUE(utf8(*description).starts_with("Bokaortézis pár\r\n - Nem támogatott termék"));
    EXPECT_TRUE(utf8(*description).ends_with("\r\n---Normatív---\r\n ortézis\r\njegyzet"));
    EXPECT_EQ(aidDescription(catalogue, messages(), 2, "010101"), std::nullopt)
        << "before the group's offset";
    EXPECT_TRUE(aidDescription(catalogue, messages(), -1, "020001")) << "no node: from the start";
    EXPECT_EQ(aidDescription(catalogue, messages(), 1, "0101"), std::nullopt) << "the code must match whole";

    // Tree and name searches fold Hungarian case.
    EXPECT_EQ(findInAidTree(catalogue, cp("ORTÉZ"), 0), 0);
    EXPECT_EQ(findInAidTree(catalogue, cp("kötszerek"), 0), 3);
    EXPECT_EQ(findInAidTree(catalogue, "01", 1), 1) << "the next hit from a node on";
    EXPECT_EQ(findInAidTree(catalogue, "01", 3), 4);
    EXPECT_EQ(findInAidTree(catalogue, "01", 5), -1);
    EXPECT_EQ(findInAidTree(catalogue, "nincs", 0), -1);
    const auto hits = findAidNames(catalogue, cp("ORTÉZIS"));
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(utf8(hits[0].name), "Térdortézis darab");
    EXPECT_EQ(hits[0].code, "010101");
    EXPECT_EQ(hits[0].node, 1);
    EXPECT_TRUE(findAidNames(catalogue, "010101").empty()) << "codes are not names";
    EXPECT_EQ(groupOfAid(catalogue, "020001"), 3) << "0201 is no prefix of 020001";
    EXPECT_EQ(groupOfAid(catalogue, "990001"), -1) << "an aid in no group";
}

TEST_F(AidCatalogueFiles, BadPositionsAndShortFilesListNothingAndNeverReadPastTheEnd)
{
    // What is wrong, sepos.dat, se.dat ("": missing), and the aids listed in group 1.
    using Case = std::tuple<const char*, std::string, std::string, std::size_t>;
    const Case cases[] = {
        {"offset past the end", "0\r\n999999\r\n", se, 0},
        {"offset negative", "0\r\n-5\r\n", se, 0},
        {"offset not a number", "0\r\nabc\r\n", se, 0},
        {"fewer positions than nodes", "0\r\n", se, 0},
        {"se.dat cut inside the second line", "0\r\n0\r\n", se.substr(0, se.find("Boka") + 2), 2},
        {"se.dat missing", "0\r\n0\r\n", "", 0},
    };
    for (const auto& [what, positions, seDat, listedInGroup1] : cases) {
        SCOPED_TRACE(what);
        write("sepos.dat", positions);
        if (seDat.empty())
            directory.remove("se.dat");
        else
            write("se.dat", seDat);
        const AidCatalogue catalogue = load();
        EXPECT_EQ(listAidGroup(catalogue, 1).size(), listedInGroup1);
        EXPECT_EQ(aidDescription(catalogue, messages(), 1, "019999"), std::nullopt);
    }
}

}  // namespace
}  // namespace rovanel

#include "rx/Qualification.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

TEST(Tamttt, EntryIsFoundAsASubstringAndCutIntoFourFields)
{
    const std::string_view file =
        "200000001;1011111000;_EU13/b;EU10\r\n"
        "200000002;1010100000;EU10,_EU13/b;\r\n"
        "200000003;10101\n"
        "200000004";
    using Case = std::tuple<const char*, bool, const char*, RegulationKeys>;
    const Case cases[] = {
        {"200000001", true, "1011111000", {"EU10", "_EU13/b"}},  // no CR in the free key
        {"200000002", true, "1010100000", {"", "EU10,_EU13/b"}},
        {"200000003", true, "10101", {"", ""}},  // a short line: missing fields are empty
        {"200000004", true, "", {"", ""}},       // the key at the very end of the file
        {"999999999", false, "0000000000", {"", ""}},
        {"", false, "0000000000", {"", ""}},          // an empty key is no key
        {"1111000;", true, "_EU13/b", {"", "EU10"}},  // the first occurrence, wherever it stands
    };
    for (const auto& [key, found, flags, keys] : cases) {
        SCOPED_TRACE(key);
        const TamtttEntry entry = lookupTamttt(file, key);
        EXPECT_EQ(entry.found, found);
        EXPECT_EQ(entry.flags, flags);
        EXPECT_EQ(entry.keys, keys);
    }
}

TEST(Qualification, CodesAndSearchKey)
{
    EXPECT_EQ(qualificationCodes("00301,kardiológia;00401,tüdőgyógyászat;00501"),
              (std::vector<std::string>{"00301", "00401"}));
    EXPECT_EQ(qualificationCodes(";00101;"), (std::vector<std::string>{"", "00101"}));
    EXPECT_TRUE(qualificationCodes("").empty());
    EXPECT_EQ(qualificationSearchKey("90%  EU13/b"), "_EU13/b");
    EXPECT_EQ(qualificationSearchKey("70%  EU16/a"), "&EU16/a");
    EXPECT_EQ(qualificationSearchKey("50%  EU1234567890XYZ"), "*EU12345678");
    EXPECT_EQ(qualificationSearchKey("100% EU10"), "EU10");
    EXPECT_EQ(qualificationSearchKey("90%"), "_");
}

TEST(Qualification, CheckOutcomesInOrder)
{
    const std::string_view szvhr = "_EU13/b,00301;\r\nEU10,00401;\r\n";
    using Case = std::tuple<const char*, std::vector<std::string>, const char*, const char*, const char*,
                            bool, const char*>;
    const char* unknown =
        "A program nem tudta megállapítani az Ön szakképesítését, ellenőrizze rendelet szövege szerinti "
        "felirási jogsultságát!";
    const char* refused = "Az adott szakképesítéssel EÜ támogatással nem rendelhető";
    const char* recommended = "A rendelet szövege szerinti szakképesítéssel rendelhető szakorvosi javaslatra";
    const Case cases[] = {
        {"no qualification known", {}, "90%  EU13/b", "", "0", true, unknown},
        {"qualified", {"00101", "00301"}, "90%  EU13/b", "", "0", true, ""},
        {"qualified for another point only", {"00401"}, "90%  EU13/b", "", "1", false, refused},
        {"on a specialist's recommendation", {"00401"}, "90%  EU13/b", "12345", "1", true, recommended},
        {"recommendation the drug does not allow", {"00401"}, "90%  EU13/b", "12345", "0", false, refused},
        {"a free point", {"00401"}, "100% EU10", "", "0", true, ""},
    };
    for (const auto& [what, qualifications, designation, recommendation, flag, accepted, message] : cases) {
        SCOPED_TRACE(what);
        const QualificationCheck check =
            checkQualification(szvhr, qualifications, designation, recommendation, flag);
        EXPECT_EQ(check.accepted, accepted);
        EXPECT_EQ(check.message ? cp1250ToUtf8(check.message->text) : "", message);
    }
    EXPECT_TRUE(restrictedByQualification(szvhr, "90%  EU13/b"));
    EXPECT_FALSE(restrictedByQualification(szvhr, "70%  EU16/a"));
    EXPECT_FALSE(restrictedByQualification(szvhr, ""));
}

}  // namespace
}  // namespace rovanel

#include "app/IniFile.h"

#include <gtest/gtest.h>

#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

TEST(ProfileLookup, MatchesSectionsAndKeysWithoutRegardToCase)
{
    const std::string content =
        "; comment\r\n[Other]\r\nKey=other\r\n[Rovanel Beallitasok]\r\n  ttnemkellleirasba =  IGEN  \r\n"
        "Quoted=\"a b\"\r\nKey=first\r\nKey=second\r\nEmpty=\r\n";
    using Case = std::tuple<const char*, const char*, const char*, std::optional<std::string>>;
    const Case cases[] = {
        {"case of key and section", "ROVANEL BEALLITASOK", "TTNemKellLeirasba", "IGEN"},
        {"surrounding quotes go", "Rovanel Beallitasok", "Quoted", "a b"},
        {"first of duplicate keys wins", "Rovanel Beallitasok", "Key", "first"},
        {"key of another section", "Other", "Key", "other"},
        {"empty value", "Rovanel Beallitasok", "Empty", ""},
        {"missing key", "Rovanel Beallitasok", "Nope", std::nullopt},
        {"missing section", "Nope", "Key", std::nullopt},
    };
    for (const auto& [what, section, key, expected] : cases)
        EXPECT_EQ(findProfileValue(content, section, key), expected) << what;
}

TEST(ProfileUpdate, ReplacesInPlaceAndKeepsEveryOtherLine)
{
    const std::string content = "[A]\r\nx=1\r\n; note\r\n\r\n[B]\r\ny=2\r\n";
    EXPECT_EQ(setProfileValue(content, "a", "X", "9"), "[A]\r\nX=9\r\n; note\r\n\r\n[B]\r\ny=2\r\n");
    EXPECT_EQ(setProfileValue(content, "A", "z", "3"), "[A]\r\nx=1\r\n; note\r\nz=3\r\n\r\n[B]\r\ny=2\r\n")
        << "a new key goes after the section's last line, before the blank line";
    EXPECT_EQ(setProfileValue(content, "C", "k", "v"), content + "[C]\r\nk=v\r\n");
    EXPECT_EQ(setProfileValue("[A]\r\nx=1", "A", "y", "2"), "[A]\r\nx=1\r\ny=2\r\n");
    EXPECT_EQ(setProfileValue("", "A", "y", "2"), "[A]\r\ny=2\r\n");
}

TEST(ProfileFile, ReadsDefaultsAndWritesAtomicallyOrNotAtAll)
{
    testing::ScratchDirectory directory;
    const auto file = directory.path() / "sub" / "RV.INI";
    EXPECT_EQ(readProfileString(file, "S", "K", "NEM"), "NEM");
    ASSERT_TRUE(writeProfileString(file, "S", "K", "IGEN"));
    ASSERT_TRUE(writeProfileString(file, "S", "L", "x"));
    EXPECT_EQ(directory.read("sub/RV.INI"), "[S]\r\nK=IGEN\r\nL=x\r\n");
    EXPECT_EQ(readProfileString(file, "S", "K", "NEM"), "IGEN");
    EXPECT_EQ(readProfileString(file, "S", "K", "", 3), "IG") << "cut to its read buffer";
    EXPECT_FALSE(std::filesystem::exists(directory.path() / "sub" / "RV.INI.tmp~"));

    // A failed write leaves the old file as it was: the temporary file's name is taken by a directory.
    std::filesystem::create_directories(directory.path() / "sub" / "RV.INI.tmp~");
    EXPECT_FALSE(writeProfileString(file, "S", "K", "new"));
    EXPECT_EQ(directory.read("sub/RV.INI"), "[S]\r\nK=IGEN\r\nL=x\r\n");
}

}  // namespace
}  // namespace rovanel

#include "db/Text.h"

#include <gtest/gtest.h>

namespace rovanel
{

TEST(Trim, CutsAtTildeAndRemovesTrailingBlanksButNeverTheFirstCharacter)
{
    struct Case {
        const char* what;
        std::string_view in;
        std::string_view out;
    };
    const Case cases[] = {
        {"plain", "abc", "abc"},
        {"trailing blanks tabs and line end", "abc \t\r\n", "abc"},
        {"comment after tilde", "abc ~ note", "abc"},
        {"lone carriage return line stays", "\r\n", "\r"},
        {"all blanks keep one", "   ", " "},
        {"empty", "", ""},
        {"leading blank kept", " NULL", " NULL"},
        {"tilde first", "~abc", ""},
        {"fixed-width padding", "AB CD             \r", "AB CD"},
        {"blank inside the last eight bytes", "ABCDEFGH  X", "ABCDEFGH  X"},
        {"long run of blanks after one letter", "A                        ", "A"},
        {"tab between blanks", "AB     \t    ", "AB"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(trim(c.in), c.out);
    }
}

TEST(PadTo, PadsToWidthMinusOneAndCutsLongerText)
{
    EXPECT_EQ(padTo("ab", 5), "ab  ");
    EXPECT_EQ(padTo("abcdef", 5), "abcd");
    EXPECT_EQ(padTo("x", 0), "");
}

TEST(ScanInteger, ReadsLikePercentLd)
{
    std::size_t consumed = 0;
    EXPECT_EQ(scanInteger("   42  ", &consumed), 42);
    EXPECT_EQ(consumed, 5u);
    EXPECT_EQ(scanInteger("-7,3"), -7);
    EXPECT_EQ(scanInteger("x12"), std::nullopt);
    EXPECT_EQ(scanInteger(""), std::nullopt);
    EXPECT_EQ(scanInteger("99999999999"), std::nullopt);
    EXPECT_EQ(scanInteger("-"), std::nullopt);
}

TEST(FixedRecord, ARecordCutShortIsNoRecord)
{
    EXPECT_EQ(fixedRecord("abcdefg", 3, 1), "def");
    EXPECT_EQ(fixedRecord("abcdefg", 3, 2), std::nullopt);
    EXPECT_EQ(fixedRecord("abc", 0, 0), std::nullopt);
}

}  // namespace rovanel

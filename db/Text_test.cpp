// The text helpers: field readers, the Windows-1250 converter, ATC code forms and tree files.
#include "db/Text.h"

#include <gtest/gtest.h>

#include "db/AtcCode.h"
#include "db/Cp1250.h"
#include "db/TreeFile.h"

namespace rovanel
{
namespace
{

TEST(Trim, CutsAtTildeAndRemovesTrailingBlanksButNeverTheFirstCharacter)
{
    struct Case {
        const char* what;
        std::string_view in, out;
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
    for (const Case& c : cases) EXPECT_EQ(trim(c.in), c.out) << c.what;
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
    for (const char* text : {"x12", "", "99999999999", "-"})
        EXPECT_EQ(scanInteger(text), std::nullopt) << text;
}

TEST(FixedRecord, ARecordCutShortIsNoRecord)
{
    EXPECT_EQ(fixedRecord("abcdefg", 3, 1), "def");
    EXPECT_EQ(fixedRecord("abcdefg", 3, 2), std::nullopt);
    EXPECT_EQ(fixedRecord("abc", 0, 0), std::nullopt);
}

TEST(Cp1250, CarriesEveryHungarianLetterBothWaysAndMarksWhatCannotBeCarried)
{
    const std::string utf8 = "áéíóöőúüű ÁÉÍÓÖŐÚÜŰ ł";
    const std::string bytes = utf8ToCp1250(utf8);
    EXPECT_EQ(bytes, "\xE1\xE9\xED\xF3\xF6\xF5\xFA\xFC\xFB \xC1\xC9\xCD\xD3\xD6\xD5\xDA\xDC\xDB \xB3");
    EXPECT_EQ(cp1250ToUtf8(bytes), utf8);
    EXPECT_EQ(utf8ToCp1250("日本"), "??");
    EXPECT_EQ(utf8ToCp1250("a\xC3"), "a?") << "a sequence cut short";
    EXPECT_EQ(utf8ToCp1250("\xFF"), "?");
    EXPECT_EQ(cp1250ToUtf8("\x81"), "\xEF\xBF\xBD") << "an undefined byte becomes U+FFFD";
}

TEST(Utf8ToUtf16, GivesEveryHungarianLetterItsOwnCodePoint)
{
    struct Case {
        const char* what;
        std::string_view utf8;
        std::u16string_view expected;
    };
    const Case cases[] = {
        {"small letters", "áéíóöőúüű", u"\u00E1\u00E9\u00ED\u00F3\u00F6\u0151\u00FA\u00FC\u0171"},
        {"capitals", "ÁÉÍÓÖŐÚÜŰ", u"\u00C1\u00C9\u00CD\u00D3\u00D6\u0150\u00DA\u00DC\u0170"},
        {"o and u with double acute, not in Latin-1", "Ő ű", u"\u0150 \u0171"},
        {"ASCII and CR LF unchanged", "Lez\r\n\t1", u"Lez\r\n\t1"},
        {"outside the basic plane: a surrogate pair", "\xF0\x9F\x92\x8A", u"\xD83D\xDC8A"},
        {"malformed byte", "a\xFF!", u"a\uFFFD!"},
        {"lead byte without its continuation", "\xC5z", u"\uFFFDz"},
        {"cut off at the end", "a\xC5", u"a\uFFFD"},
        {"empty", "", u""},
    };
    for (const Case& c : cases) EXPECT_EQ(utf8ToUtf16(c.utf8), c.expected) << c.what;
}

TEST(CompleteUtf8Length, LeavesOutOnlyACharacterCutOffAtTheEnd)
{
    struct Case {
        const char* what;
        std::string_view utf8;
        std::size_t expected;
    };
    const Case cases[] = {
        {"empty", "", 0},
        {"ASCII", "abc", 3},
        {"whole o with double acute", "a\xC5\x91", 3},
        {"its first byte only", "a\xC5", 1},
        {"euro sign, two of three bytes", "\xE2\x82", 0},
        {"euro sign whole", "\xE2\x82\xAC", 3},
        {"four-byte character, three bytes", "x\xF0\x9F\x92", 1},
        {"stray continuation byte: nothing to wait for", "a\x91", 2},
        {"malformed lead byte: nothing to wait for", "a\xFF", 2},
    };
    for (const Case& c : cases) EXPECT_EQ(completeUtf8Length(c.utf8), c.expected) << c.what;
}

TEST(AtcCode, TypedInternationalCodesFindTheCarriedFormAndTheCarriedFormShowsTheInternational)
{
    struct Case {
        std::string_view typed, carried, shown;
    };
    const Case cases[] = {
        {"C", "C", "C"},
        {"c08", "C08", "C08"},
        {"C08C", "C08C", "C08C"},
        {"C08CA", "C08CA-", "C08CA"},
        {"c08ca01", "C08CA-01", "C08CA01"},
        {"C08CA-01", "C08CA-01", "C08CA01"},
        {"C08CA-", "C08CA-", "C08CA"},
        {"C08CA-0103", "C08CA-0103", "C08CA0103"},
        {"", "", ""},
        {"C08CA0123", "C08CA0123", "C08CA0123"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(atcFromInternational(c.typed), c.carried) << c.typed;
        EXPECT_EQ(internationalFromAtc(c.carried), c.shown) << c.carried;
    }
}

TEST(ParseTreeText, EveryLineIsANodeAndBadIndentationHasADefinedDepth)
{
    struct Case {
        const char* what;
        std::string_view text;
        std::vector<TreeNode> nodes;
    };
    const Case cases[] = {
        {"nested with CR LF",
         "A\r\n\tB\r\n\t\tC\r\n\tD\r\nE\r\n",
         {{0, "A"}, {1, "B"}, {2, "C"}, {1, "D"}, {0, "E"}}},
        {"no line end at the end", "A\n\tB", {{0, "A"}, {1, "B"}}},
        {"indented first line", "\t\tA\r\n\tB\r\n", {{0, "A"}, {1, "B"}}},
        {"jump of two levels", "A\r\n\t\t\tB\r\n\t\t\t\tC\r\n", {{0, "A"}, {1, "B"}, {2, "C"}}},
        {"blank line keeps the numbering", "A\r\n\r\n\tB\r\n", {{0, "A"}, {0, ""}, {1, "B"}}},
        {"leading blanks are text, trailing ones go", "A\r\n\t  B \t\r\n", {{0, "A"}, {1, "  B"}}},
        {"empty", "", {}},
    };
    for (const Case& c : cases) EXPECT_EQ(parseTreeText(c.text), c.nodes) << c.what;
}

TEST(LoadTreeFile, MissingFileGivesNothing) { EXPECT_FALSE(loadTreeFile("/nonexistent/rovanel/rend2.ful")); }

}  // namespace
}  // namespace rovanel

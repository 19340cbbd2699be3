#include "db/Cp1250.h"

#include <gtest/gtest.h>

namespace rovanel
{
namespace
{

TEST(Cp1250, CarriesEveryHungarianLetterBothWays)
{
    const std::string utf8 = "áéíóöőúüű ÁÉÍÓÖŐÚÜŰ ł";
    const std::string bytes = utf8ToCp1250(utf8);
    EXPECT_EQ(bytes, "\xE1\xE9\xED\xF3\xF6\xF5\xFA\xFC\xFB \xC1\xC9\xCD\xD3\xD6\xD5\xDA\xDC\xDB \xB3");
    EXPECT_EQ(cp1250ToUtf8(bytes), utf8);
}

TEST(Cp1250, MarksWhatCannotBeCarried)
{
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

}  // namespace
}  // namespace rovanel

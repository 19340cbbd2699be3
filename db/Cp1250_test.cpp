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

}  // namespace
}  // namespace rovanel

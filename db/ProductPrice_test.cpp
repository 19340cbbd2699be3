#include "db/ProductPrice.h"

#include <gtest/gtest.h>

namespace rovanel
{
namespace
{

TEST(SplitSupportLine, CutsTwentyTwoFieldsWithTheirOwnDelimiters)
{
    const auto fields = splitSupportLine(
        "22,5;1;2;3;13-;_EU12/a 2100,EU5 1900;2;1;0^1@210751477#a$b*c[3]123456{7}8(9)x\xB3-1@C08CA01");
    const std::array<std::string, 22> expected = {
        "22,5", "1", "2",  "3",      "13-",       "_EU12/a 2100,EU5 1900",
        "2",    "1", "0",  "1",      "210751477", "a",
        "b",    "c", "3",  "123456", "7",         "8",
        "9",    "x", "-1", "C08CA01"};
    EXPECT_EQ(fields, expected);
}

TEST(SplitSupportLine, EmptyFieldsMergeAndMissingFieldsAreEmptyAsWithStrtok)
{
    struct Case {
        const char* what;
        std::string_view line;
        std::size_t field;  // 1-based
        std::string expected;
    };
    const Case cases[] = {
        {"doubled ';' skips to the next field's text", "30;;5", 2, "5"},
        {"doubled ';' leaves the last field empty", "30;;5", 3, ""},
        {"line ends early", "30;0", 9, ""},
        {"empty line", "", 1, ""},
        {"a field delimiter of a later field is text in an earlier one", "30^;1", 1, "30^"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(splitSupportLine(c.line)[c.field - 1], c.expected);
    }
}

TEST(LeadingNumber, ReadsAsAtofDoesWithoutTheLocale)
{
    struct Case {
        std::string_view text;
        float expected;
    };
    const Case cases[] = {{"2345", 2345}, {"  12.5 Ft", 12.5f}, {"-3", -3}, {"1,5", 1}, {"abc", 0},
                          {"", 0},        {".5", 0.5f},         {"+7", 7}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.text));
        EXPECT_FLOAT_EQ(leadingNumber(c.text), c.expected);
    }
    EXPECT_FLOAT_EQ(dailyDoses("-"), 0.0f);  // "1,5" a day is DescriptionBuilder_test's
}

TEST(IndicationSupports, CodesWithoutAmpersandUnderscoreOrStarAreHighlighted)
{
    const auto supports = indicationSupports("_EU12/a 2100,EU5 1900, &X 5,*Y 7,-,Z");
    ASSERT_EQ(supports.size(), 4u);
    EXPECT_EQ(supports[0].code, "_EU12/a");
    EXPECT_EQ(supports[0].amount, 2100);
    EXPECT_FALSE(supports[0].highlighted);
    EXPECT_EQ(supports[1].code, "EU5");
    EXPECT_TRUE(supports[1].highlighted);
    EXPECT_FALSE(supports[2].highlighted);
    EXPECT_FALSE(supports[3].highlighted);
    EXPECT_TRUE(indicationSupports("-").empty());
}

TEST(PriceData, ReadsThePriceLinesAndTheSupportLineBetweenTheirMarkers)
{
    const std::vector<std::string_view> block = {
        "C08CA-0100", "C08CA-01", "#ar", "2000", "1600", "#ha", "30;0;0;0;1--;-;2;1;1^1", "#ter", "x"};
    const PriceData data = priceData(block);
    EXPECT_TRUE(data.hasPriceLines);
    EXPECT_FLOAT_EQ(data.fullPrice, 2000);
    EXPECT_FLOAT_EQ(data.normativeSupport, 1600);
    EXPECT_EQ(data.support[kFieldDeleted - 1], "1");
    const std::vector<std::string_view> empty = {"C08CA-0100", "#ar", "#ha", "#ter"};
    EXPECT_FALSE(priceData(empty).hasPriceLines);
    EXPECT_EQ(priceData(empty).support[0], "");
    EXPECT_FALSE(priceData({"C08CA-0100", "C08CA-01"}).hasPriceLines);
}

// The costs shown, by the payable and by the full price, are DescriptionBuilder_test's and SameAtc_test's.
TEST(DailyCost, NeedsAPriceAndAPositiveDoseCount)
{
    EXPECT_FALSE(dailyCost(0, 0, 30, false));
    EXPECT_FALSE(dailyCost(2000, 400, 0, false));
    EXPECT_FALSE(dailyCost(2000, 400, -1, false));
    EXPECT_EQ(fixedDecimals(-2.25, 1), "-2.2");
}

}  // namespace
}  // namespace rovanel

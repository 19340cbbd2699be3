#include "rx/Titles.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

// The captions in UTF-8, joined by '|'.
std::string utf8(const TitleCaptions& captions)
{
    std::string out;
    for (const std::string& caption : captions) out += (out.empty() ? "" : "|") + cp1250ToUtf8(caption);
    return out;
}

TEST(Titles, RelabellingFollowsTheFlagsInTableOrder)
{
    // What the flags are, whether layout A relabels, the flags, and the ten captions joined by '|'.
    using Case = std::tuple<const char*, bool, const char*, const char*>;
    const Case cases[] = {
        {"A: all zero", true, "00000000000", "Normatív|-|-|-|-|-|Teljes ár|-|-|Egyedi támogatás"},
        {"A: all one", true, "11111111111",
         "Normatív|HM|Közgyógy|Üzemi baleset|Eü. kiemelt|Eü. emelt|Teljes ár|Eü. kiem. + közgy|"
         "Eü. emelt. + közgy|Egyedi támogatás"},
        {"A: positions past a short string count as zero", true, "1111",
         "Normatív|-|Közgyógy|-|-|-|Teljes ár|-|-|Egyedi támogatás"},
        {"A: public care without the supports clears 7 and 8", true, "00010010100",
         "Normatív|HM|Közgyógy|Üzemi baleset|-|-|Teljes ár|-|-|Egyedi támogatás"},
        {"A: a non-'0' flag that is not '1' enables but does not combine", true, "000x000001x",
         "Normatív|-|Közgyógy|-|Eü. kiemelt|Eü. emelt|Teljes ár|Eü. kiem. + közgy|Eü. emelt.+ közgy.|"
         "Egyedi támogatás"},
        {"B: all zero (a permanent drug without tamttt.dat entry)", false, "0000000000",
         "Normatív|-|-|-|-|-|Teljes ár|-|-|Egyedi támogatás"},
        {"B: all one", false, "1111111111",
         "Normatív|HM|Közgyógy|Üzemi baleset|Eü. rend.|Eü. térítésköteles|Teljes ár|Eü. rend. + közgy|"
         "Eü. térítésköt. + közgy|Egyedi támogatás"},
        {"B: fee-paying without public care", false, "1010100000",
         "Normatív|HM|-|Üzemi baleset|-|Eü. térítésköteles|Teljes ár|-|-|Egyedi támogatás"},
    };
    for (const auto& [what, layoutA, flags, expected] : cases) {
        SCOPED_TRACE(what);
        TitleCaptions captions = defaultTitleCaptions();
        (layoutA ? relabelLayoutA : relabelLayoutB)(captions, std::string_view(flags));
        EXPECT_EQ(utf8(captions), expected);
        relabelLayoutA(captions, std::nullopt);  // no flags leave the group as it is
        relabelLayoutB(captions, std::nullopt);
        EXPECT_EQ(utf8(captions), expected);
    }
}

TEST(Titles, ChoosingATitle)
{
    TitleCaptions captions = defaultTitleCaptions();
    relabelLayoutA(captions, std::string_view("00000000011"));  // only 4 and 5 open
    // The title, the prescription's source, whether the button still reads "Kódtábla", the message, and
    // whether the BNO code list opens.
    using Case = std::tuple<int, int, bool, const char*, bool>;
    const Case cases[] = {
        {1, 3, true, "Nem rendelhető ilyen jogcímen", false},
        {4, 3, true, "", true},
        {5, 2, true, "", true},
        {5, 1, true, "", false},
        {5, 0, true, "", false},
        {4, 3, false, "", false},  // the button already reads "Beilleszt"
        {0, 3, true, "", false},
    };
    for (const auto& [index, source, codeTable, message, openBnoCodes] : cases) {
        SCOPED_TRACE(index * 100 + source);
        const TitleChoice choice = titleChosen(captions, index, source, codeTable);
        EXPECT_EQ(choice.message ? cp1250ToUtf8(choice.message->text) : "", message);
        EXPECT_EQ(choice.openBnoCodes, openBnoCodes);
    }
    EXPECT_TRUE(isFeePayingTitle(5) && isFeePayingTitle(8) && !isFeePayingTitle(4) && !isFeePayingTitle(7));
}

}  // namespace
}  // namespace rovanel

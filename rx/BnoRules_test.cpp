#include "rx/BnoRules.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

// Rules of every kind: a free point, a 90 % point, a free wildcard, a 70 % wildcard, and a damaged tail.
constexpr std::string_view kRules =
    "EU10 E1190\r\n"
    "EU10 I10H0\r\n"
    "_EU13/b J4500\r\n"
    "_EU13/b I10H0\r\n"
    "EU20 XXXXX\r\n"
    "&EU16/a XXXXX\r\n"
    "no-blank-line\r\n"
    " E1190\r\n";

constexpr const char* kAccepted = "accepted";
constexpr const char* kNotInRules = "Hiba: Rendeletben nem szereplő BNO kód";
constexpr const char* kNoRules = "Hiba: Nincs hozzárendelt BNO kód";

std::string text(const std::optional<Message>& message)
{
    return message ? cp1250ToUtf8(message->text) : std::string(kAccepted);
}

TEST(BnoCheck, EveryPathEndsInItsOwnMessage)
{
    struct Case {
        const char* what;
        RegulationKeys keys;
        const char* code;
        bool feePaying;
        int source;
        const char* expected;
    };
    const Case cases[] = {
        // Simple mode: neither key holds a comma.
        {"free key admits its code", {"EU10", "_EU13/b"}, "E1190", false, 3, kAccepted},
        {"fee key admits its code", {"EU10", "_EU13/b"}, "J4500", true, 3, kAccepted},
        {"free key, code of no rule", {"EU10", "_EU13/b"}, "K2900", false, 3, kNotInRules},
        {"fee key, code only the free key has", {"EU10", "_EU13/b"}, "E1190", true, 3, kNotInRules},
        {"wildcard admits any code", {"EU20", ""}, "K2900", false, 3, kAccepted},
        {"fee wildcard admits any code", {"", "&EU16/a"}, "Z0000", true, 3, kAccepted},
        {"key on no line", {"EU99", ""}, "E1190", false, 3, kNoRules},
        {"free slot, 90 % key", {"_EU13/b", ""}, "K2900", false, 3, "Csak térítéskötelesre rendelhető"},
        {"fee slot, free key", {"", "EU10"}, "K2900", true, 3, "Csak térítésmentesre rendelhető"},
        {"fee slot, free key: still admits in simple mode", {"", "EU10"}, "E1190", true, 3, kAccepted},
        {"both keys empty", {"", ""}, "E1190", false, 3, "Nem rendelhető rendelet szerinti támogatással."},
        {"medical aid, no keys at all", {"", ""}, "", false, 2, kAccepted},
        // Five-character prefix match, shorter codes compared to their end.
        {"longer entered code matches its first five", {"EU10", ""}, "E11901", false, 3, kAccepted},
        {"four characters do not match five", {"EU10", ""}, "E119", false, 3, kNotInRules},
        // List mode: a comma in either key.
        {"list: prefixed fee key admits", {"EU10,EU20", "EU10,_EU13/b"}, "J4500", true, 3, kAccepted},
        {"list: unprefixed fee key never", {"EU10,EU20", "EU10,_EU13/b"}, "E1190", true, 3, kNotInRules},
        {"list: only unprefixed fee keys see no rule", {"", "EU10,EU20"}, "E1190", true, 3, kNoRules},
        {"list: free key admits whatever its prefix", {"_EU13/b,EU99", ""}, "J4500", false, 3, kAccepted},
        {"list: free keys without a free rule", {"EU99,EU98", "_EU13/b"}, "J4500", false, 3, kNoRules},
        {"list: free wildcard in the list", {"EU99,EU20", ""}, "A0000", false, 3, kAccepted},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const BnoCheckResult result = checkBnoText(kRules, c.keys, c.code, c.feePaying, c.source);
        EXPECT_EQ(text(result.message), c.expected);
        EXPECT_EQ(result.accepted, std::string_view(c.expected) == kAccepted);
    }
}

TEST(BnoCheck, AMissingFileIsNamedOnlyWhenTheKeysNeedItAndLinesAreReadThroughTheirBuffer)
{
    testing::ScratchDirectory empty;
    EXPECT_EQ(text(checkBno(empty.path(), {"EU10", ""}, "E1190", false, 3).message), "BNOHR.DAT hiányzik.");
    EXPECT_EQ(text(checkBno(empty.path(), {"", ""}, "E1190", false, 3).message),
              "Nem rendelhető rendelet szerinti támogatással.");
    EXPECT_TRUE(checkBno(empty.path(), {"EU10", ""}, "E1190", false, 2).accepted);

    // A CR before the LF is no part of the code; a line over 1,023 bytes is cut, its tail is no rule.
    const std::string rules = "EU10 E1190\r\nEU11 " + std::string(1100, 'A') + "\nEU12 K2900";
    EXPECT_TRUE(checkBnoText(rules, {"EU10", ""}, "E1190", false, 3).accepted);
    EXPECT_TRUE(checkBnoText(rules, {"EU12", ""}, "K2900", false, 3).accepted) << "a last line without LF";
    EXPECT_EQ(text(checkBnoText(rules, {"EU11", ""}, "AAAAA", false, 3).message), "accepted");
}

TEST(BnoCodeList, LinesCarryCodeRateAndKeyOrTheMessage)
{
    const BnoCodeList free = bnoCodeListText(kRules, {"EU10", "_EU13/b"}, false);
    ASSERT_FALSE(free.message);
    EXPECT_EQ(free.lines, (std::vector<std::string>{"E1190 \t100%  EU10\t", "I10H0 \t100%  EU10\t"}));
    const BnoCodeList fee = bnoCodeListText(kRules, {"EU10", "_EU13/b"}, true);
    EXPECT_EQ(fee.lines, (std::vector<std::string>{"J4500 \t90%  EU13/b\t", "I10H0 \t90%  EU13/b\t"}));
    EXPECT_EQ(bnoCodeListText(kRules, {"", "&EU16/a"}, true).lines,
              (std::vector<std::string>{"XXXXX \t70%  EU16/a\t"}));

    EXPECT_EQ(codeOfListLine(fee.lines[0]), "J4500");
    EXPECT_EQ(keyOfListLine(fee.lines[0]), "_EU13/b");
    EXPECT_EQ(keyOfListLine(free.lines[0]), "EU10");
    EXPECT_EQ(keyOfListLine("garbage"), "");
    // Nothing listed: the message says why.
    EXPECT_EQ(text(bnoCodeListText(kRules, {"EU99", ""}, false).message), "Hiba: Nincs hozzárendelt BNO kód");
    EXPECT_EQ(text(bnoCodeListText(kRules, {"", ""}, false).message),
              "Nem rendelhető rendelet szerinti támogatással.");
    EXPECT_EQ(text(bnoCodeListText(std::nullopt, {"EU10", ""}, false).message), "BNOHR.DAT hiányzik.");
}

}  // namespace
}  // namespace rovanel

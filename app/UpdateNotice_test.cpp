#include "app/UpdateNotice.h"

#include <gtest/gtest.h>

#include "app/RegistrySettings.h"
#include "db/Cp1250.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

TEST(SplitNoticeReply, CutsThreeLinesAtTheirCarriageReturnsWithinOneHundredBytes)
{
    const std::string hundred(100, 'h');
    const struct {
        const char* what;
        std::string body;
        NoticeLines expected;
    } cases[] = {
        {"three lines",
         "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n4\r\n",
         {"20261201", "2026.12.01", "www.rovanel.hu"}},
        {"no CR: line 1 empty, line 2 from the third byte", "20261201", {"", "261201", ""}},
        {"LF ends no line", "1\n2\n3", {"", "2\n3", ""}},
        {"one byte", "x", {"", "", ""}},
        {"line 2 over 100 bytes: line 3 starts two bytes past its window",
         "d\r\n" + hundred + "xyz\r\n",
         {"d", hundred, "z"}},
        {"line 1 over 100 bytes", std::string(150, '9') + "\r\n2\r\n3", {std::string(100, '9'), "2", "3"}},
    };
    for (const auto& c : cases) EXPECT_EQ(splitNoticeReply(c.body), c.expected) << c.what;
}

TEST(UpdateNotice, ProxyPortThatIsNoPortIsZero)
{
    for (const auto& [port, expected] : {std::pair{"3128", 3128}, {"31x", 0}, {"-1", 0}, {"65536", 0}})
        EXPECT_EQ(proxySetting("proxy", port).port, expected) << port;
    EXPECT_EQ(hostOfUrl("http://u@[::1]:80/a"), "[::1]");
}

TEST(UpdateNotice, NewlyInstalledDatabaseIsRememberedAndReArmsTheNotice)
{
    testing::ScratchDirectory directory;
    auto store = openRegistryFile(directory.path() / "registry.ini");
    ASSERT_FALSE(EnsureRegistryDefaults(*store));
    ASSERT_FALSE(RegWriteString(*store, "\\Software\\Rovanel\\Version", "20261001"));
    ASSERT_FALSE(RegWriteBool(*store, "\\Software\\Rovanel\\UpgShow", false));
    const std::string reply = "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n";
    const auto upgShow = [&] { return RegReadBool(*store, "\\Software\\Rovanel\\UpgShow").value; };
    const auto version = [&] { return RegReadString(*store, "\\Software\\Rovanel\\Version").value; };

    // The database seen last time: the notice stays off for an automatic run, a manual one shows it.
    EXPECT_FALSE(evaluateNoticeReply(*store, reply, "20261001", false).showNotice);
    EXPECT_TRUE(evaluateNoticeReply(*store, reply, "20261001", true).showNotice);
    EXPECT_FALSE(upgShow());
    // A later one was installed: remembered, and the notice is on again.
    EXPECT_TRUE(evaluateNoticeReply(*store, reply, "20261101", false).showNotice);
    EXPECT_EQ(version(), "20261101");
    EXPECT_TRUE(upgShow());
    // An older one does not move it back; an empty reply touches nothing.
    (void)evaluateNoticeReply(*store, reply, "20260101", false);
    (void)evaluateNoticeReply(*store, "", "20261201", false);
    EXPECT_EQ(version(), "20261101");
    // Bytes, not dates: "2026-12" sorts before "20261101", so it is no news.
    const NoticeOutcome older =
        evaluateNoticeReply(*store, "2026-12\r\n\r\nwww.rovanel.hu", "20261101", true);
    EXPECT_FALSE(older.showNotice);
    ASSERT_EQ(older.messages.size(), 1u);
    EXPECT_EQ(cp1250ToUtf8(older.messages[0].text), "Nincsen újabb adatbázis a www.rovanel.hu oldalon");

    // "Version" of another type ends the check with the error's text.
    ASSERT_FALSE(RegWriteInteger(*store, "\\Software\\Rovanel\\Version", 7));
    const NoticeOutcome failed = evaluateNoticeReply(*store, reply, "20261101", true);
    EXPECT_TRUE(failed.registryFailed);
    EXPECT_TRUE(failed.titleSuffix.empty());
    EXPECT_EQ(failed.messages,
              (std::vector<Message>{{utf8ToCp1250("Az adat érvénytelen."), "Rovanel", MessageIcon::Stop}}));
    auto empty = openRegistryFile(directory.path() / "empty.ini");
    EXPECT_TRUE(evaluateNoticeReply(*empty, reply, "20261101", false).registryFailed);
}

}  // namespace
}  // namespace rovanel

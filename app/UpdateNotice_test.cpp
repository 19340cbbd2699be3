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
    struct Case {
        const char* what;
        std::string body;
        NoticeLines expected;
    };
    const Case cases[] = {
        {"three lines",
         "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n",
         {"20261201", "2026.12.01", "www.rovanel.hu"}},
        {"no final line end",
         "20261201\r\n2026.12.01\r\nwww.rovanel.hu",
         {"20261201", "2026.12.01", "www.rovanel.hu"}},
        {"a fourth line is ignored", "1\r\n2\r\n3\r\n4\r\n", {"1", "2", "3"}},
        {"no CR: line 1 empty, line 2 from the third byte", "20261201", {"", "261201", ""}},
        {"LF only ends no line", "1\n2\n3", {"", "2\n3", ""}},
        {"one byte", "x", {"", "", ""}},
        {"CR only", "\r", {"", "", ""}},
        {"line 2 of exactly 100 bytes", "d\r\n" + hundred + "\r\nplace", {"d", hundred, "place"}},
        {"line 2 over 100 bytes: its window, and line 3 starts two bytes past it",
         "d\r\n" + hundred + "xyz\r\n",
         {"d", hundred, "z"}},
        {"line 1 over 100 bytes is cut",
         std::string(150, '9') + "\r\n2\r\n3",
         {std::string(100, '9'), "2", "3"}},
        {"empty middle line", "d\r\n\r\nplace\r\n", {"d", "", "place"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(splitNoticeReply(c.body), c.expected);
    }
}

TEST(UpdateServerAddress, EnvironmentOverridesTheBuiltInAddressAndTheHostNamesTheMessage)
{
    ::setenv("ROVANEL_UPDATE_URL", "http://127.0.0.1:8080/x/rvupg.ini", 1);
    EXPECT_EQ(updateNoticeUrl(), "http://127.0.0.1:8080/x/rvupg.ini");
    ::unsetenv("ROVANEL_UPDATE_URL");
    EXPECT_NE(updateNoticeUrl().find("rvupg.ini"), std::string::npos);

    struct Case {
        const char* url;
        const char* host;
    };
    const Case cases[] = {
        {"http://frissites.rovanel.hu/rovanel/rvupg.ini", "frissites.rovanel.hu"},
        {"http://127.0.0.1:8080/rvupg.ini", "127.0.0.1"},
        {"http://user@host.hu", "host.hu"},
        {"http://[::1]:80/a", "[::1]"},
        {"host-only", "host-only"},
    };
    for (const Case& c : cases) EXPECT_EQ(hostOfUrl(c.url), c.host) << c.url;
    EXPECT_EQ(cp1250ToUtf8(unreachableMessage("frissites.rovanel.hu").text),
              "Hiba: frissites.rovanel.hu nem érhető el.");
}

TEST(ProxySetting, PortThatIsNoWholeNumberOrOutOfRangeIsZero)
{
    struct Case {
        const char* host;
        const char* port;
        int expected;
    };
    const Case cases[] = {{"proxy", "3128", 3128}, {"proxy", "", 0},      {"proxy", "31x", 0},
                          {"proxy", "-1", 0},      {"proxy", "65536", 0}, {"proxy", "99999999999", 0},
                          {"", "3128", 0}};
    for (const Case& c : cases) EXPECT_EQ(proxySetting(c.host, c.port).port, c.expected) << c.port;
    EXPECT_TRUE(proxySetting("", "3128").host.empty());
}

class NoticeReply : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_store = openRegistryFile(m_directory.path() / "registry.ini");
        ASSERT_FALSE(EnsureRegistryDefaults(*m_store));  // Version "1.0", UpgShow true
    }
    std::string version() { return RegReadString(*m_store, "\\Software\\Rovanel\\Version").value; }
    bool upgShow() { return RegReadBool(*m_store, "\\Software\\Rovanel\\UpgShow").value; }

    testing::ScratchDirectory m_directory;
    std::unique_ptr<RegistryStore> m_store;
};

const std::string kReply = "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n";

TEST_F(NoticeReply, OnlyALaterServerDateIsNews)
{
    struct Case {
        const char* what;
        const char* local;
        bool manual;
        bool notice;
        const char* message;
    };
    const Case cases[] = {
        {"newer, automatic", "20261101", false, true, nullptr},
        {"newer, manual", "20261101", true, true, nullptr},
        {"equal dates are no news", "20261201", true, false,
         "Nincsen újabb adatbázis a www.rovanel.hu oldalon"},
        {"older server", "20270101", true, false, "Nincsen újabb adatbázis a www.rovanel.hu oldalon"},
        {"older server, automatic: silent", "20270101", false, false, nullptr},
        // Bytes, not dates: "9" sorts after "20261201".
        {"text order", "9", true, false, "Nincsen újabb adatbázis a www.rovanel.hu oldalon"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const NoticeOutcome outcome = evaluateNoticeReply(*m_store, kReply, c.local, c.manual);
        EXPECT_EQ(outcome.showNotice, c.notice);
        EXPECT_EQ(cp1250ToUtf8(outcome.titleSuffix),
                  c.notice ? " - Frissítés elérhető a www.rovanel.hu oldalon" : "");
        ASSERT_EQ(outcome.messages.size(), c.message ? 1u : 0u);
        if (c.message) {
            EXPECT_EQ(cp1250ToUtf8(outcome.messages[0].text), c.message);
        }
        EXPECT_FALSE(outcome.registryFailed);
    }
}

TEST_F(NoticeReply, EmptyReplyIsNoNewsEvenForAManualRunAndTouchesNothing)
{
    const NoticeOutcome outcome = evaluateNoticeReply(*m_store, "", "20261101", true);
    EXPECT_TRUE(outcome.messages.empty());
    EXPECT_FALSE(outcome.showNotice);
    EXPECT_EQ(version(), "1.0");
}

TEST_F(NoticeReply, NoticeSwitchedOffShowsOnlyForAManualRun)
{
    ASSERT_FALSE(RegWriteString(*m_store, "\\Software\\Rovanel\\Version", "20261101"));
    ASSERT_FALSE(RegWriteBool(*m_store, "\\Software\\Rovanel\\UpgShow", false));
    EXPECT_FALSE(evaluateNoticeReply(*m_store, kReply, "20261101", false).showNotice);
    EXPECT_FALSE(evaluateNoticeReply(*m_store, kReply, "20261101", false).titleSuffix.empty());
    EXPECT_TRUE(evaluateNoticeReply(*m_store, kReply, "20261101", true).showNotice);
    EXPECT_FALSE(upgShow());
}

TEST_F(NoticeReply, NewlyInstalledDatabaseIsRememberedAndReArmsTheNotice)
{
    ASSERT_FALSE(RegWriteString(*m_store, "\\Software\\Rovanel\\Version", "20261001"));
    ASSERT_FALSE(RegWriteBool(*m_store, "\\Software\\Rovanel\\UpgShow", false));
    // The same database as last time: nothing changes.
    (void)evaluateNoticeReply(*m_store, kReply, "20261001", false);
    EXPECT_FALSE(upgShow());
    // A later one was installed: remembered, and the notice is on again.
    const NoticeOutcome outcome = evaluateNoticeReply(*m_store, kReply, "20261101", false);
    EXPECT_EQ(version(), "20261101");
    EXPECT_TRUE(upgShow());
    EXPECT_TRUE(outcome.showNotice);
    // An older local database does not move the remembered one back.
    (void)evaluateNoticeReply(*m_store, kReply, "20260101", false);
    EXPECT_EQ(version(), "20261101");
}

TEST_F(NoticeReply, RegistryErrorEndsTheCheckWithItsText)
{
    // "Version" written as a number: the read fails with the wrong-type text.
    ASSERT_FALSE(RegWriteInteger(*m_store, "\\Software\\Rovanel\\Version", 7));
    const NoticeOutcome outcome = evaluateNoticeReply(*m_store, kReply, "20261101", true);
    EXPECT_TRUE(outcome.registryFailed);
    EXPECT_FALSE(outcome.showNotice);
    EXPECT_TRUE(outcome.titleSuffix.empty());
    ASSERT_EQ(outcome.messages.size(), 1u);
    EXPECT_EQ(outcome.messages[0].text, utf8ToCp1250(kRegistryWrongTypeText));
    EXPECT_EQ(outcome.messages[0].caption, "Rovanel");

    // A profile without the key at all.
    auto empty = openRegistryFile(m_directory.path() / "empty.ini");
    const NoticeOutcome missing = evaluateNoticeReply(*empty, kReply, "20261101", false);
    EXPECT_TRUE(missing.registryFailed);
    ASSERT_EQ(missing.messages.size(), 1u);
    EXPECT_EQ(missing.messages[0].text, utf8ToCp1250(kRegistryNotFoundText));
}

}  // namespace
}  // namespace rovanel

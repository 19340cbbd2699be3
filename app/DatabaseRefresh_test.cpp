#include "app/DatabaseRefresh.h"

#include <gtest/gtest.h>

#include <map>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

TEST(RefreshDateLine, TakesTheSecondLineAsAStringListSplitsIt)
{
    struct Case {
        const char* what;
        std::string content;
        std::optional<std::string> expected;
    };
    const Case cases[] = {
        {"CR LF", "20261101\r\n2026.11.01\r\n", "2026.11.01"},
        {"LF", "a\nb\n", "b"},
        {"lone CR", "a\rb", "b"},
        {"no line end after line 2", "a\r\nb", "b"},
        {"empty second line", "a\r\n\r\nc", ""},
        {"one line only", "20261101\r\n", std::nullopt},
        {"one line without its end", "20261101", std::nullopt},
        {"empty file", "", std::nullopt},
    };
    for (const Case& c : cases) EXPECT_EQ(refreshDateLine(c.content), c.expected) << c.what;
}

// A data directory and an update directory side by side, as a practice keeps them.
class Refresh : public ::testing::Test
{
protected:
    void SetUp() override
    {
        fs::create_directories(data());
        fs::create_directories(update());
        fill(data(), m_old);
        fill(update(), m_new);
    }

    fs::path data() const { return m_root.path() / "db"; }
    fs::path update() const { return m_root.path() / "upd"; }
    static void fill(const fs::path& directory, const Files& files)
    {
        for (const auto& [name, content] : files) {
            std::ofstream out(directory / name, std::ios::binary);
            out << content;
        }
    }
    static Files contentsOf(const fs::path& directory)
    {
        Files files;
        for (const auto& entry : fs::directory_iterator(directory))
            if (entry.is_regular_file())
                files[entry.path().filename().string()] = readWholeFile(entry.path()).value_or("?");
        return files;
    }
    std::vector<std::string> siblings() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_root.path()))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    RefreshCheck check() { return checkRefresh(data(), update().string() + "/"); }
    RefreshOptions options(std::string program = "rvw32", bool old = false) const
    {
        RefreshOptions o;
        o.programName = std::move(program);
        o.setProgramAsideAsOld = old;
        return o;
    }

    testing::ScratchDirectory m_root;
    Files m_old = {{"ZARAS.INF", "20261101\r\n2026.11.01\r\n"},
                   {"gy.ful", "old products"},
                   {"nevrend.dat", "old names"},
                   {"MSG.DAT", "old messages"},
                   {"rvw32", "old program"}};
    Files m_new = {{"ZARAS.INF", "20261201\r\n2026.12.01\r\n"},
                   {"gy.ful", "new products, longer"},
                   {"nevrend.dat", "new names"},
                   {"MSG.DAT", "new messages"},
                   {"kod.dat", "a file the old edition lacked"},
                   {"rvw32", "new program"}};
};

TEST_F(Refresh, SameOrEarlierSecondLineMeansNothingToDo)
{
    struct Case {
        const char* what;
        const char* updateZaras;
    };
    const Case cases[] = {
        {"same second line", "20261201\r\n2026.11.01\r\n"},  // the first line does not count
        {"earlier", "20261201\r\n2026.10.01\r\n"},
        {"one line only", "20261201\r\n"},
        {"empty", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        fill(update(), {{"ZARAS.INF", c.updateZaras}});
        const RefreshCheck result = check();
        EXPECT_FALSE(result.newer);
        EXPECT_TRUE(result.files.empty());
    }
    fs::remove(update() / "ZARAS.INF");
    EXPECT_FALSE(check().newer);
    fill(update(), m_new);
    fs::remove(data() / "ZARAS.INF");
    EXPECT_FALSE(check().newer);
}

TEST_F(Refresh, UpdatePathIsJoinedAsWrittenAndTakenFromTheSettingsFile)
{
    EXPECT_TRUE(check().newer);
    EXPECT_FALSE(checkRefresh(data(), update().string()).newer) << "no trailing separator: no such file";
    EXPECT_TRUE(checkRefresh(data(), "../upd/").newer) << "relative to the data directory";
    EXPECT_FALSE(checkRefresh(data(), "").newer) << "the data directory against itself";

    EXPECT_EQ(pathToUpdate(data()), "");
    fill(data(), {{"RV.INI", "[Rovanel Beallitasok]\r\nPathToUpdate=" + update().string() + "/\r\n"}});
    EXPECT_EQ(pathToUpdate(data()), update().string() + "/");
}

TEST_F(Refresh, NewerEditionReplacesEveryOrdinaryFileAndLeavesNothingBeside)
{
    fs::create_directories(update() / "archive");
    fill(update() / "archive", {{"old.dat", "x"}});
    fill(update(), {{".hidden", "x"}});
    const RefreshCheck found = check();
    ASSERT_TRUE(found.newer);
    EXPECT_EQ(found.updateDate, "2026.12.01");
    EXPECT_EQ(found.currentDate, "2026.11.01");
    EXPECT_EQ(found.files, (std::vector<std::string>{"MSG.DAT", "ZARAS.INF", "gy.ful", "kod.dat",
                                                     "nevrend.dat", "rvw32"}));

    const RefreshInstall installed = installRefresh(data(), found, options());
    EXPECT_TRUE(installed.installed);
    EXPECT_FALSE(installed.failure);
    EXPECT_EQ(contentsOf(data()), m_new);
    EXPECT_FALSE(fs::exists(data() / "archive"));
    EXPECT_EQ(siblings(), (std::vector<std::string>{"db", "upd"}));
    EXPECT_FALSE(check().newer) << "a second run finds nothing newer";
}

TEST_F(Refresh, UpdateFileReplacesItsNamesakeWhateverItsCase)
{
    fs::rename(update() / "gy.ful", update() / "GY.FUL");
    const RefreshInstall installed = installRefresh(data(), check(), options());
    ASSERT_TRUE(installed.installed);
    Files expected = m_new;
    EXPECT_EQ(contentsOf(data()), expected);  // still "gy.ful", now with the new content
}

TEST_F(Refresh, FailureAtAnyStepLeavesTheOldDatabaseWhole)
{
    struct Case {
        const char* what;
        int failingCopy;    // 1-based, 0: none
        int failingRename;  // 1-based, 0: none
        bool shortCopy;
        const char* why;
    };
    const Case cases[] = {
        {"first copy", 1, 0, false, "nem másolható: MSG.DAT"},
        {"copy mid-way", 4, 0, false, "nem másolható: kod.dat"},
        {"last copy", 6, 0, false, "nem másolható: rvw32"},
        {"copy cut short", 0, 0, true, "hiányos másolat: MSG.DAT"},
        // Renames go in pairs (old aside, new in place); kod.dat is new and has only its own.
        {"setting the first old file aside", 0, 1, false, "nem tehető félre: MSG.DAT"},
        {"moving a new file in mid-way", 0, 6, false, "nem tehető a helyére: gy.ful"},
        {"moving the last file in", 0, 11, false, "nem tehető a helyére: rvw32"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        RefreshOptions failing = options();
        const RefreshFileOperations system = systemFileOperations();
        int copies = 0;
        int renames = 0;
        failing.operations.copy = [&](const fs::path& from, const fs::path& to) {
            if (++copies == c.failingCopy) return false;
            if (c.shortCopy) {
                std::ofstream(to, std::ios::binary) << "cut";
                return true;
            }
            return system.copy(from, to);
        };
        failing.operations.rename = [&](const fs::path& from, const fs::path& to) {
            return ++renames != c.failingRename && system.rename(from, to);
        };
        const RefreshInstall result = installRefresh(data(), check(), failing);
        EXPECT_FALSE(result.installed);
        ASSERT_TRUE(result.failure);
        EXPECT_EQ(cp1250ToUtf8(result.failure->text),
                  std::string("A frissítés nem sikerült, a régi adatbázis változatlan maradt: ") + c.why);
        EXPECT_EQ(contentsOf(data()), m_old);
        EXPECT_EQ(siblings(), (std::vector<std::string>{"db", "upd"}));
    }
}

TEST_F(Refresh, ProgramThatCannotBeReplacedIsFirstRenamedToOld)
{
    fs::rename(data() / "rvw32", data() / "rvw32.exe");
    fs::rename(update() / "rvw32", update() / "rvw32.exe");
    const RefreshInstall installed = installRefresh(data(), check(), options("rvw32.exe", true));
    ASSERT_TRUE(installed.installed);
    EXPECT_FALSE(installed.programKept);
    EXPECT_EQ(readWholeFile(data() / "rvw32.exe"), "new program");
    EXPECT_EQ(readWholeFile(data() / "rvw32.old"), "old program");
}

// Kept on purpose: the left-over ".old" stops the program file from being replaced, the data files are
// replaced all the same and the refresh reports success.
TEST_F(Refresh, LeftOverOldKeepsTheOldProgramButReplacesTheData)
{
    fs::rename(data() / "rvw32", data() / "rvw32.exe");
    fs::rename(update() / "rvw32", update() / "rvw32.exe");
    fill(data(), {{"rvw32.old", "older program"}});
    RefreshOptions windows = options("rvw32.exe", true);
    // A running program file cannot be renamed over an existing one.
    const RefreshFileOperations system = systemFileOperations();
    windows.operations.rename = [&](const fs::path& from, const fs::path& to) {
        return !fs::exists(to) && system.rename(from, to);
    };
    const RefreshInstall installed = installRefresh(data(), check(), windows);
    ASSERT_TRUE(installed.installed);
    EXPECT_TRUE(installed.programKept);
    EXPECT_EQ(readWholeFile(data() / "rvw32.exe"), "old program");
    EXPECT_EQ(readWholeFile(data() / "rvw32.old"), "older program");
    EXPECT_EQ(readWholeFile(data() / "gy.ful"), "new products, longer");
}

TEST(RefreshMessages, TextsAreExact)
{
    EXPECT_EQ(cp1250ToUtf8(refreshStartingMessage().text), "Az adatbázis változott, indul a frissítés.");
    EXPECT_EQ(cp1250ToUtf8(refreshDoneMessage().text), "Sikeres frissítés, a program újra indul.");
}

}  // namespace
}  // namespace rovanel

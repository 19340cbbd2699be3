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
        for (const auto& [name, content] : files)
            std::ofstream(directory / name, std::ios::binary) << content;
    }
    static Files contentsOf(const fs::path& directory)
    {
        Files files;
        for (const auto& entry : fs::directory_iterator(directory))
            if (entry.is_regular_file())
                files[entry.path().filename().string()] = readWholeFile(entry.path()).value_or("?");
        return files;
    }
    // Nothing is left beside the data directory.
    bool leftNothingBeside() const
    {
        return !fs::exists(m_root.path() / "db.frissites") && !fs::exists(m_root.path() / "db.elozo");
    }
    RefreshCheck check() { return checkRefresh(data(), update().string() + "/"); }

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

TEST_F(Refresh, OnlyALaterSecondLineInTheUpdateDirectoryIsNews)
{
    EXPECT_TRUE(check().newer);
    EXPECT_TRUE(checkRefresh(data(), "../upd/").newer) << "relative to the data directory";
    EXPECT_FALSE(checkRefresh(data(), update().string()).newer) << "no trailing separator: no such file";
    EXPECT_FALSE(checkRefresh(data(), "").newer) << "the data directory against itself";
    // The first line does not count; one line, or none, is nothing to do. Lines end at CR LF, LF or CR.
    for (const char* zaras : {"20261201\r\n2026.11.01\r\n", "20261201\n2026.10.01\r\n",
                              "20261201\r2026.11.01", "20261201\r\n", "20261201\n\n2027"}) {
        fill(update(), {{"ZARAS.INF", zaras}});
        EXPECT_FALSE(check().newer) << zaras;
        EXPECT_TRUE(check().files.empty());
    }
    fs::remove(update() / "ZARAS.INF");
    EXPECT_FALSE(check().newer);

    EXPECT_EQ(pathToUpdate(data()), "");
    fill(data(), {{"RV.INI", "[Rovanel Beallitasok]\r\nPathToUpdate=/srv/upd/\r\n"}});
    EXPECT_EQ(pathToUpdate(data()), "/srv/upd/");
}

TEST_F(Refresh, NewerEditionReplacesEveryOrdinaryFileAndLeavesNothingBeside)
{
#if defined(_WIN32)
    GTEST_SKIP()
        << "renames gy.ful to GY.FUL, which Wine's case-insensitive folders mix up with the old name";
#endif
    fs::create_directories(update() / "archive");
    fill(update() / "archive", {{"old.dat", "x"}});
    fill(update(), {{".hidden", "x"}});
    fs::rename(update() / "gy.ful", update() / "GY.FUL");  // replaces "gy.ful" all the same
    const RefreshCheck found = check();
    ASSERT_TRUE(found.newer);
    EXPECT_EQ(found.updateDate, "2026.12.01");
    EXPECT_EQ(found.currentDate, "2026.11.01");
    EXPECT_EQ(found.files, (std::vector<std::string>{"GY.FUL", "MSG.DAT", "ZARAS.INF", "kod.dat",
                                                     "nevrend.dat", "rvw32"}));

    const RefreshInstall installed = installRefresh(data(), found, RefreshOptions{"rvw32"});
    EXPECT_TRUE(installed.installed);
    EXPECT_FALSE(installed.failure);
    EXPECT_EQ(contentsOf(data()), m_new);
    EXPECT_FALSE(fs::exists(data() / "archive"));
    EXPECT_TRUE(leftNothingBeside());
    EXPECT_FALSE(check().newer) << "a second run finds nothing newer";
}

TEST_F(Refresh, FailureAtAnyStepLeavesTheOldDatabaseWhole)
{
    struct Case {
        const char* what;
        int failingCopy, failingRename;  // 1-based, 0: none
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
        RefreshOptions failing{"rvw32"};
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
        EXPECT_TRUE(leftNothingBeside());
    }
}

// A running program file is renamed to ".old" first. Kept on purpose: a ".old" left by an earlier refresh
// stops that, the old program stays, the data files are replaced all the same and the refresh succeeds.
TEST_F(Refresh, ProgramThatCannotBeReplacedIsFirstRenamedToOld)
{
    fs::rename(data() / "rvw32", data() / "rvw32.exe");
    fs::rename(update() / "rvw32", update() / "rvw32.exe");
    RefreshOptions windows = RefreshOptions{"rvw32.exe", true};
    const RefreshFileOperations system = systemFileOperations();
    windows.operations.rename = [&](const fs::path& from, const fs::path& to) {
        return !fs::exists(to) && system.rename(from, to);  // never over an existing file
    };
    fill(data(), {{"rvw32.old", "older program"}});
    RefreshInstall installed = installRefresh(data(), check(), windows);
    ASSERT_TRUE(installed.installed);
    EXPECT_TRUE(installed.programKept);
    EXPECT_EQ(readWholeFile(data() / "rvw32.exe"), "old program");
    EXPECT_EQ(readWholeFile(data() / "gy.ful"), "new products, longer");

    fill(data(), m_old);
    fs::remove(data() / "rvw32.old");
    installed = installRefresh(data(), check(), windows);
    ASSERT_TRUE(installed.installed);
    EXPECT_FALSE(installed.programKept);
    EXPECT_EQ(readWholeFile(data() / "rvw32.exe"), "new program");
    EXPECT_EQ(readWholeFile(data() / "rvw32.old"), "old program");
}

}  // namespace
}  // namespace rovanel

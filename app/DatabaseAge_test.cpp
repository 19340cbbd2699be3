#include "app/DatabaseAge.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <fstream>

#include "db/Cp1250.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

class DatabaseAge : public ::testing::Test
{
protected:
    // gy.ful last changed in the middle of the given month (local time).
    void writeDatabaseDated(YearMonth date, const std::string& name = "gy.ful")
    {
        m_scratch.write(name, "#vege\r\n");
        std::tm local{};
        local.tm_year = date.year - 1900;
        local.tm_mon = date.month - 1;
        local.tm_mday = 15;
        local.tm_hour = 12;
        local.tm_isdst = -1;
        const auto system = std::chrono::system_clock::from_time_t(std::mktime(&local));
        std::filesystem::last_write_time(m_directory / name, std::chrono::file_clock::from_sys(system));
    }

    testing::ScratchDirectory m_scratch;
    const std::filesystem::path& m_directory = m_scratch.path();
};

TEST_F(DatabaseAge, TitleAndWarningFollowTheAgeOfTheDatabaseFile)
{
    m_scratch.write("zaras.inf", "20240131\r\n2024.01.31\r\n");
    const std::string base = "Rovanel - 20240131 Lez\xE1rva:2024.01.31";
    const std::string milder = utf8ToCp1250(" - Az adatbázis veszített aktualitásából! ");
    const std::string stronger = utf8ToCp1250(" - Az adatbázis sokat veszített aktualitásából! ");
    const Message milderText{
        utf8ToCp1250("Az adatbázis veszített aktualitásából,\n       frissíte a programot."), "Rovanel"};
    const Message strongerText{
        utf8ToCp1250("Az adatbázis sokat veszített aktualitásából,\n        frissítse a programot."),
        "Rovanel"};
    using Case = std::tuple<const char*, YearMonth, std::string, std::optional<Message>>;
    const Case cases[] = {
        {"same month", {2024, 2}, base, std::nullopt},
        {"two months", {2024, 4}, base, std::nullopt},
        {"three months", {2024, 5}, base + milder, milderText},
        {"four months", {2024, 6}, base + milder, milderText},
        {"five months", {2024, 7}, base + stronger, strongerText},
        {"twelve months, across the year", {2025, 2}, base + stronger, strongerText},
        {"dated in the future", {2023, 11}, base, std::nullopt},
    };
    writeDatabaseDated({2024, 2});
    for (const auto& [what, today, title, warning] : cases) {
        SCOPED_TRACE(what);
        const DatabaseAgeCheck check = checkDatabaseAge(m_directory, "Rovanel", "", today);
        EXPECT_TRUE(check.checked);
        EXPECT_EQ(check.title, title);
        EXPECT_EQ(check.closingDate, "20240131");
        EXPECT_EQ(check.warning, warning);
    }
}

TEST_F(DatabaseAge, MissingFilesAndLongZarasLinesGiveTheStatedOutcomes)
{
    // No gy.ful: nothing changes, not even the closing date.
    m_scratch.write("zaras.inf", "20240131\r\n2024.01.31\r\n");
    DatabaseAgeCheck check = checkDatabaseAge(m_directory, "Rovanel", "old", {2024, 2});
    EXPECT_FALSE(check.checked);
    EXPECT_EQ(check.title, "Rovanel");
    EXPECT_EQ(check.closingDate, "old");
    EXPECT_FALSE(check.warning.has_value());

    // gy.ful in upper case is the same file; no zaras.inf: empty date and line, previous ClosingDate kept.
    std::filesystem::remove(m_directory / "zaras.inf");
    writeDatabaseDated({2024, 2}, "GY.FUL");
    check = checkDatabaseAge(m_directory, "Rovanel", "", {2024, 2});
    EXPECT_TRUE(check.checked);
    EXPECT_EQ(check.title, "Rovanel -  Lez\xE1rva:");

    // Its lines are cut at seventy-nine characters and lose their line ends.
    m_scratch.write("ZARAS.INF", std::string(100, 'x') + "\r\n2024.01.31");
    check = checkDatabaseAge(m_directory, "Rovanel", "", {2024, 2});
    EXPECT_EQ(check.closingDate, std::string(79, 'x'));
    EXPECT_EQ(check.title, "Rovanel - " + std::string(79, 'x') + " Lez\xE1rva:2024.01.31");

    m_scratch.write("ZARAS.INF", "20240131\n");  // one line, bare LF
    check = checkDatabaseAge(m_directory, "Rovanel", "", {2024, 2});
    EXPECT_EQ(check.title, "Rovanel - 20240131 Lez\xE1rva:");
}

}  // namespace
}  // namespace rovanel

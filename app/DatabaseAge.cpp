#include "app/DatabaseAge.h"

#include <chrono>
#include <cstdio>
#include <ctime>

#include "db/Cp1250.h"
#include "db/DataFile.h"

namespace rovanel
{
namespace
{

// fgets into an 80-byte buffer: at most 79 characters; a longer line is cut and its rest skipped.
constexpr std::size_t kLineLength = 79;
// GetWindowText into a 256-byte buffer.
constexpr std::size_t kTitleLength = 255;

YearMonth localYearMonth(std::time_t time)
{
    std::tm local{};
#if defined(_WIN32)
    localtime_s(&local, &time);
#else
    localtime_r(&time, &local);
#endif
    return {local.tm_year + 1900, local.tm_mon + 1};
}

// Line `index` (0 or 1) of the text, read as a text-mode fgets would: cut at the line feed, with the
// CR of a CR LF gone.
std::string lineOf(std::string_view content, int index)
{
    for (int i = 0; i < index; ++i) {
        const std::size_t newline = content.find('\n');
        if (newline == std::string_view::npos) return {};
        content.remove_prefix(newline + 1);
    }
    std::string_view line = content.substr(0, content.find('\n'));
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return std::string(line.substr(0, kLineLength));
}

}  // namespace

int monthsBetween(YearMonth file, YearMonth today)
{
    return (today.year * 12 + today.month) - (file.year * 12 + file.month);
}

std::optional<YearMonth> fileYearMonth(const std::filesystem::path& path)
{
    std::FILE* file = openFile(path, "rb");
    if (!file) return std::nullopt;
    std::fclose(file);
    std::error_code error;
    const auto written = std::filesystem::last_write_time(path, error);
    if (error) return std::nullopt;
    const auto system = std::chrono::file_clock::to_sys(written);
    return localYearMonth(std::chrono::system_clock::to_time_t(system));
}

YearMonth currentYearMonth() { return localYearMonth(std::time(nullptr)); }

DatabaseAgeCheck checkDatabaseAge(const std::filesystem::path& dataDirectory, std::string_view currentTitle,
                                  std::string_view closingDate, YearMonth today)
{
    DatabaseAgeCheck result;
    result.closingDate = std::string(closingDate);
    result.title = std::string(currentTitle);
    const auto fileDate = fileYearMonth(dataFilePath(dataDirectory, "gy.ful"));
    if (!fileDate) return result;  // no database file: no date in the title, no warning
    result.checked = true;

    std::string secondLine;
    if (const auto content = readWholeFile(dataFilePath(dataDirectory, "zaras.inf"))) {
        result.closingDate = lineOf(*content, 0);
        secondLine = lineOf(*content, 1);
    }
    result.title = std::string(currentTitle.substr(0, kTitleLength)) + " - " + result.closingDate +
                   " Lez\xE1rva:" + secondLine;

    const int age = monthsBetween(*fileDate, today);
    if (age >= 5) {
        result.title += utf8ToCp1250(" - Az adatbázis sokat veszített aktualitásából! ");
        result.warning = Message{utf8ToCp1250("Az adatbázis sokat veszített aktualitásából,\n"
                                              "        frissítse a programot."),
                                 "Rovanel", MessageIcon::None, false};
    } else if (age >= 3) {
        // "frissíte" is the word the program has always shown; it stays so.
        result.title += utf8ToCp1250(" - Az adatbázis veszített aktualitásából! ");
        result.warning = Message{utf8ToCp1250("Az adatbázis veszített aktualitásából,\n"
                                              "       frissíte a programot."),
                                 "Rovanel", MessageIcon::None, false};
    }
    return result;
}

}  // namespace rovanel

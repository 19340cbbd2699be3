// The main window's title: the database's closing date from zaras.inf and a warning when gy.ful, the
// database's main file, was last changed months ago. Texts are Windows-1250.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "db/Message.h"

namespace rovanel
{

struct YearMonth {
    int year = 0;
    int month = 0;  // 1..12

    friend bool operator==(const YearMonth&, const YearMonth&) = default;
};

// Months from `file` to `today`: negative for a file dated in the future.
[[nodiscard]] int monthsBetween(YearMonth file, YearMonth today);

// The year and month (local time) of the file's last change, or nothing when it cannot be opened.
[[nodiscard]] std::optional<YearMonth> fileYearMonth(const std::filesystem::path& path);

// Today in local time.
[[nodiscard]] YearMonth currentYearMonth();

struct DatabaseAgeCheck {
    bool checked = false;            // gy.ful opened; otherwise nothing below was changed
    std::string closingDate;         // ClosingDate: first line of zaras.inf (as before when it is missing)
    std::string title;               // the window's new title
    std::optional<Message> warning;  // the age message, when the database is three months old or more
};

// Runs the age check of the main window's creation: with gy.ful in `dataDirectory`, reads zaras.inf
// (lines cut at 79 characters), titles the window "%s - %s Lezárva:%s" (old title, closing date, second
// line) and adds the warning for an age of 3-4 or 5 and more months. `closingDate` is the value that
// stays when zaras.inf cannot be read.
[[nodiscard]] DatabaseAgeCheck checkDatabaseAge(const std::filesystem::path& dataDirectory,
                                                std::string_view currentTitle, std::string_view closingDate,
                                                YearMonth today);

}  // namespace rovanel

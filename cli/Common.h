// Helpers shared by the rvcli subcommands.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/StartupTables.h"

namespace rovanel::cli
{

// Prints "rvcli: usage: rvcli <usage>" to stderr and returns exit code 2.
int usageError(const char* usage);

// Loads the start-up tables of `directory`; prints a message to stderr and gives nothing when the
// directory is missing or the loader could not read its tables.
[[nodiscard]] std::optional<StartupTables> openDatabase(const std::string& directory);

// Line 1 of zaras.inf, cut at its line end; empty when the file is missing.
[[nodiscard]] std::string closingDateLine(const std::string& directory);

// A whole decimal number argument, or nothing.
[[nodiscard]] std::optional<long long> numberArgument(std::string_view text);

[[nodiscard]] std::string toUtf8(std::string_view cp1250);

}  // namespace rovanel::cli

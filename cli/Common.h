// Helpers shared by the rvcli subcommands.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Commands.h"
#include "db/StartupTables.h"

namespace rovanel::cli
{

// Loads the start-up tables of `directory` and gives `body`'s exit code on them. When the directory is
// missing or the loader could not read its tables: a message on stderr and exit code 2.
[[nodiscard]] int withDatabase(const std::string& directory, const std::function<int(StartupTables&)>& body);

// True when `directory` is a directory; otherwise a message on stderr.
[[nodiscard]] bool isReadableDirectory(const std::string& directory);

// Line 1 of zaras.inf, cut at its line end; empty when the file is missing.
[[nodiscard]] std::string closingDateLine(const std::string& directory);

// A whole decimal number argument, or nothing.
[[nodiscard]] std::optional<long long> numberArgument(std::string_view text);

[[nodiscard]] std::string toUtf8(std::string_view cp1250);

}  // namespace rovanel::cli

// The table of rvcli subcommands. Each subcommand lives in its own file and registers itself here.
#pragma once

#include <string>
#include <vector>

namespace rovanel::cli
{

struct Command {
    const char* name;
    const char* usage;  // one line, after "rvcli "
    int (*run)(const std::vector<std::string>& args);
};

// Every subcommand; add a line to Commands.cpp when a file adds one.
[[nodiscard]] const std::vector<Command>& commands();
[[nodiscard]] std::string usageText();

}  // namespace rovanel::cli

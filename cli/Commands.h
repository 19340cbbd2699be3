// The table of rvcli subcommands. Each subcommand lives in its own file and registers itself here.
#pragma once

#include <string>
#include <vector>

namespace rovanel::cli
{

struct Invocation;

struct Command {
    const char* name;
    const char* usage;  // one line, after "rvcli "
    int (*run)(const Invocation& call);
};

// One run of a subcommand: its arguments (after the subcommand's name) and its table entry.
struct Invocation {
    std::vector<std::string> args;
    const Command& command;
    // Prints "rvcli: usage: rvcli <the command's usage>" and a line end to stderr; gives exit code 2.
    [[nodiscard]] int usageError() const;
};

// Every subcommand; add a line to Commands.cpp when a file adds one.
[[nodiscard]] const std::vector<Command>& commands();
// "usage:" and one line per subcommand, each ending with a line end.
[[nodiscard]] std::string usageText();

}  // namespace rovanel::cli

// The table of rvcli subcommands. Each subcommand lives in its own file and registers itself here. The
// same table gives the usage lines, `--help`, `COMMAND --help` and the manual page (`--man`).
#pragma once

#include <string>
#include <vector>

namespace rovanel::cli
{

struct Invocation;

struct Command {
    const char* name;
    const char* usage;    // one line, after "rvcli "
    const char* summary;  // what the command does, one line
    const char* options;  // one line per argument or option: "NAME<TAB>meaning", lines ended by '\n'
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
// `rvcli --help`: how to call rvcli, its commands with their summaries and the exit codes.
[[nodiscard]] std::string helpText();
// `rvcli COMMAND --help`: the usage line, the summary and one line per argument or option.
[[nodiscard]] std::string commandHelpText(const Command& command);
// `rvcli --man`: the manual page rvcli(1) in roff, from the same texts.
[[nodiscard]] std::string manualPage(const std::string& version);

}  // namespace rovanel::cli

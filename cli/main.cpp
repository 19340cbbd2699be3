// rvcli: Rovanel's core from the command line. One subcommand per file; output is UTF-8.
// Exit codes: 0 done, 1 not found, refused or inconsistent, 2 usage error or unreadable input.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "cli/Commands.h"

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        std::fputs(rovanel::cli::usageText().c_str(), stderr);
        return 2;
    }
    const std::string command = args.front();
    args.erase(args.begin());
    if (command == "--help" || command == "-h") {
        std::fputs(rovanel::cli::helpText().c_str(), stdout);
        return 0;
    }
    if (command == "--version") {
        std::puts("rvcli (Rovanel) " ROVANEL_VERSION);
        return 0;
    }
    if (command == "--man") {
        std::fputs(rovanel::cli::manualPage(ROVANEL_VERSION).c_str(), stdout);
        return 0;
    }
    for (const rovanel::cli::Command& c : rovanel::cli::commands()) {
        if (command != c.name) continue;
        if (std::find(args.begin(), args.end(), "--help") != args.end()) {
            std::fputs(rovanel::cli::commandHelpText(c).c_str(), stdout);
            return 0;
        }
        return c.run(rovanel::cli::Invocation{std::move(args), c});
    }
    std::fprintf(stderr, "rvcli: unknown command '%s'\n", command.c_str());
    std::fputs(rovanel::cli::usageText().c_str(), stderr);
    return 2;
}
